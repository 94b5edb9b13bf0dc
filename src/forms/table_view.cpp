#include "forms/table_view.h"

#include <QElapsedTimer>
#include <QHeaderView>
#include <QKeyEvent>

#include "forms/recordset_model.h"

namespace velmo::forms {
namespace {

constexpr int longestHold = 8;  // milliseconds in which rows are fetched before the next event is heard

}  // namespace

void dressTable(QTableView& table) {
  table.setAlternatingRowColors(true);
  table.setShowGrid(true);
  table.setWordWrap(false);
  table.setCornerButtonEnabled(false);
  table.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  table.verticalHeader()->hide();
  table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table.verticalHeader()->setDefaultSectionSize(rowHeight(table));
  table.horizontalHeader()->setHighlightSections(false);
  table.horizontalHeader()->setMinimumSectionSize(table.fontMetrics().averageCharWidth() * 4);
}

int rowHeight(const QWidget& table) {
  return table.fontMetrics().height() + 11;
}

TableView::TableView(QWidget* parent) : QTableView(parent) {
  dressTable(*this);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::SelectedClicked);
  setTabKeyNavigation(false);
  connect(this, &QTableView::doubleClicked, this, &TableView::picked);
  toEnd_.setInterval(0);
  toEnd_.setSingleShot(true);
  connect(&toEnd_, &QTimer::timeout, this, &TableView::goToEnd);
}

void TableView::showModel(RecordsetModel& model) {
  setModel(&model);
  setColumnWidths(model.columns());
}

void TableView::setColumnWidths(const std::vector<TableColumn>& columns) {
  int widest = -1;
  for (int i = 0; i < static_cast<int>(columns.size()); ++i) {
    const int width = columns[static_cast<std::size_t>(i)].width;
    setColumnWidth(i, width * fontMetrics().averageCharWidth() + 16);
    if (widest < 0 || width > columns[static_cast<std::size_t>(widest)].width) widest = i;
  }
  if (widest >= 0) horizontalHeader()->setSectionResizeMode(widest, QHeaderView::Stretch);
}

void TableView::keyPressEvent(QKeyEvent* event) {
  toEnd_.stop();
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isEnter && state() != QAbstractItemView::EditingState && currentIndex().isValid()) {
    Q_EMIT picked(currentIndex());
    return;
  }
  if (event->modifiers() == Qt::NoModifier && (event->key() == Qt::Key_Home || event->key() == Qt::Key_End) &&
      model() && model()->rowCount() > 0) {
    event->key() == Qt::Key_Home ? goTo(0) : goToEnd();
    return;
  }
  QTableView::keyPressEvent(event);
}

void TableView::mousePressEvent(QMouseEvent* event) {
  toEnd_.stop();
  QTableView::mousePressEvent(event);
}

void TableView::reset() {
  toEnd_.stop();
  QTableView::reset();
}

void TableView::goTo(int row) {
  setCurrentIndex(model()->index(row, std::max(0, currentIndex().column())));
}

void TableView::goToEnd() {
  QElapsedTimer began;
  began.start();
  while (model()->canFetchMore({}) && began.elapsed() < longestHold) model()->fetchMore({});
  if (model()->canFetchMore({})) return toEnd_.start();
  toEnd_.stop();
  goTo(model()->rowCount() - 1);
}

}  // namespace velmo::forms
