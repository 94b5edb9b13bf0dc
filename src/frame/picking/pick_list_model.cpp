#include "frame/picking/pick_list_model.h"

#include "forms/caption.h"
#include "forms/shown_part.h"

namespace velmo::frame {
namespace {

constexpr int portion = 256;

}  // namespace

PickListModel::PickListModel(QObject* parent) : QAbstractListModel(parent) {}

void PickListModel::setList(PickList* list) {
  beginResetModel();
  list_ = list;
  handedOut_ = list_ ? list_->sizeUpTo(portion) : 0;
  endResetModel();
}

void PickListModel::narrow(const QString& typed) {
  if (!list_) return;
  beginResetModel();
  list_->narrow(typed.toStdString());
  handedOut_ = list_->sizeUpTo(portion);
  endResetModel();
}

QModelIndex PickListModel::indexOfKey(std::string_view key) {
  const int entry = list_ ? list_->indexOf(key) : -1;
  if (entry < 0) return {};
  handOut(entry + 1);
  return index(entry);
}

QString PickListModel::key(const QModelIndex& index) const {
  return index.isValid() && list_ ? forms::shownText(list_->key(index.row())) : QString();
}

void PickListModel::handOut(int rows) {
  const int wanted = list_->sizeUpTo(rows);
  if (wanted <= handedOut_) return;
  beginInsertRows({}, handedOut_, wanted - 1);
  handedOut_ = wanted;
  endInsertRows();
}

int PickListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : handedOut_;
}

bool PickListModel::canFetchMore(const QModelIndex& parent) const {
  return !parent.isValid() && list_ && handedOut_ < list_->sizeUpTo(handedOut_ + 1);
}

void PickListModel::fetchMore(const QModelIndex&) {
  handOut(handedOut_ + portion);
}

QVariant PickListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || !list_ || index.row() >= list_->sizeUpTo(index.row() + 1)) return {};
  if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return forms::shownPart(list_->display(index.row()));
  if (role == Code) return key(index);
  if (role == Name) return forms::shownPart(list_->name(index.row()));
  if (role == LongestCode) return list_->longestKey();
  return {};
}

}  // namespace velmo::frame
