#include "spreadsheet/table_rows.h"

#include <QDate>
#include <QHeaderView>
#include <QTableView>

#include "text/format.h"

namespace velmo::spreadsheet {
namespace {

std::vector<int> shownColumns(const QTableView& table) {
  const QHeaderView& header = *table.horizontalHeader();
  std::vector<int> columns;
  for (int place = 0; place < header.count(); ++place)
    if (const int column = header.logicalIndex(place); !header.isSectionHidden(column)) columns.push_back(column);
  return columns;
}

int widthOf(const QTableView& table, int column) {
  return table.columnWidth(column) / std::max(1, table.fontMetrics().averageCharWidth());
}

// A text in a column of figures stands there as the table writes it.
store::Value shown(store::Value value, const std::string& format) {
  const auto* words = std::get_if<std::string>(&value);
  if (words && !format.empty()) return text::formatText(*words, format);
  return value;
}

TableRows fromRecordset(const QTableView& table, forms::RecordsetModel& model) {
  TableRows result;
  struct Field {
    int index;
    std::string format;
  };
  std::vector<Field> fields;
  store::Recordset rows = model.rows();
  for (const int column : shownColumns(table)) {
    const forms::TableColumn& shownColumn = model.columns()[static_cast<std::size_t>(column)];
    result.design.columns.push_back({.caption = shownColumn.caption,
                                     .format = shownColumn.format,
                                     .alignment = shownColumn.alignment,
                                     .width = widthOf(table, column),
                                     .figures = shownColumn.figures});
    fields.push_back({rows.isOpen() ? rows.fieldIndex(shownColumn.field) : -1, shownColumn.format});
  }
  result.count = rows.isOpen() ? rows.recordCount() : 0;
  result.rows = [rows, fields, count = result.count, row = std::int64_t{0}](std::span<store::Value> cells) mutable {
    if (row >= count) return false;
    for (std::size_t i = 0; i < fields.size(); ++i)
      if (fields[i].index >= 0) cells[i] = shown(rows.valueAt(row, fields[i].index), fields[i].format);
    ++row;
    return true;
  };
  return result;
}

store::Value valueOf(const QModelIndex& index) {
  const QVariant value = index.data(Qt::EditRole);
  switch (value.typeId()) {
    case QMetaType::Bool:
      return value.toBool();
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
      return static_cast<std::int64_t>(value.toLongLong());
    case QMetaType::Double:
    case QMetaType::Float:
      return value.toDouble();
    case QMetaType::QDate: {
      const QDate date = value.toDate();
      return text::DateTime::fromCalendar(date.year(), date.month(), date.day());
    }
    default:
      return index.data(Qt::DisplayRole).toString().toStdString();
  }
}

forms::ColumnAlignment alignmentOf(const QAbstractItemModel& model, int column) {
  const int flags = model.headerData(column, Qt::Horizontal, Qt::TextAlignmentRole).toInt();
  if (flags & Qt::AlignRight) return forms::ColumnAlignment::Right;
  return flags & Qt::AlignHCenter ? forms::ColumnAlignment::Centre : forms::ColumnAlignment::Left;
}

TableRows fromModel(const QTableView& table, QAbstractItemModel& model) {
  TableRows result;
  const std::vector<int> columns = shownColumns(table);
  for (const int column : columns)
    result.design.columns.push_back({.caption = model.headerData(column, Qt::Horizontal).toString().toStdString(),
                                     .alignment = alignmentOf(model, column),
                                     .width = widthOf(table, column)});
  while (model.canFetchMore({})) model.fetchMore({});
  result.count = model.rowCount();
  result.rows = [&model, columns, row = 0](std::span<store::Value> cells) mutable {
    if (row >= model.rowCount()) return false;
    for (std::size_t i = 0; i < columns.size(); ++i) cells[i] = valueOf(model.index(row, columns[i]));
    ++row;
    return true;
  };
  return result;
}

}  // namespace

TableRows rowsOf(const QTableView& table, const std::string& title) {
  TableRows result;
  if (auto* recordset = qobject_cast<forms::RecordsetModel*>(table.model()))
    result = fromRecordset(table, *recordset);
  else if (table.model())
    result = fromModel(table, *table.model());
  result.design.title = title;
  return result;
}

}  // namespace velmo::spreadsheet
