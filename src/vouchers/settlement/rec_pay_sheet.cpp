#include "vouchers/settlement/rec_pay_sheet.h"

#include <algorithm>

#include "printing/vector_data.h"
#include "text/format.h"

namespace velmo::vouchers {

using namespace printing;

namespace {

constexpr const char* AmountFormat = "#,##0.00;(#,##0.00)";
constexpr Twips CaptionWidth = mm(30);
constexpr Twips Gap = mm(6);

// The words in which receipts and payments differ.
struct Words {
  const char* title;
  const char* party;
  const char* nature;
  const char* amount;
};

Words wordsOf(Money money) {
  if (money == Money::Received) return {"RECEIPT NOTE", "Received From:", "Receipt Type:", "Amount Received "};
  return {"PAYMENT NOTE", "Payment To:", "Payment Type:", "Amount Paid "};
}

// The company, the title, and the mark of a cancelled document.
void addTitle(Report& report, Section& head, const RecPaySheet& sheet) {
  const Twips width = report.design.bodyWidth();
  addCompanyLines(report, head, sheet.letterhead);
  report.variables["Vlabel"] = wordsOf(sheet.money).title;
  report.variables["cstatus"] = sheet.status;
  head.elements.push_back({.name = "Vlabel",
                           .at = {0, head.height, width, mm(7)},
                           .font = {.size = 13, .weight = Weight::Bold},
                           .align = Align::Centre,
                           .colour = ink::Accent});
  head.elements.push_back({.name = "cstatus",
                           .at = {0, head.height + mm(7), width, mm(6)},
                           .font = {.size = 12, .weight = Weight::Bold},
                           .align = Align::Centre,
                           .colour = ink::Alarm,
                           .whenEmpty = WhenEmpty::Fold});
  head.height += mm(15);
}

// Two columns of references. They are made equally long, by rows that take no room: what comes next keeps clear of
// both, whichever of their texts are empty or long.
void addBeside(Report& report, Section& head, std::vector<Reference> left, std::vector<Reference> right) {
  const std::size_t rows = std::max(left.size(), right.size());
  left.resize(rows);
  right.resize(rows);
  const Twips width = report.design.bodyWidth();
  const Twips half = width * 3 / 5;
  const Twips top = head.height;
  head.height = addReferences(report, head, {0, top, half, 0}, CaptionWidth, left);
  addReferences(report, head, {half + Gap, top, width - half - Gap, 0}, mm(24), right);
}

// Who and how, which note and cheque, and what for.
void addDetails(Report& report, Section& head, const RecPaySheet& sheet) {
  const Words words = wordsOf(sheet.money);
  addBeside(report, head,
            {{"partynamelbl", words.party, "text1", sheet.party},
             {"naturelbl", words.nature, "nature", sheet.nature},
             {"text3lbl", "Paid By:", "text3", sheet.means},
             {"text2lbl", sheet.accountCaption + ":", "text2", sheet.account}},
            {{"DocNoLbl", "Serial No :", "DocNo", sheet.docNo},
             {"TranDateLbl", "Date :", "TranDate", text::formatDate(sheet.tranDate, "dd-MM-yyyy")},
             {"ChqNoLbl", "Cheque No.:", "ChqNo", sheet.chequeNo},
             {"ChqDtLbl", "Dated:", "ChqDt", sheet.chequeDate},
             {"ChqBankLbl", "Bank:", "ChqBank", sheet.chequeBank}});
  head.height = addReferences(
      report, head, {0, head.height, report.design.bodyWidth(), 0}, CaptionWidth,
      {{"text8lbl", "Settlement:", "text8", sheet.settlement}, {"DescLbl", "Description:", "Desc", sheet.description}});
}

void addClosing(Report& report, Section& foot, const RecPaySheet& sheet) {
  const Twips width = report.design.bodyWidth();
  const Twips top = foot.height + mm(4);
  foot.height = addReferences(report, foot, {0, top, width, 0}, mm(34),
                              {{"wordslbl", "Amount in Words :", "WordsAmount", sheet.words}}) +
                mm(2);
  addSignatures(foot, width, {"Prepared By", "Approved By", "Received By"});
}

std::vector<Total> amounts(const RecPaySheet& sheet) {
  const auto total = [&](const char* label, const std::string& caption, const char* name, double amount,
                         Emphasis emphasis = Emphasis::Plain) {
    return Total{label, caption + sheet.currencyCode, name, text::formatNumber(amount, AmountFormat), emphasis};
  };
  std::vector<Total> rows = {total("amtlbl", wordsOf(sheet.money).amount, "amt1", sheet.received)};
  if (sheet.withheldTax != 0) rows.push_back(total("itlbl", "With-holding Tax Deducted ", "amt2", sheet.withheldTax));
  if (sheet.advanceAdjusted != 0) rows.push_back(total("advlbl", "Advance Adjusted ", "amt5", sheet.advanceAdjusted));
  if (sheet.discount != 0) rows.push_back(total("disclbl", "Discount ", "amt6", sheet.discount));
  if (sheet.total != sheet.received)
    rows.push_back(total("tlbl", "Total ", "amt7", sheet.total, Emphasis::Strong));
  else
    rows.front().emphasis = Emphasis::Strong;
  return rows;
}

Report emptyNote(const RecPaySheet& sheet) {
  Report report{.title = noteTitle(sheet.money), .author = sheet.letterhead.companyName, .printedOn = sheet.today};
  report.design.pageFooter = pageFoot(report, sheet.letterhead, report.design.bodyWidth());
  return report;
}

}  // namespace

std::string noteTitle(Money money) {
  return wordsOf(money).title;
}

Report recPayReport(const RecPaySheet& sheet) {
  Report report = emptyNote(sheet);
  report.data = std::make_shared<VectorData>();
  Section note{.name = "Section4", .keep = Keep::MayBreak};
  addTitle(report, note, sheet);
  addDetails(report, note, sheet);
  note.height = addTotals(report, note, note.height + mm(4), report.design.bodyWidth(), amounts(sheet));
  Section closing{.name = "Section5"};
  addClosing(report, closing, sheet);
  report.design.reportHeader = std::move(note);
  report.design.reportFooter = std::move(closing);
  return report;
}

Report recPayPettyReport(const RecPaySheet& sheet, std::shared_ptr<const ReportData> lines) {
  Report report = emptyNote(sheet);
  report.data = std::move(lines);
  const Twips width = report.design.bodyWidth();
  const std::vector<ColumnPlace> columns =
      placeColumns({{.heading = "Acc Code", .dataField = "acccode", .width = mm(20)},
                    {.heading = "Account Name", .dataField = "accname", .width = mm(56)},
                    {.heading = "Description", .dataField = "desc"},
                    {.heading = "Amount " + sheet.currencyCode,
                     .dataField = "amt",
                     .width = mm(34),
                     .align = Align::Right,
                     .format = AmountFormat,
                     .headingName = "amtlbl",
                     .totalName = "AmtSum"}},
                   width);
  Section head{.name = "Section6", .repeat = Repeat::EveryPage};
  addTitle(report, head, sheet);
  addDetails(report, head, sheet);
  addColumnHeadings(head, columns, width);
  Section foot{.name = "Section7"};
  report.variables["tlbl"] = "Total " + sheet.currencyCode;
  addTotalsRow(foot, columns, width, "tlbl");
  addClosing(report, foot, sheet);
  report.design.groups.push_back({.dataMember = "ParentCmd", .header = std::move(head), .footer = std::move(foot)});
  report.design.detailMember = "ChildCmd";
  report.design.detail = tableLine(columns, width);
  return report;
}

}  // namespace velmo::vouchers
