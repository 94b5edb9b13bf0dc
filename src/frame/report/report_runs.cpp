#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QLocale>

#include "forms/table_view.h"
#include "forms/wait_cursor.h"
#include "forms/work_progress.h"
#include "frame/report/report_drill_down.h"
#include "frame/report/report_foot.h"
#include "frame/report/report_model.h"
#include "frame/report/report_screen.h"
#include "frame/report/report_sheet.h"
#include "printing/preview_window.h"

namespace velmo::frame {
namespace {

constexpr int rowsAtOnce = 1024;
constexpr int idleStep = 12;    // milliseconds of reading before the screen may repaint
constexpr int firstSight = 16;  // and before it is shown at all

template <typename Action>
class Finally {
 public:
  explicit Finally(Action action) : action_(std::move(action)) {}
  ~Finally() { action_(); }
  Finally(const Finally&) = delete;
  Finally& operator=(const Finally&) = delete;

 private:
  Action action_;
};

}  // namespace

void ReportScreen::attempt(const char* title, const std::function<void()>& action) {
  session::attempt(workplace_.prompts, title, action, [this] {
    idle_.stop();
    basis_.clear();
    setRunning(false);
    foot_->showMessage({});
  });
}

void ReportScreen::attemptAside(const char* title, const std::function<void()>& action) {
  try {
    action();
  } catch (const store::StoreError& failure) {
    workplace_.prompts.tell(title, failure.what());
  }
}

bool ReportScreen::load(ReportUse use) {
  if (type_.check && !type_.check(*this, use)) return false;
  if (!type_.load) return true;
  const std::string basis = this->basis();
  if (use != ReportUse::View && basis == basis_) return true;  // what is shown is what is there
  basis_.clear();
  idle_.stop();
  setRunning(true);
  for (const auto& [name, box] : foot_->boxes()) setFigure(name, {});
  const forms::WaitCursor wait;
  type_.load(*this);
  basis_ = basis;
  QElapsedTimer clock;
  clock.start();
  while (!isComplete() && !pauses() && clock.elapsed() < firstSight) readOn();
  if (isComplete()) completed();
  return true;
}

void ReportScreen::breathe() {
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

std::string ReportScreen::basis() const {
  return std::to_string(workplace_.context.KORDconn.generation()) + ' ' +
         store::textOf(store::Value(workplace_.clock.today())) + ' ' + filters_->state();
}

bool ReportScreen::isComplete() const {
  return std::ranges::all_of(byName_, [](const auto& entry) { return entry.second.model->isComplete(); });
}

bool ReportScreen::pauses() const {
  return std::ranges::any_of(byName_, [](const auto& entry) { return entry.second.model->pauses(); });
}

void ReportScreen::readOn() {
  QElapsedTimer clock;
  clock.start();
  for (auto& [name, table] : byName_)
    while (!table.model->isComplete() && clock.elapsed() < idleStep) {
      table.model->readOn(rowsAtOnce);
      if (table.model->pauses()) break;
    }
  if (!idle_.isActive()) return;
  if (isComplete())
    completed();
  else
    foot_->showMessage(tr("Reading ... %1 rows").arg(QLocale(QLocale::English).toString(qlonglong{model().ready()})));
}

void ReportScreen::showSums() {
  const auto show = [this](const std::vector<ReportFigure>& figures, const ReportModel& rows) {
    for (const ReportFigure& figure : figures)
      if (!figure.sum.empty()) setFigure(figure.name, sumText(figure, rows));
  };
  if (!type_.grids.empty()) show(type_.totals, model(type_.grids.front().name));
  for (const ReportGrid& grid : type_.grids) show(grid.totals, model(grid.name));
}

void ReportScreen::completed() {
  idle_.stop();
  showSums();
  if (type_.figures) type_.figures(*this);
  if (tables_) {
    showCount();
    if (model().rowCount() > 0 && !grid().currentIndex().isValid()) grid().selectRow(0);
  }
  setRunning(false);
}

void ReportScreen::showCount() {
  const qlonglong rows = model().ready();
  foot_->showMessage(rows == 1 ? tr("1 row") : tr("%1 rows").arg(QLocale(QLocale::English).toString(rows)));
}

// A button that is disabled loses the keyboard to its neighbour, and has it again afterwards if the user left it there.
void ReportScreen::setRunning(bool running) {
  if (type_.runs == ReportRuns::AtAnyTime) return;
  QWidget* focused = window()->focusWidget();
  if (running) hadFocus_ = std::ranges::find(commands_, focused) == commands_.end() ? nullptr : focused;
  for (QAbstractButton* command : commands_) command->setEnabled(!running);
  if (running)
    hasFocusMeanwhile_ = window()->focusWidget();
  else if (hadFocus_ && hasFocusMeanwhile_ == focused)
    std::exchange(hadFocus_, nullptr)->setFocus(Qt::OtherFocusReason);
}

// Enter in a date or a text: as the first command's button.
void ReportScreen::confirm() {
  if (!commands_.empty()) commands_.front()->click();
}

void ReportScreen::view() {
  if (type_.view.name.empty()) return print();
  attempt("Cannot Show", [this] {
    if (!load(ReportUse::View)) return;
    if (!isComplete()) idle_.start();
    if (tables_ && model().rowCount() > 0) grid().selectRow(0);
  });
}

bool ReportScreen::finishReading() {
  if (isComplete()) return true;
  idle_.stop();
  {
    forms::WorkProgress progress(this, tr("Reading the rows ..."));
    while (!isComplete())
      for (auto& [name, table] : byName_) {
        table.model->readOn(rowsAtOnce);
        if (progress.report(table.model->ready())) continue;
        idle_.start();
        return false;
      }
  }
  completed();
  return true;
}

void ReportScreen::print() {
  if (!type_.printOut) return;
  attempt("Cannot Print", [this] {
    if (!load(ReportUse::Print) || !finishReading()) return;
    std::optional<printing::Report> report = type_.printOut(*this);
    if (report) printing::showPreview(this, std::move(*report), workplace_.files);
  });
}

void ReportScreen::exportSheet() {
  if (!tables_) return;
  attempt("Spreadsheet Not Saved", [this] {
    if (!load(ReportUse::Export) || !finishReading()) return;
    wait_->show();
    const Finally hide([this] { wait_->hide(); });
    saveReportSheet(*this);
  });
}

void ReportScreen::drillDown(std::int64_t row) {
  attemptAside("Cannot Open", [&] {
    if (type_.drillDown) return type_.drillDown(*this, row);
    openDocumentOf(model(), row);
  });
}

void ReportScreen::openDocumentOf(const ReportModel& rows, std::int64_t row) {
  const store::Value tranNo = rows.value(row, "TranNo");
  if (store::isBlank(tranNo)) return;
  openDocument(workplace_, static_cast<int>(store::integerOf(rows.value(row, "TranType"))), store::integerOf(tranNo));
}

}  // namespace velmo::frame
