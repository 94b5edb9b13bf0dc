#include "reports/ledgers/ledger_print.h"

#include "reports/parts/report_pieces.h"

namespace velmo::reports {

using namespace printing;

std::string ledgerEndedOn(const text::DateTime& day) {
  return "Ledger For The Period Ended On  " + frame::dayInWords(day);
}

std::string ledgerFromTo(const text::DateTime& from, const text::DateTime& to) {
  return "Ledger For The Period From  " + frame::dayInWords(from) + "  To  " + frame::dayInWords(to);
}

std::vector<Column> ledgerColumns(const std::string& currencyCode) {
  return {dateColumn(),
          {.heading = "Ref. No.", .dataField = "tranrefshort", .width = mm(18)},
          {.heading = "Tran. No.", .dataField = "tranno", .width = mm(15)},
          {.heading = "Description", .dataField = "desc"},
          amountColumn("Debit " + currencyCode, "debit", "Lbl1", "DebitSum"),
          amountColumn("Credit " + currencyCode, "credit", "Lbl2", "CreditSum"),
          amountColumn("Balance " + currencyCode, "balance", "Lbl3"),
          {.heading = "", .dataField = "status", .width = mm(12)}};
}

namespace {

// The columns' headings, and under them what was brought forward.
Section pageHead(Report& report, const LedgerSheet& sheet, const std::vector<ColumnPlace>& columns) {
  const Twips width = report.design.bodyWidth();
  Section head{.name = "Section2"};
  addColumnHeadings(head, columns, width);
  if (sheet.broughtForward.empty()) return head;
  report.variables["Bal1"] = sheet.broughtForward;
  report.variables["Bal2"] = sheet.openingBalance;
  report.variables["Bal3"] = sheet.openingStatus;
  const Twips top = head.height + mm(1.2);
  addUnderColumn(head, columns[3], top, "Bal1", Label{}, Weight::SemiBold);
  addUnderColumn(head, columns[6], top, "Bal2", Label{}, Weight::SemiBold);
  addUnderColumn(head, columns[7], top, "Bal3", Label{}, Weight::SemiBold);
  head.height = top + mm(4.6);
  head.elements.push_back({.at = {0, head.height, width, 0}, .content = Line{6, ink::Rule}});
  return head;
}

Section totals(Report& report, const LedgerSheet& sheet, const std::vector<ColumnPlace>& columns,
               const std::string& currencyCode) {
  Section foot{.name = "Section5"};
  report.variables["TtlLbl"] = "Totals  " + currencyCode;
  report.variables["Total1"] = sheet.closingBalance;
  report.variables["Total2"] = sheet.closingStatus;
  addTotalsRow(foot, columns, report.design.bodyWidth(), "TtlLbl");
  addUnderColumn(foot, columns[6], mm(1.3), "Total1", Label{}, Weight::Bold);
  addUnderColumn(foot, columns[7], mm(1.3), "Total2", Label{}, Weight::Bold);
  return foot;
}

}  // namespace

Report ledgerPrint(const session::LoginContext& context, const LedgerSheet& sheet,
                   std::shared_ptr<frame::ReportRows> lines, text::DateTime today) {
  Report report{.title = "Ledger of " + sheet.accountName,
                .author = context.CompanyName,
                .data = std::make_shared<frame::ReportRowsData>(std::move(lines)),
                .printedOn = today};
  const Letterhead letterhead = letterheadOf(context);
  const Twips width = report.design.bodyWidth();
  const std::vector<ColumnPlace> columns = placeColumns(ledgerColumns(context.ccode), width);
  report.design.reportHeader = titledHead(
      report, letterhead,
      {{"LedgerAcc", sheet.accountName}, {"LedgerCode", std::to_string(sheet.account)}, {"LedgerDate", sheet.period}});
  report.design.pageHeader = pageHead(report, sheet, columns);
  report.design.detail = tableLine(columns, width);
  report.design.reportFooter = totals(report, sheet, columns, context.ccode);
  report.design.pageFooter = pageFoot(report, letterhead, width);
  return report;
}

}  // namespace velmo::reports
