#include "reports/ledgers/job_ledgers.h"

#include "frame/report/report_model.h"
#include "frame/report/report_screen.h"
#include "reports/ledgers/ledger_statements.h"
#include "reports/ledgers/posted_lines.h"
#include "text/decimal_sum.h"
#include "text/format.h"

namespace velmo::reports {
namespace {

using forms::ColumnAlignment;
using forms::TableColumn;
using frame::ReportScreen;

constexpr const char* grid = "LedgerGrid";
constexpr const char* jobs =
    "SELECT Jobs.JobID, Jobs.JobNo, (Jobs.JobNo & ' (' & Jobs.JobDesc &')') as Job, Jobs.JobDate, "
    "Jobs.ExpDeliveryDate, Jobs.CustomerName, Jobs.EstimatedCost, Jobs.ValueofWork, Employees.EmpName, Jobs.Status, "
    "Jobs.CompletionDate FROM Jobs LEFT JOIN Employees ON Jobs.InchargeID = Employees.EmpID ORDER BY Jobs.JobNo";

frame::ReportEntryBoxes jobBoxes() {
  const auto amount = [](const char* caption, const char* field) {
    return TableColumn{
        .caption = caption, .field = field, .format = "#,##0.00", .alignment = ColumnAlignment::Right, .width = 16};
  };
  return {.name = "JobTxt",
          .list = "JobList",
          .boxes = {{.caption = "Job No.", .field = "JobNo"},
                    {.caption = "Customer", .field = "CustomerName", .width = 30},
                    amount("Estimated Cost", "EstimatedCost"),
                    {.caption = "Job Date", .field = "JobDate", .format = "dd-mm-yyyy"},
                    {.caption = "In Charge", .field = "EmpName", .width = 30},
                    amount("Value of Work", "ValueofWork"),
                    {.caption = "Status", .field = "Status", .yes = "Closed", .no = "Open"},
                    {.caption = "Expected Delivery", .field = "ExpDeliveryDate", .width = 30},
                    {.caption = "Completion Date", .field = "CompletionDate", .width = 16}}};
}

bool checkJob(ReportScreen& screen, frame::ReportUse) {
  return !store::isNull(screen.filters().bound("JobList")) ||
         screen.refuse("Select Job", "Select a valid job to view ledger.", "JobList");
}

void loadLedger(ReportScreen& screen) {
  const std::int64_t job = store::integerOf(screen.filters().bound("JobList"));
  screen.setRows(grid, jobLedgerStatement(job, screen.workplace().context.FYID));
}

void showBalance(ReportScreen& screen) {
  const frame::ReportModel& lines = screen.model(grid);
  screen.setFigure("Balance",
                   text::formatNumber(text::sumOf({lines.sum("Debit"), -lines.sum("Credit")}), frame::figureFormat));
}

frame::ReportType ledgersType(const session::LoginContext& context) {
  return {.screen = "JobLedgers",
          .caption = "Jobs Ledgers",
          .filters = {{frame::ReportList{.name = "JobList",
                                         .caption = "&Job",
                                         .shown = "Job",
                                         .bound = "JobID",
                                         .statement = [](const store::Value&) { return std::string(jobs); },
                                         .width = 60}},
                      {jobBoxes()}},
          .grids = {postedLinesGrid(grid)},
          .totalsLabel = "Totals " + context.ccode,
          .totals = {{.name = "TotalDr", .caption = "Debit", .sum = "Debit"},
                     {.name = "TotalCr", .caption = "Credit", .sum = "Credit"},
                     {"Balance", "Balance"}},
          .view = {"ViewBttn", "&View Ledger", "Shows what documents for the job put into the ledgers"},
          .check = checkJob,
          .load = loadLedger,
          .figures = showBalance};
}

}  // namespace

QWidget* makeJobLedgers(session::Workplace& workplace, QWidget* parent) {
  return frame::makeReportWindow(ledgersType(workplace.context), workplace, parent);
}

}  // namespace velmo::reports
