#include "frame/report_screen.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QLineEdit>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "forms/look.h"
#include "forms/table_view.h"
#include "forms/work_progress.h"
#include "frame/own_fields.h"
#include "frame/report_drill_down.h"
#include "frame/report_model.h"
#include "frame/report_sheet.h"
#include "frame/wait_cursor.h"
#include "printing/preview_window.h"

namespace velmo::frame {
namespace {

constexpr int rowsAtOnce = 1024;
constexpr int idleStep = 12;    // milliseconds of reading before the screen may repaint
constexpr int firstSight = 30;  // and before it is shown at all

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

ReportScreen::ReportScreen(ReportType type, session::Workplace& workplace, QWidget* parent)
    : QWidget(parent), type_(std::move(type)), workplace_(workplace) {
  setObjectName(shownText(type_.screen));
  setWindowTitle(shownText(type_.caption));
  column_ = new QVBoxLayout(this);
  forms::setGrid(*column_, forms::spacing::Section);
  message_ = new QLabel;
  message_->setObjectName("MessageLbl");
  forms::makeCaption(*message_);
  column_->addWidget(makeHead());
  wait_ = new QLabel(tr("Please wait, while data is being exported to Excel ......"));
  wait_->setObjectName("WaitPic");
  wait_->hide();
  column_->addWidget(wait_);
  if (!type_.grids.empty()) column_->addWidget(makeTables(), 1);
  column_->addWidget(makeTotals());
  idle_.setInterval(0);
  connect(&idle_, &QTimer::timeout, this, [this] { attempt("Cannot Show", [this] { readOn(); }); });
  connect(filters_, &ReportFilters::confirmed, this, &ReportScreen::view);
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &ReportScreen::closeRequested);
  ShowLedger();
}

ReportScreen::~ReportScreen() = default;

void ReportScreen::ShowLedger() {
  if (type_.opened) attempt("Cannot Show", [this] { type_.opened(*this); });
}

// The screen's heading, what is asked for, and the commands.
QWidget* ReportScreen::makeHead() {
  auto* head = new QWidget(this);
  auto* column = new QVBoxLayout(head);
  forms::setGrid(*column, 0);
  auto* heading = new QLabel(shownText(type_.heading.empty() ? type_.caption : type_.heading));
  forms::makeHeading(*heading);
  column->addWidget(heading);
  filters_ = new ReportFilters(type_.filters, workplace_, this);
  if (!type_.filtersFrame.empty()) filters_->setObjectName(shownText(type_.filtersFrame));
  column->addWidget(filters_);
  auto* row = new QHBoxLayout;
  forms::setGrid(*row, 0);
  addCommands(*row);
  row->addStretch(1);
  addLabels(*row);
  column->addLayout(row);
  return head;
}

QAbstractButton* ReportScreen::makeCommand(const ReportCommand& command, const QKeySequence& keys,
                                           std::function<void()> run) {
  auto* button = new QPushButton(shownText(command.caption));
  button->setObjectName(shownText(command.name));
  button->setAutoDefault(false);
  const QString shownKeys = keys.toString(QKeySequence::NativeText);
  const QString hint = shownText(command.hint);
  button->setToolTip(shownKeys.isEmpty() ? hint : tr("%1 (%2)").arg(hint, shownKeys));
  button->setAccessibleDescription(hint);
  connect(button, &QPushButton::clicked, this, std::move(run));
  if (!keys.isEmpty())
    connect(new QShortcut(keys, this), &QShortcut::activated, button, [button] { button->click(); });
  return button;
}

void ReportScreen::addCommands(QHBoxLayout& row) {
  struct Standard {
    const ReportCommand& command;
    QKeySequence keys;
    void (ReportScreen::*run)();
  };
  bool first = true;
  for (const Standard& standard : {Standard{type_.view, Qt::Key_F5, &ReportScreen::view},
                                   Standard{type_.print, QKeySequence::Print, &ReportScreen::print},
                                   Standard{type_.sheet, Qt::CTRL | Qt::Key_E, &ReportScreen::exportSheet}}) {
    if (standard.command.name.empty()) continue;
    QAbstractButton* button =
        makeCommand(standard.command, standard.keys, [this, run = standard.run] { (this->*run)(); });
    if (std::exchange(first, false)) forms::makePrimary(*button);
    row.addWidget(button);
  }
  for (const ReportCommand& command : type_.others)
    row.addWidget(makeCommand(command, {}, [this, &command] { attempt("Cannot Show", [&] { command.run(*this); }); }));
}

void ReportScreen::addLabels(QHBoxLayout& row) {
  for (const std::string& name : type_.labels) {
    auto* label = new QLabel;
    label->setObjectName(shownText(name));
    label->setFont(forms::figureFont());
    row.addWidget(label);
    figures_[name] = label;
  }
}

void ReportScreen::addFigures(QHBoxLayout& row) {
  QFont font = forms::figureFont();
  font.setWeight(QFont::DemiBold);
  for (const ReportFigure& figure : type_.totals) {
    auto* box = new QLineEdit;
    box->setObjectName(shownText(figure.name));
    box->setAccessibleName(shownText(figure.caption.empty() ? figure.name : figure.caption));
    box->setReadOnly(true);
    box->setFocusPolicy(Qt::NoFocus);
    box->setAlignment(Qt::AlignRight);
    box->setFont(font);
    box->setFixedWidth(box->fontMetrics().averageCharWidth() * figure.width);
    if (!figure.caption.empty()) {
      auto* label = new QLabel(shownText(figure.caption));
      forms::makeCaption(*label);
      row.addWidget(label);
    }
    row.addWidget(box);
    figures_[figure.name] = box;
  }
}

ReportScreen::Table ReportScreen::makeTable(const ReportGrid& grid) {
  auto* model = new ReportModel(grid.columns, grid.sums, this);
  auto* view = new forms::TableView;
  view->setObjectName(shownText(grid.name));
  view->setAccessibleName(windowTitle());
  view->setModel(model);
  view->setColumnWidths(grid.columns);
  auto* act = new QAction(tr("Save as Spreadsheet..."), view);
  connect(act, &QAction::triggered, this, &ReportScreen::exportSheet);
  view->addAction(act);
  view->setContextMenuPolicy(Qt::ActionsContextMenu);
  connect(view, &forms::TableView::picked, this, [this](const QModelIndex& index) { drillDown(index.row()); });
  return {model, view};
}

QWidget* ReportScreen::makeTables() {
  tables_ = new QStackedWidget;
  for (const ReportGrid& grid : type_.grids) {
    const Table table = makeTable(grid);
    byName_[grid.name] = table;
    tables_->addWidget(table.view);
  }
  return tables_;
}

QWidget* ReportScreen::makeTotals() {
  auto* foot = new QWidget;
  if (!type_.totalsFrame.empty()) foot->setObjectName(shownText(type_.totalsFrame));
  auto* row = new QHBoxLayout(foot);
  forms::setGrid(*row, 0);
  row->addWidget(message_, 1);
  if (!type_.totalsLabel.empty()) {
    auto* label = new QLabel(shownText(type_.totalsLabel));
    label->setObjectName("TtlLbl");
    row->addWidget(label);
  }
  addFigures(*row);
  return foot;
}

ReportModel& ReportScreen::model(const std::string& grid) {
  return *byName_.at(grid).model;
}

forms::TableView& ReportScreen::grid() {
  return *static_cast<forms::TableView*>(tables_->currentWidget());
}

ReportModel& ReportScreen::model() {
  return *static_cast<ReportModel*>(grid().model());
}

void ReportScreen::setRows(const std::string& grid, std::shared_ptr<ReportRows> rows) {
  byName_.at(grid).model->setRows(std::move(rows));
}

void ReportScreen::showGrid(const std::string& grid) {
  tables_->setCurrentWidget(byName_.at(grid).view);
}

void ReportScreen::setFigure(const std::string& name, const std::string& text) {
  figures_.at(name)->setProperty("text", shownText(text));
}

std::string ReportScreen::figure(const std::string& name) const {
  return figures_.at(name)->property("text").toString().toStdString();
}

void ReportScreen::addNote(QWidget& note) {
  column_->insertWidget(1, &note);
}

bool ReportScreen::refuse(const char* title, const char* text, const char* focus) {
  workplace_.prompts.tell(title, text);
  if (focus) filters_->focus(focus);
  return false;
}

void ReportScreen::showMessage(const QString& text) {
  message_->setText(text);
}

void ReportScreen::attempt(const char* title, const std::function<void()>& action) {
  try {
    action();
  } catch (const store::StoreError& failure) {
    idle_.stop();
    message_->clear();
    workplace_.prompts.tell(title, failure.what());
  }
}

bool ReportScreen::load(ReportUse use) {
  if (type_.check && !type_.check(*this, use)) return false;
  if (!type_.load) return true;
  idle_.stop();
  for (const ReportFigure& figure : type_.totals) setFigure(figure.name, {});
  const WaitCursor wait;
  type_.load(*this);
  QElapsedTimer clock;
  clock.start();
  while (!isComplete() && clock.elapsed() < firstSight) readOn();
  if (isComplete()) completed();
  return true;
}

bool ReportScreen::isComplete() const {
  return std::ranges::all_of(byName_, [](const auto& entry) { return entry.second.model->isComplete(); });
}

void ReportScreen::readOn() {
  QElapsedTimer clock;
  clock.start();
  for (auto& [name, table] : byName_)
    while (!table.model->isComplete() && clock.elapsed() < idleStep) table.model->readOn(rowsAtOnce);
  if (!idle_.isActive()) return;
  if (isComplete())
    completed();
  else
    message_->setText(tr("Reading ... %1 rows").arg(QLocale(QLocale::English).toString(qlonglong{model().ready()})));
}

void ReportScreen::completed() {
  idle_.stop();
  if (type_.figures) type_.figures(*this);
  if (!tables_) return;
  const qlonglong rows = model().ready();
  message_->setText(rows == 1 ? tr("1 row") : tr("%1 rows").arg(QLocale(QLocale::English).toString(rows)));
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
  attempt("Cannot Open", [&] {
    if (type_.drillDown) return type_.drillDown(*this, row);
    const store::Value tranNo = model().value(row, "TranNo");
    if (store::isBlank(tranNo)) return;
    openDocument(workplace_, static_cast<int>(store::integerOf(model().value(row, "TranType"))),
                 store::integerOf(tranNo));
  });
}

ReportDialog::ReportDialog(ReportType type, session::Workplace& workplace, QWidget* parent) : QDialog(parent) {
  setWindowTitle(shownText(type.caption));
  screen_ = new ReportScreen(std::move(type), workplace, this);
  auto* column = new QVBoxLayout(this);
  forms::setGrid(*column, 0);
  column->addWidget(screen_);
  connect(screen_, &ReportScreen::closeRequested, this, &QDialog::reject);
}

QWidget* makeReportWindow(ReportType type, session::Workplace& workplace, QWidget* parent) {
  auto* screen = new ReportScreen(std::move(type), workplace, parent);
  QObject::connect(screen, &ReportScreen::closeRequested, screen,
                   [screen] { (screen->parentWidget() ? screen->parentWidget() : screen)->close(); });
  return screen;
}

}  // namespace velmo::frame
