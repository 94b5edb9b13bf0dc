#pragma once

#include <QTableView>

namespace velmo::frame {

// A table whose cells are edited in place. Enter and Tab lead to the next cell that can be edited, in the next row
// behind the last one; a key that is typed begins an edit. Space on a
// cell that is not edited stands for a double click.
class GridTable : public QTableView {
  Q_OBJECT

 public:
  explicit GridTable(QWidget* parent = nullptr);

 protected:
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QModelIndex nextEditable(int step) const;
};

}  // namespace velmo::frame
