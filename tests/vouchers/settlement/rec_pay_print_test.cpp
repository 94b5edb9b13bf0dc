#include "vouchers/settlement/rec_pay_print.h"

#include <gmock/gmock.h>

#include <QRadioButton>
#include <map>
#include <set>

#include "printing/preview_window.h"
#include "printing/sample_report.h"
#include "vouchers/settlement/rec_pay_statements.h"
#include "vouchers/settlement/settlement_company.h"
#include "vouchers/settlement/settlement_types.h"

namespace velmo::vouchers {
namespace {

using namespace printing;
using velmo::test::SettlementCompany;

// The lines of a page from the top, what stands beside each other parted by "|".
std::vector<std::string> linesOf(const Report& report) {
  std::vector<std::string> lines;
  for (const Page& page : printing::test::pagesOf(report)) {
    std::map<Twips, std::map<Twips, std::string>> rows;
    printing::test::expectNothingOverlaps(page, report.design);
    for (const TextRun& run : page.drawing.texts) {
      const std::string words = drawnText(page.drawing, run, 1).toStdString();
      if (!words.empty()) rows[run.at.top][run.at.left] = words;
    }
    for (const auto& [top, row] : rows) {
      std::string line;
      for (const auto& [left, words] : row) line += (line.empty() ? "" : "|") + words;
      lines.push_back(line);
    }
  }
  return lines;
}

class RecPay : public testing::Test {
 protected:
  RecPay() {
    company_.context.CompanyName = "Harbour Timber";
    company_.context.CompanyAddress = "12 Dock Road";
    company_.context.CompanyTelLine = "Tel: 555-0101";
    company_.context.UserName = "Ayesha";
  }

  struct Note {
    const char* nature = "Customer Receipt";
    const char* party = "O'Brien & Sons";
    const char* account = "City Bank";
    const char* chequeBank = "Harbour Bank";
    double received = 960;
    double withheld = 0;
    double advance = 0;
    double discount = 0;
    double total = 960;
    bool cancelled = false;
  };

  // A document as the screens write it.
  std::int64_t save(const SettlementKind& kind, const Note& note) {
    const bool cheque = kind.by == PaidBy::Cheque;
    store::Recordset rows(company_.context.KORDconn, "select * from transactions where tranno=0");
    rows.addNew({{"docno", 7},
                 {"trandate", text::DateTime::fromCalendar(2026, 11, 22)},
                 {"trantype", std::int64_t{kind.form.tranType}},
                 {"nature", std::string(note.nature)},
                 {"desc", std::string("As agreed")},
                 {"d1", std::string(cheque ? "C-77" : "")},
                 {"d1date", std::string(cheque ? "20-11-2026" : "")},
                 {"text1", std::string(note.party)},
                 {"text2", std::string(note.account)},
                 {"text3", std::string(kind.means)},
                 {"text4", std::string(cheque ? note.chequeBank : "")},
                 {"text8", std::string(*note.party ? "Rec Rs.960" : "")},
                 {"carriage", note.withheld},
                 {"additionaltax", note.advance},
                 {"discount", note.discount},
                 {"received", note.received},
                 {"tramount", note.total},
                 {"wordsamt", std::string("nine hundred only.")},
                 {"fyid", std::int64_t{1}},
                 {"cancel", note.cancelled}});
    return rows.integer("tranno");
  }

  std::vector<std::string> printed(const SettlementKind& kind, SettlementMode mode, std::int64_t tranNo) {
    session::LoginContext& context = company_.context;
    store::Recordset rows;
    if (mode == SettlementMode::Petty)
      rows.openShape(context.KORDconn, recPayPettyShape(kind, context.currencyname, tranNo));
    else
      rows.open(context.KORDconn, recPayStatement(kind, context.currencyname, tranNo), store::LockType::ReadOnly);
    return linesOf(recPayPrint(context, kind, mode, rows, text::DateTime::fromCalendar(2026, 11, 22)));
  }

