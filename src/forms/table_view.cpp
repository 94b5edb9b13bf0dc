#include "forms/table_view.h"

#include <QHeaderView>
#include <QKeyEvent>

#include "forms/recordset_model.h"

namespace velmo::forms {

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
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isEnter && state() != QAbstractItemView::EditingState && currentIndex().isValid()) {
    Q_EMIT picked(currentIndex());
    return;
  }
  if (event->modifiers() == Qt::NoModifier && (event->key() == Qt::Key_Home || event->key() == Qt::Key_End) &&
      model() && model()->rowCount() > 0) {
    while (event->key() == Qt::Key_End && model()->canFetchMore({})) model()->fetchMore({});
    setCurrentIndex(model()->index(event->key() == Qt::Key_Home ? 0 : model()->rowCount() - 1,
                                   std::max(0, currentIndex().column())));
    return;
  }
  QTableView::keyPressEvent(event);
}

}  // namespace velmo::forms
