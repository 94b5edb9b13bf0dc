#include "vouchers/print/voucher_print.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "printing/recordset_data.h"
#include "printing/sample_report.h"
#include "schema/company_schema.h"
#include "support/new_company.h"
#include "vouchers/print/voucher_sheet.h"

namespace velmo::vouchers {
namespace {

using namespace printing;
using printing::test::pagesOf;

// A company with vouchers, read as the screens read them.
class Voucher2 : public testing::Test {
 protected:
  Voucher2() : context_(schema::companyCatalog()) {
    context_.KORDconn.open(schema::plainConnectionString);
    context_.CompanyName = "Harbour Timber";
    context_.CompanyAddress = "12 Dock Road";
    context_.ccode = "USD";
    context_.UserName = "Ayesha";
  }

  struct Posting {
    std::string name;
    double debit;
    double credit;
  };
  struct Document {
    std::string description;
    std::vector<Posting> postings;
    bool cancelled = false;
  };

  void post(const Document& document) {
    store::Recordset head(context_.KORDconn, "select * from transactions");
    head.addNew({{"docno", ++posted_},
                 {"trandate", text::DateTime::fromCalendar(2026, 11, 22)},
                 {"desc", document.description},
                 {"trantype", 32},
                 {"wordsamt", "One hundred only"},
                 {"fyid", 1},
                 {"cancel", document.cancelled ? -1 : 0}});
    store::Recordset lines(context_.KORDconn, "select * from subtransactions");
    int code = 12001000;
    for (const Posting& posting : document.postings)
      lines.addNew({{"tranno", head.value("tranno")},
                    {"acccode", ++code},
                    {"accname", posting.name},
                    {"debit", posting.debit},
                    {"credit", posting.credit}});
  }

  Vouchers vouchers() {
    store::Recordset hierarchy;
    hierarchy.openShape(
        context_.KORDconn,
        "Shape {select tranno, docno, trandate, desc, ('Dollar ' & transactions.wordsamt) as WordsAmt, trantype, "
        "iif(cancel=0, '', 'CANCELLED') as CStatus from transactions where trantype=32 order by docno} as ParentCmd "
        "append ({SELECT Serial, AccCode, AccName, TranNo, Desc, Debit, Credit from SubTransactions WHERE "
        "((SubTransactions.Debit)<>0) OR ((SubTransactions.Credit)<>0) order by debit desc, credit desc} as ChildCmd "
        "relate tranno to tranno) as ChildCmd");
    return std::make_shared<RecordsetData>(hierarchy);
  }

  Report report() { return voucher2Print(context_, vouchers(), 32, text::DateTime::fromCalendar(2026, 11, 22)); }

  static std::vector<std::string> textsOf(const Page& page, int total) {
    std::vector<std::string> texts;
    for (const TextRun& run : page.drawing.texts) texts.push_back(drawnText(page.drawing, run, total).toStdString());
    return texts;
  }

  static bool shows(const Page& page, const std::string& words) {
    const std::vector<std::string> texts = textsOf(page, 1);
    return std::find(texts.begin(), texts.end(), words) != texts.end();
  }

  static void expectClean(const Page& page) { printing::test::expectNothingOverlaps(page, {}); }