  SettlementCompany company_;
};

std::vector<std::string> between(const std::vector<std::string>& lines, const std::string& first,
                                 const std::string& last) {
  const auto begin = std::ranges::find_if(lines, [&](const auto& line) { return line.starts_with(first); });
  const auto end = std::find_if(begin, lines.end(), [&](const auto& line) { return line.starts_with(last); });
  return {begin, end};
}

TEST_F(RecPay, AChequeReceivedWithEveryDeduction) {
  const std::int64_t note =
      save(bankReceipts(), {.withheld = 30, .advance = 12.5, .discount = -2.25, .total = 1000.25, .cancelled = true});
  EXPECT_THAT(printed(bankReceipts(), SettlementMode::Party, note),
              testing::ElementsAre(
                  "Harbour Timber", "12 Dock Road", "Tel: 555-0101", "RECEIPT NOTE", "CANCELLED",
                  "Received From:|O'Brien & Sons|Serial No :|7", "Receipt Type:|Customer Receipt|Date :|22-11-2026",
                  "Paid By:|Cheque|Cheque No.:|C-77", "Bank Account:|City Bank|Dated:|20-11-2026", "Bank:|Harbour Bank",
                  "Settlement:|Rec Rs.960", "Description:|As agreed", "Amount Received Rs.|960.00",
                  "With-holding Tax Deducted Rs.|30.00", "Advance Adjusted Rs.|12.50", "Discount Rs.|(2.25)",
                  "Total Rs.|1,000.25", "Amount in Words :|Rupees nine hundred only.",
                  "Prepared By|Approved By|Received By", "Printed By: Ayesha|Page  1  of  1|Date 22-11-2026"));
}

TEST_F(RecPay, LeavesOutWhatIsNothingAndClosesTheGap) {
  struct Case {
    Note note;
    std::vector<std::string> amounts;
  };
  const Case cases[] = {
      {{}, {"Amount Received Rs.|960.00"}},
      {{.withheld = 40, .total = 1000},
       {"Amount Received Rs.|960.00", "With-holding Tax Deducted Rs.|40.00", "Total Rs.|1,000.00"}},
      {{.discount = 40, .total = 1000}, {"Amount Received Rs.|960.00", "Discount Rs.|40.00", "Total Rs.|1,000.00"}},
      {{.withheld = 5, .discount = -5},
       {"Amount Received Rs.|960.00", "With-holding Tax Deducted Rs.|5.00", "Discount Rs.|(5.00)"}},
      {{.received = 0, .total = 0}, {"Amount Received Rs.|0.00"}}};
  for (const auto& [note, amounts] : cases) {
    const std::vector<std::string> lines = printed(cashReceipts(), SettlementMode::Party, save(cashReceipts(), note));
    EXPECT_EQ(between(lines, "Amount Received", "Amount in Words"), amounts);
    EXPECT_EQ(std::ranges::count(lines, "CANCELLED"), 0);
    EXPECT_EQ(between(lines, "Received From:", "Settlement:").back(), "Cash Account:|City Bank") << "no cheque";
    company_.run("delete from transactions where docno=7");
  }
}

// No text runs over another, whichever of them are long.
TEST_F(RecPay, LongTextsWrap) {
  const std::string longText(150, 'W');
  for (const std::set<std::string>& names :
       {std::set<std::string>{"text1"}, {"text2", "desc"}, {"d1", "text4"}, {"text4", "text8", "nature"}}) {
    const std::int64_t note = save(bankReceipts(), {.received = 9999999999.99, .withheld = 1, .total = -9999999999.99});
    for (const std::string& name : names)
      company_.run("update transactions set [" + name +
                   "]=" + store::quoted(longText.substr(0, name == "d1" || name == "nature" ? 40 : 150)) +
                   " where tranno=" + std::to_string(note));
    const std::vector<std::string> lines = printed(bankReceipts(), SettlementMode::Party, note);
    EXPECT_EQ(between(lines, "Amount Received", "With-holding").size(), 1u);
    EXPECT_EQ(std::ranges::count(lines, "Total Rs.|(9,999,999,999.99)"), 1);
    company_.run("delete from transactions where docno=7");
  }
}

// The bank of a cheque that is paid is our own account, and stands there once.
TEST_F(RecPay, PaymentsSpeakOfPayments) {
  for (const SettlementKind* kind : {&cashPayments(), &bankPayments()}) {
    const bool cheque = kind->by == PaidBy::Cheque;
    const std::int64_t note =
        save(*kind, {.nature = "Vendor Payment", .party = "Mills", .chequeBank = "", .withheld = 40, .total = 1000});
    const std::vector<std::string> lines = printed(*kind, SettlementMode::Party, note);
    EXPECT_EQ(lines[3], "PAYMENT NOTE");
    EXPECT_EQ(
        between(lines, "Payment To:", "Amount in Words"),
        (std::vector<std::string>{"Payment To:|Mills|Serial No :|7", "Payment Type:|Vendor Payment|Date :|22-11-2026",
                                  cheque ? "Paid By:|Cheque|Cheque No.:|C-77" : "Paid By:|Cash",
                                  cheque ? "Bank Account:|City Bank|Dated:|20-11-2026" : "Cash Account:|City Bank",
                                  "Settlement:|Rec Rs.960", "Description:|As agreed", "Amount Paid Rs.|960.00",
                                  "With-holding Tax Deducted Rs.|40.00", "Total Rs.|1,000.00"}));
  }
}

TEST_F(RecPay, PettyLinesStandUnderEachOtherWithTheirSum) {
  for (const SettlementKind* kind : {&cashReceipts(), &bankPayments()}) {
    const bool receipt = isReceipt(*kind);
    const std::int64_t note =
        save(*kind, {.nature = kind->pettyNature.data(), .party = "", .chequeBank = "", .total = 60.5});
    store::Recordset lines(company_.context.KORDconn, "select * from subtransactions where tranno=0");
    const auto add = [&](int account, const char* name, double debit, double credit) {
      lines.addNew({{"tranno", note},
                    {"acccode", account},
                    {"accname", std::string(name)},
                    {"desc", std::string("For ") + name}});
      if (debit != 0) lines.update({{"debit", debit}});
      if (credit != 0) lines.update({{"credit", credit}});
    };
    add(60002010, "Tea", receipt ? 0 : 50.25, receipt ? 50.25 : 0);
    add(60002009, "Taxi", receipt ? 0 : 10.25, receipt ? 10.25 : 0);
    add(60002005, "Nothing", 0, 0);
    add(10001001, "Cash in Hand", receipt ? 60.5 : 0, receipt ? 0 : 60.5);
    const std::vector<std::string> page = printed(*kind, SettlementMode::Petty, note);
    EXPECT_EQ(page[3], receipt ? "RECEIPT NOTE" : "PAYMENT NOTE");
    EXPECT_EQ(between(page, receipt ? "Receipt Type:" : "Payment Type:", "Description:").size(), receipt ? 3u : 4u)
        << "and no party";
    EXPECT_EQ(between(page, "Acc Code", "Prepared By"),
              (std::vector<std::string>{"Acc Code|Account Name|Description|Amount Rs.", "60002010|Tea|For Tea|50.25",
                                        "60002009|Taxi|For Taxi|10.25", "Total Rs.|60.50",
                                        "Amount in Words :|Rupees nine hundred only."}));
  }
}

TEST_F(RecPay, TheScreenShowsItsNoteAndLetsGoOfItsRows) {
  velmo::test::InvoiceScreen screen(company_, {}, makeCashReceipts);
  screen.find<QRadioButton>("RecOpt_0").click();
  screen.type("BankCode", "10001001");
  screen.type("PartyCode", "12001002");
  screen.type("AdvTxt", "75");
  screen.press("PrintBill_0");
  auto* preview = screen.widget().findChild<PreviewWindow*>();
  ASSERT_NE(preview, nullptr);
  EXPECT_EQ(company_.context.PrintKind, 39);
  EXPECT_EQ(preview->pages().report().title, "RECEIPT NOTE");
  const std::vector<std::string> lines = linesOf(preview->pages().report());
  EXPECT_EQ(between(lines, "Amount Received", "Amount in Words"),
            std::vector<std::string>{"Amount Received Rs.|75.00"});
  EXPECT_TRUE(company_.context.PrintRS.isOpen());
  preview->close();
  EXPECT_FALSE(company_.context.PrintRS.isOpen());
  EXPECT_EQ(screen.text("PartyCode"), "12001002") << "the screen stays on what it printed";
}

}  // namespace
}  // namespace velmo::vouchers
