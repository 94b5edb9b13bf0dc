#include "frame/document/references_card.h"

#include <QGridLayout>
#include <QLineEdit>
#include <vector>

#include "forms/caption.h"
#include "forms/drop_combo.h"
#include "forms/look.h"
#include "forms/stop_listening.h"
#include "frame/posting/day_text.h"

namespace velmo::frame {

namespace {

constexpr int narrowestBox = 76;
constexpr int boxPadding = 24;  // of its frame, at both sides together

// A document without the list has no choice of it.
void showEntry(forms::DropCombo* list, std::int64_t id) {
  if (!list) return;
  list->setBoundValue(id);
  list->lineEdit()->setCursorPosition(0);
}

ListChoice choiceOf(const forms::DropCombo* list) {
  if (!list) return {};
  return {.text = list->currentText().toStdString(),
          .id = store::integerOf(list->boundValue()),
          .matches = list->matchesEntry()};
}

}  // namespace

ReferencesCard::ReferencesCard(const DocumentType& type, OwnFields& fields, session::Workplace& workplace,
                               QWidget* parent)
    : QFrame(parent), fields_(fields), workplace_(workplace) {
  forms::makeCard(*this);
  auto* grid = new QGridLayout(this);
  forms::setGrid(*grid, forms::spacing::Normal);
  grid->setVerticalSpacing(forms::spacing::Tight);
  std::vector<const DocumentField*> shown;
  for (const DocumentField& field : type.fields)
    if (field.kind != FieldKind::Unseen && field.place != FieldPlace::Head) shown.push_back(&field);
  const auto isBeside = [&](std::size_t at) { return at < shown.size() && shown[at]->place == FieldPlace::Beside; };
  const int widthOfDate = fontMetrics().horizontalAdvance(QStringLiteral("00-00-0000"));
  int row = -1;
  for (std::size_t i = 0; i < shown.size(); ++i) {
    QWidget* control = fields.makeControl(*shown[i]);
    const int column = isBeside(i) ? 2 : 0;
    if (column == 0) ++row;
    grid->addWidget(forms::captionFor(*control, forms::shownText(shown[i]->label)), row, column);
    control->setMinimumWidth(isBeside(i) ? widthOfDate + boxPadding : narrowestBox);
    grid->addWidget(control, row, column + 1, 1, isBeside(i) || isBeside(i + 1) ? 1 : 3);
  }
  const auto addList = [&](const char* name, const QString& caption) {
    forms::DropCombo* list = makeList(name);
    grid->addWidget(forms::captionFor(*list, caption), ++row, 0);
    grid->addWidget(list, row, 1, 1, 3);
    return list;
  };
  if (type.locationChoice == LocationChoice::FromAndTo) {
    locations_ = addList("LocationList1", tr("Transfer From Location"));
    locationsTo_ = addList("LocationList2", tr("Transfer To Location"));
  }
  if (type.jobChoice == JobChoice::FromAndTo) {
    jobs_ = addList("JobList1", tr("Transfer From Job No."));
    jobsTo_ = addList("JobList2", tr("Transfer To Job No."));
  }
  if (type.jobChoice == JobChoice::Shown) jobs_ = addList("JobList", tr("Job No && Description"));
  if (type.employeeChoice == EmployeeChoice::Shown) employees_ = addList("EmpList", tr("Employee Reference"));
  if (type.locationChoice == LocationChoice::Shown) locations_ = addList("LocationList", tr("Inventory Location"));
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(3, 1);
  grid->setRowStretch(row + 1, 1);
  if (row < 0) hide();

  for (const DateLookup& lookup : type.dateLookups)
    if (auto* from = findChild<QLineEdit*>(forms::shownText(lookup.from)))
      connect(from, &QLineEdit::editingFinished, this, [this, &lookup] { lookUpDate(lookup); });
}

ReferencesCard::~ReferencesCard() {
  forms::stopListening(*this);
}

forms::DropCombo* ReferencesCard::makeList(const char* name) {
  auto* list = new forms::DropCombo;
  list->setObjectName(name);
  list->setMinimumContentsLength(6);
  return list;
}

void ReferencesCard::loadLists() {
  store::Connection& connection = workplace_.context.KORDconn;
  const auto rows = [&](const char* statement) {
    return store::Recordset(connection, statement, store::LockType::ReadOnly);
  };
  for (forms::DropCombo* jobs : {jobs_, jobsTo_})
    if (jobs)
      jobs->setSource(
          rows("select Jobid, (JobNo & ' (' & JobDesc &')') as Job from jobs where status=no order by jobno"), "Job",
          "Jobid");
  if (employees_)
    employees_->setSource(rows("Select Empid, EmpName from Employees where status=no order by empname"), "EmpName",
                          "Empid");
  for (forms::DropCombo* locations : {locations_, locationsTo_})
    if (locations)
      locations->setSource(rows("Select Locationid, LocationName from StockLocation order by LocationName"),
                           "LocationName", "Locationid");
}

void ReferencesCard::setJobs(std::int64_t id, std::int64_t to) {
  showEntry(jobs_, id);
  showEntry(jobsTo_, to);
}
void ReferencesCard::setEmployee(std::int64_t id) {
  showEntry(employees_, id);
}
void ReferencesCard::setLocations(std::int64_t id, std::int64_t to) {
  showEntry(locations_, id);
  showEntry(locationsTo_, to);
}
ListChoice ReferencesCard::job() const {
  return choiceOf(jobs_);
}
ListChoice ReferencesCard::jobTo() const {
  return choiceOf(jobsTo_);
}
ListChoice ReferencesCard::employee() const {
  return choiceOf(employees_);
}
ListChoice ReferencesCard::location() const {
  return choiceOf(locations_);
}
ListChoice ReferencesCard::locationTo() const {
  return choiceOf(locationsTo_);
}

void ReferencesCard::lookUpDate(const DateLookup& lookup) {
  const std::string statement = lookup.statement(fields_.text(lookup.from), workplace_.context.FYID);
  if (statement.empty()) return;
  workplace_.attempt("Cannot Find", [&] {
    const store::Recordset found(workplace_.context.KORDconn, statement, store::LockType::ReadOnly);
    if (!found.isEmpty()) fields_.setText(lookup.to, dayText(found.date("trandate")));
  });
}

}  // namespace velmo::frame
