#include "reports/ledgers/journal_print.h"

#include "reports/parts/table_print.h"

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

Report journalPrint(const session::LoginContext& context, const std::string& dateLine,
                    std::shared_ptr<frame::ReportRows> lines, text::DateTime today) {
  const std::vector<Column> columns = lineColumns(context.ccode);
  return tablePrint(
      context,
      {.head = {{"ReportLabel", "Journal Report"}, {"LedgerDate", dateLine}},
       .columns = columns,
       .totals = {{.labelName = "TtlLbl", .label = "Totals  " + context.ccode, .totals = sumsOf(columns)}}},
      std::make_shared<frame::ReportRowsData>(std::move(lines)), std::move(today));
}

}  // namespace velmo::reports
