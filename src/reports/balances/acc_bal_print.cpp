#include "reports/balances/acc_bal_print.h"

#include <cmath>

#include "reports/parts/table_print.h"
#include "text/format.h"

namespace velmo::reports {

using namespace printing;

namespace {

constexpr Twips CodeWidth = mm(22);
constexpr Twips AmountWidth = mm(30);
constexpr Twips SideWidth = mm(16);
constexpr Twips AboveTotals = mm(1);

enum class Layout { SixColumns, TwoColumns };

Column codeColumn(std::string heading, std::string field) {
  return {.heading = std::move(heading), .dataField = std::move(field), .width = CodeWidth};
}

Column amount(std::string heading, std::string field, std::string headingName = {}) {
  return {.heading = std::move(heading),
          .dataField = std::move(field),
          .width = AmountWidth,
          .align = Align::Right,
          .format = frame::groupedFigureFormat,
          .headingName = std::move(headingName)};
}

Column side(std::string field) {
  return {.dataField = std::move(field), .width = SideWidth};
}

std::vector<Column> columnsOf(Layout layout, const std::string& currency, const std::string& nameHeading) {
  std::vector<Column> columns = {codeColumn("Acc Code", "acccode"), {.heading = nameHeading, .dataField = "accname"}};
  const Column debits = amount("Debit " + currency, "debits", "Lbl1");
  const Column credits = amount("Credit " + currency, "credits", "Lbl2");
  if (layout == Layout::TwoColumns) {
    columns.insert(columns.end(), {debits, credits});
  } else {
    columns.insert(columns.end(), {amount("Opening Balance", "obalance"), side("ostatus"), debits, credits,
                                   amount("Closing Balance", "cbalance"), side("cstatus")});
  }
  return columns;
}

std::string figure(double value) {
  return text::formatNumber(value, frame::groupedFigureFormat);
}

// The amount under its column, the side under the next.
void addBalance(TotalsRow& row, const std::string& name, double balance, const char* amountField,
                const char* sideField) {
  row.totals.push_back({.column = amountField, .name = name, .text = figure(std::fabs(balance))});
  row.totals.push_back({.column = sideField, .text = frame::sideOf(balance)});
}

std::vector<TotalsRow> sixTotals(const std::string& label, const BalancesSheet& sheet) {
  TotalsRow all{.labelName = "TtlLbl", .label = label, .above = AboveTotals};
  addBalance(all, "OBLbl", sheet.opening, "obalance", "ostatus");
  all.totals.push_back({.column = "debits", .name = "DebitSum", .sumOf = "debits"});
  all.totals.push_back({.column = "credits", .name = "CreditSum", .sumOf = "credits"});
  addBalance(all, "CBLbl", sheet.closing, "cbalance", "cstatus");
  if (!sheet.settled) return {all};
  TotalsRow settled{.labelName = "SettledLbl", .label = settledCaption, .ground = Ground::Plain, .above = AboveTotals};
  addBalance(settled, "SettledOBLbl", sheet.settled->opening, "obalance", "ostatus");
  settled.totals.push_back({.column = "debits", .name = "SettledDebits", .text = figure(sheet.settled->debits)});
  settled.totals.push_back({.column = "credits", .name = "SettledCredits", .text = figure(sheet.settled->credits)});
  return {all, settled};
}

// The sums are over fields that are 0, and not null, on the other side.
std::vector<UnderColumn> twoSums(const std::string& level) {
  return {{.column = "debits", .name = "DebitSum" + level, .sumOf = "debits2"},
          {.column = "credits", .name = "CreditSum" + level, .sumOf = "credits2"}};
}

// A type or a sub type with its balance at the right end.
TableLevel levelOf(const std::string& member, const std::string& name, const std::string& code,
                   const std::string& words, Layout layout) {
  TableLevel level{.dataMember = member,
                   .headingName = name,
                   .heading = {codeColumn({}, code), {.dataField = words}, amount({}, "tbalance"), side("tstatus")}};
  if (layout == Layout::TwoColumns)
    level.totals = {{.labelField = words,
                     .labelLeft = CodeWidth,
                     .totals = twoSums(member),
                     .ground = Ground::Plain,
                     .above = AboveTotals}};
  return level;
}

TablePrint balancesTable(const session::LoginContext& context, const BalancesSheet& sheet, Layout layout) {
  const std::string label = "Totals " + context.ccode;
  return {.head = {{"ReportLabel", sheet.reportLabel}, {"ReportDate", sheet.dateLine}},
          .paper = layout == Layout::SixColumns ? A4Landscape : A4,
          .columns = columnsOf(layout, context.ccode, sheet.nameHeading),
          .totals = layout == Layout::SixColumns
                        ? sixTotals(label, sheet)
                        : std::vector<TotalsRow>{
                              {.labelName = "TtlLbl", .label = label, .totals = twoSums({}), .above = AboveTotals}}};
}

Report flatReport(const session::LoginContext& context, const BalancesSheet& sheet, BalancesData rows, Layout layout) {
  return tablePrint(context, balancesTable(context, sheet, layout), std::move(rows), sheet.today);
}

Report groupedReport(const session::LoginContext& context, const BalancesSheet& sheet, BalancesData hierarchy,
                     Layout layout) {
  TablePrint table = balancesTable(context, sheet, layout);
  table.levels = {levelOf("Level1", "TypeHeading", "typeid", "type", layout),
                  levelOf("level2", "SubTypeHeading", "level2id", "l2accname", layout)};
  table.detailMember = "level3";
  return tablePrint(context, table, std::move(hierarchy), sheet.today);
}

}  // namespace

Report accBalRpt(const session::LoginContext& context, const BalancesSheet& sheet, BalancesData hierarchy) {
  return groupedReport(context, sheet, std::move(hierarchy), Layout::SixColumns);
}

Report accBalRpt2(const session::LoginContext& context, const BalancesSheet& sheet, BalancesData hierarchy) {
  return groupedReport(context, sheet, std::move(hierarchy), Layout::TwoColumns);
}

Report accBalRptRange(const session::LoginContext& context, const BalancesSheet& sheet, BalancesData rows) {
  return flatReport(context, sheet, std::move(rows), Layout::SixColumns);
}

Report accBalRptRange2(const session::LoginContext& context, const BalancesSheet& sheet, BalancesData rows) {
  return flatReport(context, sheet, std::move(rows), Layout::TwoColumns);
}

}  // namespace velmo::reports
