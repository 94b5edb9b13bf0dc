#pragma once

#include <QAbstractTableModel>
#include <QDialog>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/recordset_model.h"
#include "frame/picking/pick_list.h"
#include "session/workplace.h"

class QLabel;
class QLineEdit;

namespace velmo::forms {
class TableView;
}

namespace velmo::frame {

// A list to search by any part of any of its columns, as data.
struct PickerType {
  std::string screen;
  std::string title;
  std::vector<forms::TableColumn> columns;  // each field is an expression of the statement
  std::string key;                          // column that a choice hands on
  std::string from;                         // what follows the columns: " FROM ... WHERE ..."
  std::string order;
  std::vector<std::string> tables;
  // What a click on a column's header sorts by; empty for a column that does not sort. None: no column sorts.
  std::vector<std::string> headerOrders = {};
};

// The rows of a picker that hold the typed text, for a view: all of them held in memory, so that each key is answered
// at once.
class PickerModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  PickerModel(const PickerType& type, store::Connection& connection, QObject* parent = nullptr);

  void narrow(const std::string& typed);
  void sortBy(const std::string& order);
  void readAgain();  // what others wrote meanwhile
  // Looks for further rows for about so long; true when all are found.
  bool searchFor(int milliseconds);
  int found() const;  // so far
  std::string key(int row) const { return std::string(list_->key(entry(row))); }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  bool canFetchMore(const QModelIndex& parent) const override;
  void fetchMore(const QModelIndex& parent) override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

 private:
  void open(const std::string& order);
  // Rows that were found are kept only when one of their columns holds the text.
  struct WithinColumns {
    text::LikePattern pattern;
    std::vector<int> kept;  // of the list's entries
    int next = 0;           // the first of them that was not looked at
  };
  bool keepNext() const;
  int foundUpTo(int wanted) const;
  int entry(int row) const;  // of the list

  const PickerType& type_;
  store::Connection& connection_;
  std::unique_ptr<PickList> list_;
  std::string typed_;
  mutable std::optional<WithinColumns> within_;  // nothing: the list finds no others
  int found_ = 0;
  int handedOut_ = 0;
};

// `SearchBox` above `InvGrid`: the box narrows the list key by key, Down leads into it, Enter and double click hand the
// row's key on and close. `RefBttn` (F5) reads the list again and empties the box.
class PickerScreen : public QDialog {
  Q_OBJECT

 public:
  PickerScreen(PickerType type, session::Workplace& workplace, std::function<void(const std::string& key)> picked,
               QWidget* parent);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void buildLayout();
  void search();
  void refresh();
  void pick();
  void sortBy(int column);
  void count();
  void countOn();
  void showCount();

  const PickerType type_;
  session::Workplace& workplace_;
  std::function<void(const std::string&)> picked_;
  PickerModel* model_;
  QLineEdit* SearchBox_;
  forms::TableView* grid_;
  QLabel* count_;
  QTimer counting_;
};

}  // namespace velmo::frame