  velmo::test::NewCompany company_;
  session::LoginContext context_;
  int posted_ = 0;
};

TEST_F(Voucher2, OnePageForEveryVoucherWithItsOwnLinesAndSums) {
  post({"Goods", {{"Customer", 100, 0}, {"Sales", 0, 90}, {"Carriage", 0, 10}, {"Nothing", 0, 0}}});
  post({"", {{"Other customer", 1234567.5, 0}, {"Sales", 0, 1234567.5}}, true});
  post({"No lines", {}});
  const Report report = this->report();
  EXPECT_EQ(report.title, "SALE VOUCHER");
  EXPECT_EQ(report.author, "Harbour Timber");
  const std::vector<Page> pages = pagesOf(report);
  ASSERT_EQ(pages.size(), 3U);
  for (const Page& page : pages) {
    expectClean(page);
    for (const char* words :
         {"Harbour Timber", "12 Dock Road", "SALE VOUCHER", "Serial No :", "22-11-2026", "Debit (USD)", "Credit (USD)",
          "Totals", "Dollar One hundred only", "Prepared By", "Checked By", "Approved By", "Printed By: Ayesha"})
      EXPECT_TRUE(shows(page, words)) << words << " on page " << page.number;
  }
  const std::vector<std::string> first = textsOf(pages[0], 3);
  EXPECT_EQ(std::count(first.begin(), first.end(), "100.00"), 3) << "the line and both sums";
  EXPECT_FALSE(shows(pages[0], "Nothing")) << "lines without an amount are left out";
  EXPECT_FALSE(shows(pages[0], "CANCELLED"));
  EXPECT_TRUE(shows(pages[1], "CANCELLED"));
  EXPECT_TRUE(shows(pages[1], "1,234,567.50"));
  EXPECT_FALSE(shows(pages[1], "100.00")) << "sums begin anew with every voucher";
  EXPECT_TRUE(shows(pages[2], "0.00"));
  EXPECT_NE(std::find(first.begin(), first.end(), "Page  1  of  3"), first.end());
}

TEST_F(Voucher2, ALongVoucherRunsOnUnderItsHead) {
  Document many{"Fifty lines", {}};
  for (int line = 0; line < 90; ++line) many.postings.push_back({"Account " + std::to_string(line), 1, 0});
  post(many);
  post({"Next", {{"A", 5, 0}}});
  const std::vector<Page> pages = pagesOf(report());
  ASSERT_EQ(pages.size(), 4U);
  std::size_t lines = 0;
  for (std::size_t page = 0; page < 3; ++page) {
    expectClean(pages[page]);
    EXPECT_TRUE(shows(pages[page], "Fifty lines")) << "the head is on every page of its voucher";
    EXPECT_EQ(shows(pages[page], "Totals"), page == 2);
    for (const std::string& words : textsOf(pages[page], 4)) lines += words.starts_with("Account ") ? 1 : 0;
  }
  EXPECT_EQ(lines, 90U + 3U) << "and the column's heading";
  EXPECT_TRUE(shows(pages[3], "Next"));
}

TEST_F(Voucher2, LongNamesWrapAndWideAmountsDoNot) {
  const std::string urdu = "لکڑی کے دستے والا مضبوط ہتھوڑا اور لکڑی کے دستے والا مضبوط ہتھوڑا بنانے والے کاریگر";
  const std::string arabic = "شركة الميناء لتجارة الأخشاب والحديد ومواد البناء والأدوات اليدوية والكهربائية المحدودة";
  post({arabic + " " + urdu + " " + std::string(200, 'x'),
        {{urdu, 9999999999.99, 0}, {arabic, -99999999.99, 0}, {std::string(250, 'W'), 0, 9899999999.99 + 1}}});
  context_.CompanyName = arabic;
  const std::vector<Page> pages = pagesOf(report());
  ASSERT_EQ(pages.size(), 1U);
  expectClean(pages[0]);
  for (const char* amount : {"9,999,999,999.99", "(99,999,999.99)", "9,900,000,000.99"})
    EXPECT_TRUE(shows(pages[0], amount)) << amount;
}

// A preview goes through the rows while the same report is written to a file.
TEST_F(Voucher2, TwoWalksOverOneHierarchyDoNotDisturbEachOther) {
  for (int number = 1; number <= 6; ++number)
    post({"Voucher " + std::to_string(number), {{"A", 10.0 * number, 0}, {"B", 0, 10.0 * number}}});
  const Report report = this->report();
  const std::vector<Page> alone = pagesOf(report);
  Paginator one(report);
  Paginator other(report);
  (void)other.next();
  for (const Page& expected : alone) {
    const std::optional<Page> page = one.next();
    const std::optional<Page> ahead = other.next();
    ASSERT_TRUE(page.has_value());
    EXPECT_EQ(textsOf(*page, 6), textsOf(expected, 6));
    if (ahead) {
      EXPECT_EQ(textsOf(*ahead, 6), textsOf(alone.at(static_cast<std::size_t>(expected.number)), 6));
    }
  }
}

// Of the two layouts, the one with the lines' own words.
TEST_F(Voucher2, TheFirstLayoutDescribesEveryLine) {
  post({"Rent", {{"Rent Expenses", 250, 0}, {"Cash", 0, 250}}});
  context_.KORDconn.execute("update subtransactions set [desc]='Store of ' & accname");
  const auto wordsOf = [&](auto layout) {
    const std::vector<Page> pages =
        pagesOf(layout(context_, vouchers(), 41, text::DateTime::fromCalendar(2026, 11, 22)));
    expectClean(pages.at(0));
    const std::vector<std::string> texts = textsOf(pages[0], 1);
    return std::set<std::string>(texts.begin(), texts.end());
  };
  const std::set<std::string> described = wordsOf(voucher1Print);
  for (const char* words : {"GENERAL JOURNAL VOUCHER", "Description", "Rent Expenses", "Store of Rent Expenses",
                            "Store of Cash", "Debit (USD)", "250.00", "Totals", "Checked By"})
    EXPECT_TRUE(described.contains(words)) << words;
  EXPECT_FALSE(wordsOf(voucher2Print).contains("Store of Cash"));
  EXPECT_EQ(wordsOf(voucherPrint), described) << "in which journals are printed";
}

TEST_F(Voucher2, LongDescriptionsWrapBesideTheirAmounts) {
  post({"", {{std::string(120, 'N'), 9999999999.99, 0}, {"Cash", 0, -9999999999.99}}});
  std::string words;
  for (int word = 0; word < 30; ++word) words += "wiederkehrend ";
  context_.KORDconn.execute("update subtransactions set [desc]=" + store::quoted(words));
  const std::vector<Page> pages =
      pagesOf(voucher1Print(context_, vouchers(), 39, text::DateTime::fromCalendar(2026, 11, 22)));
  ASSERT_EQ(pages.size(), 1U);
  expectClean(pages[0]);
  EXPECT_TRUE(shows(pages[0], "9,999,999,999.99"));
  EXPECT_TRUE(shows(pages[0], "(9,999,999,999.99)"));
}

TEST(VoucherTitle, EveryTypeThatPostsHasItsOwn) {
  struct Type {
    int number;
    const char* title;
    VoucherLayout layout;
  };
  using enum VoucherLayout;
  const Type types[] = {{22, "PURCHASE VOUCHER", Voucher2},
                        {25, "PURCHASE RETURN VOUCHER", Voucher2},
                        {28, "BANK PAYMENT VOUCHER", Voucher1},
                        {29, "CASH PAYMENT VOUCHER", Voucher1},
                        {35, "SALE RETURN VOUCHER", Voucher2},
                        {38, "BANK RECEIPT VOUCHER", Voucher1},
                        {39, "CASH RECEIPT VOUCHER", Voucher1},
                        {42, "PRODUCTION VOUCHER", Voucher2},
                        {45, "ADD INVENTORY ADJUSTMENT VOUCHER", Voucher2},
                        {47, "REDUCE INVENTORY ADJUSTMENT VOUCHER", Voucher2}};
  for (const auto& [number, title, layout] : types) {
    EXPECT_EQ(voucherTitle(number), title);
    EXPECT_EQ(voucherLayout(number), layout) << title;
  }
  EXPECT_THROW(voucherTitle(33), std::logic_error);
  EXPECT_THROW(voucherLayout(33), std::logic_error);
}

}  // namespace
}  // namespace velmo::vouchers
