#include "forms/table_column.h"

#include "forms/shown_part.h"
#include "text/format.h"

namespace velmo::forms {

QString shownValue(const store::Value& value, const TableColumn& column) {
  if (store::isNull(value)) return {};
  if (const auto* yes = std::get_if<bool>(&value); yes && !(column.yes.empty() && column.no.empty()))
    return QString::fromStdString(*yes ? column.yes : column.no);
  if (column.format.empty()) return shownPart(store::textOf(value));
  if (const auto* date = std::get_if<text::DateTime>(&value))
    return QString::fromStdString(text::formatDate(*date, column.format));
  if (const auto* words = std::get_if<std::string>(&value)) return shownPart(text::formatText(*words, column.format));
  return QString::fromStdString(text::formatNumber(store::numberOf(value), column.format));
}

int qtAlignment(ColumnAlignment alignment) {
  switch (alignment) {
    case ColumnAlignment::Centre:
      return Qt::AlignHCenter | Qt::AlignVCenter;
    case ColumnAlignment::Right:
      return Qt::AlignRight | Qt::AlignVCenter;
    case ColumnAlignment::Left:
      break;
  }
  return Qt::AlignLeft | Qt::AlignVCenter;
}

}  // namespace velmo::forms
