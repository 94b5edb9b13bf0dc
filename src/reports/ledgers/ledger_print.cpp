#include "reports/ledgers/ledger_print.h"

#include "reports/parts/selections.h"
#include "reports/parts/table_print.h"

namespace velmo::reports {

using namespace printing;

std::string ledgerEndedOn(const text::DateTime& day) {
  return withDays(ledgerEndedOnWords, {day});
}

std::string ledgerFromTo(const text::DateTime& from, const text::DateTime& to) {
  return withDays(ledgerFromToWords, {from, to});
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

std::vector<UnderColumn> broughtForward(const LedgerSheet& sheet) {
  if (sheet.broughtForward.empty()) return {};
  return {{.column = "desc", .name = "Bal1", .text = sheet.broughtForward},
          {.column = "balance", .name = "Bal2", .text = sheet.openingBalance},
          {.column = "status", .name = "Bal3", .text = sheet.openingStatus}};
}

TotalsRow totals(const LedgerSheet& sheet, const std::vector<Column>& columns, const std::string& currencyCode) {
  TotalsRow row{.labelName = "TtlLbl", .label = "Totals  " + currencyCode, .totals = sumsOf(columns)};
  row.totals.push_back({.column = "balance", .name = "Total1", .text = sheet.closingBalance, .weight = Weight::Bold});
  row.totals.push_back({.column = "status", .name = "Total2", .text = sheet.closingStatus, .weight = Weight::Bold});
  return row;
}

}  // namespace

Report ledgerPrint(const session::LoginContext& context, const LedgerSheet& sheet,
                   std::shared_ptr<frame::ReportRows> lines, text::DateTime today) {
  const std::vector<Column> columns = ledgerColumns(context.ccode);
  return tablePrint(context,
                    {.title = "Ledger of " + sheet.accountName,
                     .head = {{"LedgerAcc", sheet.accountName},
                              {"LedgerCode", std::to_string(sheet.account)},
                              {"LedgerDate", sheet.period}},
                     .columns = columns,
                     .opening = broughtForward(sheet),
                     .totals = {totals(sheet, columns, context.ccode)}},
                    std::make_shared<frame::ReportRowsData>(std::move(lines)), std::move(today));
}

}  // namespace velmo::reports
