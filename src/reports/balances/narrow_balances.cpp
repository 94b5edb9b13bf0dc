#include "reports/balances/narrow_balances.h"

#include "frame/report/report_model.h"
#include "reports/balances/balances_screen.h"
#include "reports/parts/account_filters.h"
#include "schema/account_types.h"

namespace velmo::reports {
namespace {

using frame::ReportFilters;
using frame::ReportList;
using frame::ReportOption;
using frame::ReportScreen;

// A check box that demands a choice in its list, and what is said when there is none.
struct Selection {
  const char* box;
  const char* caption;
  ReportList list;
  const char* title;
  const char* text;
};

// What tells one screen from the others.
struct Kind {
  const char* screen;
  const char* caption;
  const char* reportLabel;
  const char* nameHeading;
  std::vector<Selection> selections = {};
  std::string (*statement)(const BalancePeriod& period, const ReportFilters& filters);
};

ReportList listOf(const char* name, const char* shown, const char* bound, const char* statement) {
  return {.name = name, .shown = shown, .bound = bound, .statement = [statement](const store::Value&) {
            return std::string(statement);
          }};
}

std::vector<Selection> customerSelections() {
  const ReportList subRegions{.name = "RegionList2",
                              .shown = "Region2Name",
                              .bound = "Region2ID",
                              .statement =
                                  [](const store::Value& region) {
                                    return "SELECT * from regions2 where region1id=" +
                                           std::to_string(store::integerOf(region)) + " order by region2name";
                                  },
                              .parent = "RegionList1"};
  return {{"SelectionOpt_0", "Customer &Type", subTypesOf(schema::account_type::Customers, "SubList"),
           "Invalid Customer Type", "Select a valid customer type to view report"},
          {"SelectionOpt_1", "E&mployee",
           listOf("EmployeeList", "EmpName", "Empid", "Select Empid, EmpName from Employees order by empname"),
           "Invalid Employee", "Select a valid employee to print report"},
          {"SelectionOpt_4", "&Business Sector",
           listOf("SectorList", "SectorName", "SectorID", "Select * from bizsectors order by sectorname"),
           "Invalid Sector", "Select a valid sector to view report"},
          {"SelectionOpt_5", "De&partment",
           listOf("EmpDeptt", "department", "department",
                  "SELECT department From employees GROUP BY department Having ((department) Is Not Null) ORDER BY "
                  "department"),
           "Invalid Department", "Select a valid department to view report"},
          {"SelectionOpt_6", "Main &Region",
           listOf("RegionList1", "Region1Name", "Region1ID", "Select * from regions1 order by region1name"),
           "Invalid Region", "Select a valid region to view report"},
          {"SelectionOpt_7", "&Sub Region", subRegions, "Invalid Region", "Select a valid region to view report"}};
}

std::optional<std::int64_t> chosenId(const ReportFilters& filters, const char* box, const char* list) {
  if (!filters.chosen(box)) return std::nullopt;
  return store::integerOf(filters.bound(list));
}

std::string customersStatement(const BalancePeriod& period, const ReportFilters& filters) {
  CustomerFilters wanted{.subType = chosenId(filters, "SelectionOpt_0", "SubList"),
                         .employee = chosenId(filters, "SelectionOpt_1", "EmployeeList"),
                         .sector = chosenId(filters, "SelectionOpt_4", "SectorList"),
                         .mainRegion = chosenId(filters, "SelectionOpt_6", "RegionList1"),
                         .subRegion = chosenId(filters, "SelectionOpt_7", "RegionList2")};
  if (filters.chosen("SelectionOpt_5")) wanted.department = store::textOf(filters.bound("EmpDeptt"));
  return customerBalances(period, wanted);
}

std::string vendorsStatement(const BalancePeriod& period, const ReportFilters& filters) {
  return vendorBalances(period, chosenId(filters, "SelectionOpt_0", "SubList"));
}

std::string cashStatement(const BalancePeriod& period, const ReportFilters&) {
  return cashBalances(period);
}

// Two selections in a row, and the period below them.
std::vector<frame::ReportFilterRow> filterRows(const std::vector<Selection>& selections) {
  std::vector<frame::ReportFilterRow> rows;
  for (std::size_t i = 0; i < selections.size(); ++i) {
    const Selection& selection = selections[i];
    if (i % 2 == 0) rows.emplace_back();
    rows.back().emplace_back(
        ReportOption{.name = selection.box, .caption = selection.caption, .inputs = {selection.list.name}});
    rows.back().emplace_back(selection.list);
  }
  rows.push_back({balancesPeriodBoxes()});
  return rows;
}

bool checkSelections(ReportScreen& screen, const std::vector<Selection>& selections) {
  for (const Selection& selection : selections)
    if (screen.filters().chosen(selection.box) && store::isNull(screen.filters().bound(selection.list.name)))
      return screen.refuse(selection.title, selection.text, selection.list.name.c_str());
  return true;
}

void load(ReportScreen& screen, const Kind& kind) {
  screen.setRows(sixColumnGrid,
                 std::make_shared<frame::RecordsetRows>(store::Recordset(
                     screen.workplace().context.KORDconn, kind.statement(balancePeriod(screen), screen.filters()),
                     store::LockType::ReadOnly)));
}

printing::Report printOut(ReportScreen& screen, const Kind& kind) {
  return accBalRptRange(screen.workplace().context, balancesSheet(screen, kind.reportLabel, kind.nameHeading),
                        std::make_shared<frame::ReportRowsData>(screen.model(sixColumnGrid).rows()));
}

frame::ReportType typeOf(const Kind& kind, const session::LoginContext& context) {
  return {.screen = kind.screen,
          .caption = kind.caption,
          .filters = filterRows(kind.selections),
          .grids = {sixColumns(kind.nameHeading)},
          .totalsLabel = "Totals " + context.ccode,
          .view = displayCommand(),
          .print = printCommand(),
          .sheet = exportCommand(),
          .runs = frame::ReportRuns::OneByOne,
          .check = [selections = kind.selections](ReportScreen& screen,
                                                  frame::ReportUse) { return checkSelections(screen, selections); },
          .load = [kind](ReportScreen& screen) { load(screen, kind); },
          .figures = showSixTotals,
          .printOut = [kind](ReportScreen& screen) { return printOut(screen, kind); },
          .sheetOf = [label = kind.reportLabel](ReportScreen& screen) { return sixColumnSheet(screen, label); },
          .drillDown = openLedger};
}

}  // namespace

QWidget* makeCustomerBalances(session::Workplace& workplace, QWidget* parent) {
  const Kind kind{.screen = "CustomerBalances",
                  .caption = "Customers' Balances",
                  .reportLabel = "Customers' Balances",
                  .nameHeading = "Customer Name",
                  .selections = customerSelections(),
                  .statement = customersStatement};
  return frame::makeReportWindow(typeOf(kind, workplace.context), workplace, parent);
}

QWidget* makeVendorBalances(session::Workplace& workplace, QWidget* parent) {
  const Kind kind{
      .screen = "VendorBalances",
      .caption = "Vendors' Balances",
      .reportLabel = "Vendors' Balances",
      .nameHeading = "Vendor Name",
      .selections = {{"SelectionOpt_0", "Vendor &Type", subTypesOf(schema::account_type::Vendors, "SubList"),
                      "Invalid Vendor Type", "Select a valid vendor type to view report"}},
      .statement = vendorsStatement};
  return frame::makeReportWindow(typeOf(kind, workplace.context), workplace, parent);
}

QWidget* makeCashBalances(session::Workplace& workplace, QWidget* parent) {
  const Kind kind{.screen = "CashBalances",
                  .caption = "Cash & Bank Balances",
                  .reportLabel = "Cash & Banks Balances",
                  .nameHeading = "Account Name",
                  .statement = cashStatement};
  return frame::makeReportWindow(typeOf(kind, workplace.context), workplace, parent);
}

}  // namespace velmo::reports
