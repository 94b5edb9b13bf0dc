#include "frame/report/report_screen.h"

#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "forms/caption.h"
#include "forms/look.h"
#include "forms/stop_listening.h"
#include "forms/table_view.h"
#include "frame/report/report_detail.h"
#include "frame/report/report_foot.h"
#include "frame/report/report_model.h"

namespace velmo::frame {

ReportScreen::ReportScreen(ReportType type, session::Workplace& workplace, QWidget* parent)
    : QWidget(parent), type_(std::move(type)), workplace_(workplace) {
  setObjectName(forms::shownText(type_.screen));
  setWindowTitle(forms::shownText(type_.caption));
  column_ = new QVBoxLayout(this);
  forms::setGrid(*column_, forms::spacing::Section);
  column_->addWidget(makeHead());
  wait_ = new QLabel(tr("Please wait, while data is being exported to Excel ......"));
  wait_->setObjectName("WaitPic");
  wait_->hide();
  column_->addWidget(wait_);
  if (!type_.grids.empty()) column_->addWidget(makeTables(), 3);
  foot_ = new ReportFoot(type_);
  for (const auto& [name, box] : foot_->boxes()) figures_[name] = box;
  column_->addWidget(foot_);
  if (!type_.detail.name.empty()) addDetail();
  idle_.setInterval(0);
  connect(&idle_, &QTimer::timeout, this, [this] { attempt("Cannot Show", [this] { readOn(); }); });
  connect(filters_, &ReportFilters::confirmed, this, &ReportScreen::confirm);
  connect(filters_, &ReportFilters::optionChosen, this, [this](const std::string& option) {
    for (const ReportGrid& grid : type_.grids)
      if (grid.shownBy == option) showGrid(grid.name);
  });
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &ReportScreen::closeRequested);
  if (type_.opened) attempt("Cannot Show", [this] { type_.opened(*this); });
}

ReportScreen::~ReportScreen() {
  forms::stopListening(*this);
}

void ReportScreen::reopen() {
  if (type_.reopened) attempt("Cannot Show", [this] { type_.reopened(*this); });
}

// The screen's heading, what is asked for, and the commands.
QWidget* ReportScreen::makeHead() {
  auto* head = new QWidget(this);
  auto* column = new QVBoxLayout(head);
  forms::setGrid(*column, 0);
  auto* heading = new QLabel(forms::shownText(type_.heading.empty() ? type_.caption : type_.heading));
  forms::makeHeading(*heading);
  column->addWidget(heading);
  filters_ = new ReportFilters(type_.filters, workplace_, this);
  if (!type_.filtersFrame.empty()) filters_->setObjectName(forms::shownText(type_.filtersFrame));
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
  auto* button = new QPushButton(forms::shownText(command.caption));
  button->setObjectName(forms::shownText(command.name));
  button->setAutoDefault(false);
  const QString shownKeys = keys.toString(QKeySequence::NativeText);
  const QString hint = forms::shownText(command.hint);
  button->setToolTip(shownKeys.isEmpty() ? hint : tr("%1 (%2)").arg(hint, shownKeys));
  button->setAccessibleDescription(hint);
  connect(button, &QPushButton::clicked, this, std::move(run));
  if (!keys.isEmpty()) connect(new QShortcut(keys, this), &QShortcut::activated, button, [button] { button->click(); });
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
    commands_.push_back(button);
  }
  for (const ReportCommand& command : type_.others)
    row.addWidget(makeCommand(command, {}, [this, &command] { attempt("Cannot Show", [&] { command.run(*this); }); }));
}

void ReportScreen::addLabels(QHBoxLayout& row) {
  for (const std::string& name : type_.labels) {
    auto* label = new QLabel;
    label->setObjectName(forms::shownText(name));
    label->setFont(forms::figureFont());
    row.addWidget(label);
    figures_[name] = label;
  }
}

ReportScreen::Table ReportScreen::makeTable(const ReportGrid& grid) {
  auto* model = new ReportModel(grid.columns, summedFields(type_, grid), this);
  auto* view = new forms::TableView;
  view->setObjectName(forms::shownText(grid.name));
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

void ReportScreen::addDetail() {
  detail_ = new ReportDetailPane(type_.detail, this);
  column_->addWidget(detail_, 2);
  for (const auto& [name, table] : byName_) {
    connect(table.view->selectionModel(), &QItemSelectionModel::currentRowChanged, detail_,
            &ReportDetailPane::leaveRow);
    connect(table.model, &ReportModel::modelReset, detail_, &ReportDetailPane::leaveRow);
  }
  connect(detail_, &ReportDetailPane::due, this,
          [this] { attemptAside("Cannot Show", [this] { detail_->proceed(*this); }); });
  connect(&detail_->grid(), &forms::TableView::picked, this, [this](const QModelIndex& index) {
    attemptAside("Cannot Open", [&] { openDocumentOf(detail_->model(), index.row()); });
  });
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

void ReportScreen::setRows(const std::string& grid, const std::string& statement) {
  setRows(grid, rowsOf(workplace_.context.KORDconn, statement));
}

void ReportScreen::showGrid(const std::string& grid) {
  tables_->setCurrentWidget(byName_.at(grid).view);
  foot_->showTotalsOf(grid);
  if (detail_) detail_->leaveRow();
  if (model().rows() && isComplete()) showCount();
}

void ReportScreen::setFigure(const std::string& name, const std::string& text) {
  figures_.at(name)->setProperty("text", forms::shownText(text));
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

void ReportScreen::showFurtherTotals(const std::string& grid, bool shown) {
  foot_->showFurtherTotals(grid, shown);
}

void ReportScreen::showMessage(const QString& text) {
  foot_->showMessage(text);
}

ReportDialog::ReportDialog(ReportType type, session::Workplace& workplace, QWidget* parent) : QDialog(parent) {
  setWindowTitle(forms::shownText(type.caption));
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
