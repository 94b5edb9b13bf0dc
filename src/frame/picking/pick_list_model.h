#pragma once

#include <QAbstractListModel>

#include "frame/picking/pick_list.h"

namespace velmo::frame {

// The present entries of a pick list for a view. Long lists are handed out in portions as the view is scrolled, since
// a view lays out all rows it knows.
class PickListModel : public QAbstractListModel {
  Q_OBJECT

 public:
  enum Role { Code = Qt::UserRole, Name, LongestCode };  // the last in letters, of all entries

  explicit PickListModel(QObject* parent = nullptr);

  void setList(PickList* list);  // outlives the model or its next setList()
  PickList* list() const { return list_; }
  void narrow(const QString& typed);

  // Hands out the row of a key as well; an invalid index when it is not among the entries.
  QModelIndex indexOfKey(std::string_view key);
  QString key(const QModelIndex& index) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  bool canFetchMore(const QModelIndex& parent) const override;
  void fetchMore(const QModelIndex& parent) override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

 private:
  void handOut(int rows);

  PickList* list_ = nullptr;
  int handedOut_ = 0;
};

}  // namespace velmo::frame
