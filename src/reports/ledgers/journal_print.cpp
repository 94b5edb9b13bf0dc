#include "reports/ledgers/journal_print.h"

#include "reports/parts/report_pieces.h"

namespace velmo::reports {

using namespace printing;

namespace {

std::vector<Column> lineColumns(const std::string& currencyCode) {
  return {dateColumn(),
          {.heading = "Tran. No.", .dataField = "tranrefshort", .width = mm(18)},
          {.heading = " Acc Code", .dataField = "acccode", .width = mm(18)},
          {.heading = " Account Name", .dataField = "accname", .width = mm(36)},
          {.heading = " Description", .dataField = "desc"},
          amountColumn("Debit " + currencyCode, "debit", "Lbl1", "DebitSum"),
          amountColumn("Credit " + currencyCode, "credit", "Lbl2", "CreditSum")};
}

}  // namespace

Report journalPrint(const session::LoginContext& context, const frame::ReportPeriod& period,
                    std::shared_ptr<frame::ReportRows> lines, text::DateTime today) {
  Report report{.title = "Journal Report",
                .author = context.CompanyName,
                .data = std::make_shared<frame::ReportRowsData>(std::move(lines)),
                .printedOn = today};
  const Letterhead letterhead = letterheadOf(context);
  const Twips width = report.design.bodyWidth();
  const std::vector<ColumnPlace> columns = placeColumns(lineColumns(context.ccode), width);
  report.design.reportHeader = titledHead(report, letterhead,
                                          {{"ReportLabel", "Journal Report"},
                                           {"LedgerDate", "For The Period From  " + frame::dayInWords(period.from) +
                                                              "  To  " + frame::dayInWords(period.to)}});
  report.design.pageHeader = Section{.name = "Section2"};
  addColumnHeadings(*report.design.pageHeader, columns, width);
  report.design.detail = tableLine(columns, width);
  report.design.reportFooter = Section{.name = "Section5"};
  report.variables["TtlLbl"] = "Totals  " + context.ccode;
  addTotalsRow(*report.design.reportFooter, columns, width, "TtlLbl");
  report.design.pageFooter = pageFoot(report, letterhead, width);
  return report;
}

}  // namespace velmo::reports
