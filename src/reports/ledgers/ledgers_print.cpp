#include "reports/ledgers/ledgers_print.h"

#include "printing/report_walk.h"
#include "reports/ledgers/ledger_print.h"
#include "reports/parts/report_pieces.h"

namespace velmo::reports {

using namespace printing;

namespace {

constexpr const char* ledgers = "ParentCmd";
constexpr Twips lineHeight = mm(4.2);

Element ofLedger(const char* name, Frame at, const char* field, Weight weight, Align align = Align::Left) {
  return {.name = name,
          .at = at,
          .content = Field{field, "", ledgers},
          .font = {.size = 9, .weight = weight},
          .align = align,
          .colour = ink::Accent};
}

void addBroughtForward(Section& head, const std::vector<ColumnPlace>& columns, Twips width) {
  const Twips top = head.height + mm(1.2);
  addUnderColumn(head, columns[3], top, "BBF1", Label{"Balance Brought Forward ..."}, Weight::SemiBold);
  addUnderColumn(head, columns[6], top, "BBF2", Field{"opbalance", frame::groupedFigureFormat, ledgers},
                 Weight::SemiBold);
  addUnderColumn(head, columns[7], top, "BBF3", Field{"opstatus", "", ledgers}, Weight::SemiBold);
  head.height = top + mm(4.6);
  head.elements.push_back({.at = {0, head.height, width, 0}, .content = Line{6, ink::Rule}});
}

// The account, the period, and the columns' headings: again on the pages that a long ledger runs on to.
Section ledgerHead(Report& report, const LedgersSheet& sheet, const std::vector<ColumnPlace>& columns) {
  const Twips width = report.design.bodyWidth();
  constexpr Twips codeWidth = mm(22);
  Section head{.name = "Section6", .keep = Keep::WithNext, .repeat = Repeat::EveryPage};
  head.elements.push_back(ofLedger("AccCode", {0, mm(2), codeWidth, lineHeight}, "acccode", Weight::SemiBold));
  head.elements.push_back(
      ofLedger("AccountName", {codeWidth, mm(2), width - codeWidth, lineHeight}, "accountname", Weight::Bold));
  report.variables["DateLbl"] = sheet.period;
  head.elements.push_back({.name = "DateLbl", .at = {0, mm(6.6), width, mm(3.6)}, .colour = ink::Quiet});
  head.height = mm(10.6);
  addColumnHeadings(head, columns, width);
  if (sheet.broughtForward) addBroughtForward(head, columns, width);
  return head;
}

Section ledgerFoot(Report& report, const LedgersSheet& sheet, const std::vector<ColumnPlace>& columns,
                   const std::string& currencyCode) {
  Section foot{.name = "Section3"};
  if (sheet.begins == EveryLedgerOn::NewPage) foot.forcePageBreak = PageBreak::After;
  report.variables["TtlLbl"] = "Totals  " + currencyCode;
  addTotalsRow(foot, columns, report.design.bodyWidth(), "TtlLbl");
  addUnderColumn(foot, columns[6], mm(1.3), "clbalance", Field{"clbalance", frame::groupedFigureFormat, ledgers},
                 Weight::Bold);
  addUnderColumn(foot, columns[7], mm(1.3), "clstatus", Field{"clstatus", "", ledgers}, Weight::Bold);
  foot.height += mm(4);
  return foot;
}

}  // namespace

Report ledgersPrint(const session::LoginContext& context, const LedgersSheet& sheet,
                    std::shared_ptr<const LedgersData> ledgers, text::DateTime today) {
  Report report{
      .title = "Accounts Ledgers", .author = context.CompanyName, .data = std::move(ledgers), .printedOn = today};
  const Letterhead letterhead = letterheadOf(context);
  const Twips width = report.design.bodyWidth();
  const std::vector<ColumnPlace> columns = placeColumns(ledgerColumns(context.ccode), width);
  report.design.reportHeader = titledHead(report, letterhead, {});
  report.design.groups.push_back({.dataMember = "ParentCmd",
                                  .header = ledgerHead(report, sheet, columns),
                                  .footer = ledgerFoot(report, sheet, columns, context.ccode)});
  report.design.detailMember = "ChildCmd";
  report.design.detail = tableLine(columns, width);
  report.design.pageFooter = pageFoot(report, letterhead, width);
  return report;
}

}  // namespace velmo::reports
