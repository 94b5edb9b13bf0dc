#include "masters/people/jobs.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>

#include "frame/master/master_dialog.h"
#include "masters/people/job_card_print.h"
#include "printing/preview_window.h"
#include "schema/account_types.h"

namespace velmo::masters {
namespace {

using forms::ColumnAlignment;
using frame::BoxKind;
using frame::MasterEntry;
using frame::MasterPanel;

constexpr const char* peopleInCharge = "Select Empid, EmpName from Employees where status=no order by empname";

std::vector<forms::TableColumn> jobColumns() {
  return {{.caption = "Job No.", .field = "JobNo", .alignment = ColumnAlignment::Right, .width = 9},
          {.caption = "Date", .field = "JobDate", .format = "dd-mm-yyyy", .width = 11},
          {.caption = "Description", .field = "JobDesc", .width = 34},
          {.caption = "Customer", .field = "CustomerName", .width = 20},
          {.caption = "Expected Delivery", .field = "ExpDeliveryDate", .width = 17},
          {.caption = "Value of Work",
           .field = "ValueofWork",
           .format = "#,##0.00;(#,##0.00)",
           .alignment = ColumnAlignment::Right,
           .width = 14},
          {.caption = "Status", .field = "Status", .width = 8, .yes = "Closed", .no = "Open"}};
}

std::vector<frame::MasterField> jobFields() {
  return {{.name = "JobID", .caption = "No.", .column = "JobID", .use = frame::BoxUse::ShownOnly},
          {.name = "DocNo", .caption = "Job no.", .column = "JobNo", .kind = BoxKind::Digits},
          {.name = "TrDate", .caption = "Job date", .column = "JobDate", .kind = BoxKind::Day},
          {.name = "Desc", .caption = "Description", .column = "JobDesc", .span = 2},
          {.name = "CompleteOpt", .caption = "Job closed", .column = "Status", .kind = BoxKind::Check},
          {.name = "PartyCodeTxt",
           .caption = "Customer",
           .column = "CustomerCode",
           .kind = BoxKind::Account,
           .accounts = schema::account_type::parties()},
          {.name = "PartyNameTxt", .caption = "Name", .column = "CustomerName", .span = 2},
          {.name = "PartyAddress", .caption = "Address", .column = "Address", .span = 3},
          {.name = "PartyTel", .caption = "Telephone", .column = "Telephone"},
          {.name = "PartyContact", .caption = "Contact", .column = "Contact"},
          {.name = "EmpList",
           .caption = "In charge",
           .column = "InchargeID",
           .kind = BoxKind::Choice,
           .initial = "1",
           .choices = {.statement = peopleInCharge, .shownColumn = "EmpName", .boundColumn = "Empid"}},
          {.name = "OrderNo", .caption = "Order ref. and date", .column = "OrderRefDate"},
          {.name = "DelDate", .caption = "Expected delivery", .column = "ExpDeliveryDate"},
          {.name = "EstCost", .caption = "Estimated cost", .column = "EstimatedCost", .kind = BoxKind::Amount},
          {.name = "DelRef", .caption = "Delivery ref. and date", .column = "DeliveryRefDate"},
          {.name = "CompDate", .caption = "Completion date", .column = "CompletionDate"},
          {.name = "JobValue", .caption = "Value of work", .column = "ValueofWork", .kind = BoxKind::Amount},
          {.name = "Remarks", .caption = "Remarks", .column = "Remarks", .span = 3}};
}

std::optional<std::string> inChargeUnknown(const MasterEntry& entry) {
  if (entry.text("InchargeID").empty() || !store::isNull(entry.value("InchargeID"))) return std::nullopt;
  return "Select a correct employee or leave it blank if you do not want to save an employee reference.";
}

// A customer need not have an account; the code of one must be a party's.
std::optional<std::string> noParty(const MasterEntry& entry) {
  if (entry.text("CustomerCode").empty()) return std::nullopt;
  const store::Value code = entry.value("CustomerCode");
  const auto* number = std::get_if<std::int64_t>(&code);
  if (number && entry.finds("SELECT acccode from acclevel3 where (" + schema::account_type::parties() +
                            ") and acccode = " + std::to_string(*number)))
    return std::nullopt;
  return "Select a correct customer.";
}

// The account's name and address are the customer's; without an account there are none.
void fillCustomer(MasterPanel& panel, const std::string& column) {
  if (column != "CustomerCode") return;
  const frame::Account account = panel.box("CustomerCode").account().value_or(frame::Account());
  panel.setText("CustomerName", account.name);
  panel.setText("Address", account.address);
  panel.setText("Telephone", account.phone);
  panel.setText("Contact", account.contact);
}

// Who has left is offered only where he is in charge already, so that an old job keeps him.
void offerInCharge(MasterPanel& panel) {
  const std::string before = panel.key().empty() ? std::string() : panel.rows().text("InchargeID");
  std::string statement = peopleInCharge;
  if (!before.empty()) {
    const store::Recordset employee(panel.workplace().context.KORDconn,
                                    "select status from Employees where empid = " + before, store::LockType::ReadOnly);
    if (!employee.eof() && employee.yes("status"))
      statement = "Select Empid, EmpName from Employees where status=no or empid = " + before + " order by empname";
  }
  panel.box("InchargeID").offer(statement);
  if (!before.empty()) panel.box("InchargeID").show(panel.rows().value("InchargeID"));
}

void showJobCard(MasterPanel& panel) {
  session::Workplace& workplace = panel.workplace();
  workplace.attempt("Cannot Print", [&] {
    const store::Recordset job(workplace.context.KORDconn, "Select * from Jobs where jobid=" + panel.key(),
                               store::LockType::ReadOnly);
    printing::showPreview(&panel, jobCardPrint(workplace.context, job, workplace.clock.today()), workplace.files);
  });
}

// A job can be printed as it was saved.
void addJobCard(MasterPanel& panel) {
  auto* command = new QPushButton(MasterPanel::tr("Job Card"));
  command->setObjectName("JobCard");
  command->setToolTip(MasterPanel::tr("Shows the job card as it will be printed (Ctrl+P)"));
  command->setAutoDefault(false);
  command->setShortcut(QKeySequence::Print);
  panel.commands().addWidget(command);
  const auto refresh = [&panel, command] { command->setEnabled(!panel.isBusy() && !panel.key().empty()); };
  QObject::connect(&panel, &MasterPanel::currentChanged, command, refresh);
  QObject::connect(&panel, &MasterPanel::busyChanged, command, refresh);
  QObject::connect(command, &QPushButton::clicked, &panel, [&panel] { showJobCard(panel); });
}

frame::MasterLevel jobLevel() {
  return {.frame = "ListFrame",
          .list = "Grid",
          .suffix = "",
          .heading = "Jobs",
          .key = "JobID",
          .statement = [](const std::string&) { return std::string("select * from jobs order by JobNo"); },
          .columns = jobColumns(),
          .fields = jobFields(),
          .written = {{"JobNo"},
                      {"JobDate"},
                      {"JobDesc"},
                      {"OrderRefDate"},
                      {"ExpDeliveryDate"},
                      {"CustomerCode"},
                      {"CustomerName"},
                      {"Address"},
                      {"Telephone"},
                      {"Contact"},
                      {"EstimatedCost"},
                      {"ValueofWork"},
                      {"InchargeID"},
                      {"CompletionDate"},
                      {"Status"},
                      {"DeliveryRefDate"},
                      {"Remarks"}},
          .tests = {{frame::notNumeric("JobNo", "Job No. must be a numeric figure."), "JobNo"},
                    {inChargeUnknown, "InchargeID"},
                    {noParty, "CustomerCode"}},
          .firstColumn = "JobNo",
          .formColumns = 3,
          .changed = fillCustomer,
          .furnish = addJobCard,
          .shown = offerInCharge};
}

}  // namespace

QWidget* makeJobs(session::Workplace& workplace, QWidget* parent) {
  std::vector<frame::MasterLevel> levels;
  levels.push_back(jobLevel());
  return new frame::MasterDialog({.screen = "Jobs", .title = "Jobs", .levels = std::move(levels)}, workplace, parent);
}

}  // namespace velmo::masters
