#include <QDeadlineTimer>

#include "forms/caption.h"
#include "forms/look.h"
#include "forms/shown_part.h"
#include "frame/picking/picker_screen.h"
#include "text/like.h"

namespace velmo::frame {
namespace {

constexpr int portion = 256;
constexpr char columnEnd = '\t';  // between the columns of a row's text

std::string selectOf(const PickerType& type) {
  std::string shown;
  for (const forms::TableColumn& column : type.columns)
    shown += (shown.empty() ? "" : std::string(" & '") + columnEnd + "' & ") + column.field;
  return "SELECT " + type.key + " AS RowKey, (" + shown + ") AS RowText" + type.from;
}

}  // namespace

PickerModel::PickerModel(const PickerType& type, store::Connection& connection, QObject* parent)
    : QAbstractTableModel(parent), type_(type), connection_(connection) {
  open(type_.order);
}

void PickerModel::open(const std::string& order) {
  list_ = std::make_unique<PickList>(connection_, PickListSource{.select = selectOf(type_),
                                                                 .condition = {},
                                                                 .order = order,
                                                                 .displayColumn = "RowText",
                                                                 .keyColumn = "RowKey",
                                                                 .tables = type_.tables});
  narrow(typed_);
}

void PickerModel::narrow(const std::string& typed) {
  beginResetModel();
  typed_ = typed;
  list_->narrow(typed);
  within_.reset();
  // A typed wildcard must not reach from one column into the next.
  const bool isPlain = typed.find_first_of("%_[\t") == std::string::npos;
  const bool fitsAll = typed.find_first_not_of('%') == std::string::npos;
  if (!isPlain && !fitsAll) within_.emplace(text::LikePattern("%" + typed + "%"));
  found_ = handedOut_ = foundUpTo(portion);
  endResetModel();
}

// False when the list has no further entry to look at.
bool PickerModel::keepNext() const {
  const int at = within_->next;
  if (list_->sizeUpTo(at + 1) <= at) return false;
  ++within_->next;
  std::string_view rest = list_->display(at);
  while (true) {
    const std::size_t end = rest.find(columnEnd);
    const bool holds = within_->pattern.matches(rest.substr(0, end));
    if (holds) within_->kept.push_back(at);
    if (holds || end == std::string_view::npos) return true;
    rest.remove_prefix(end + 1);
  }
}

int PickerModel::foundUpTo(int wanted) const {
  if (!within_) return list_->sizeUpTo(wanted);
  while (std::ssize(within_->kept) < wanted && keepNext()) {
  }
  return std::min(wanted, static_cast<int>(within_->kept.size()));
}

bool PickerModel::searchFor(int milliseconds) {
  constexpr int more = 1000;
  for (const QDeadlineTimer end(milliseconds); !end.hasExpired();) {
    const int wanted = found_ + more;
    found_ = foundUpTo(wanted);
    if (found_ < wanted) return true;
  }
  return false;
}

int PickerModel::found() const {
  return found_;
}

int PickerModel::entry(int row) const {
  return within_ ? within_->kept.at(static_cast<std::size_t>(row)) : row;
}

void PickerModel::sortBy(const std::string& order) {
  open(order);
}

void PickerModel::readAgain() {
  open(list_->source().order);
}

int PickerModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : handedOut_;
}

int PickerModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(type_.columns.size());
}

bool PickerModel::canFetchMore(const QModelIndex& parent) const {
  return !parent.isValid() && handedOut_ < foundUpTo(handedOut_ + 1);
}

void PickerModel::fetchMore(const QModelIndex& parent) {
  const int wanted = parent.isValid() ? 0 : foundUpTo(handedOut_ + portion);
  if (wanted <= handedOut_) return;
  beginInsertRows({}, handedOut_, wanted - 1);
  handedOut_ = wanted;
  endInsertRows();
}

QVariant PickerModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= handedOut_) return {};
  const bool right = type_.columns[static_cast<std::size_t>(index.column())].alignment == forms::ColumnAlignment::Right;
  if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignVCenter | (right ? Qt::AlignRight : Qt::AlignLeft));
  if (role == Qt::FontRole) return right ? QVariant(forms::figureFont()) : QVariant();
  if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
  std::string_view text = list_->display(entry(index.row()));
  for (int column = 0; column < index.column(); ++column) {
    const std::size_t end = text.find(columnEnd);
    if (end == std::string_view::npos) return {};
    text.remove_prefix(end + 1);
  }
  return forms::shownPart(text.substr(0, text.find(columnEnd)));
}

QVariant PickerModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
    return QAbstractTableModel::headerData(section, orientation, role);
  const forms::TableColumn& column = type_.columns[static_cast<std::size_t>(section)];
  if (role == Qt::DisplayRole) return forms::shownText(column.caption);
  if (role == Qt::TextAlignmentRole)
    return QVariant(Qt::AlignVCenter |
                    (column.alignment == forms::ColumnAlignment::Right ? Qt::AlignRight : Qt::AlignLeft));
  return {};
}

}  // namespace velmo::frame
