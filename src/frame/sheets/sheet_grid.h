#pragma once

#include <QTimer>
#include <QWidget>
#include <vector>

#include "frame/sheets/sheet_rows.h"

class QKeyEvent;
class QLineEdit;
class QModelIndex;
class QTableView;

namespace velmo::frame {

class CellList;
class SheetGridModel;

// A sheet of lines that is typed into, as every document has one: a table with the cell in edit opened over it.
//
// Keys. Enter and Tab lead to the next cell that can be typed in, from the last one to the first of the next line;
// Shift+Tab leads back. Typing replaces a cell, F2 changes it. In a column with a drop list Down and Up lead into the
// list, whose Enter or Tab chooses. Delete clears a cell or removes a marked line (Shift+Space or a click on its number
// marks it), Ctrl+Delete removes the line. Esc gives up a change. A text that may not stand in its cell turns red and
// keeps the user there.
class SheetGrid : public QWidget {
  Q_OBJECT

 public:
  ~SheetGrid() override;

  // Opens for typing with this drop list; the list outlives the grid or is its child. Once for a column.
  void setList(int column, CellList& list);

  // The rows were bound to other lines, or let go: shows them, the first cell becoming the current one. Before rows are
  // let go, removed or added elsewhere, cancelEdit() gives up the cell in edit.
  void showRows();
  // A line has other values, given to it elsewhere.
  void rowChanged(int row);

  // Ends the cell in edit. False when the text was refused: then the user is still in the cell.
  virtual bool commitEdit();
  void cancelEdit();

  void focusFirstCell();
  void focusCurrentCell();
  int currentRow() const;  // -1 without lines
  // What stands in the lines, the cell in edit as it is typed: equal texts for equal lines, "" for blank ones.
  std::string written() const;
  // False when the cell in edit was refused.
  bool setCurrentCell(int row, int column);
  void removeCurrentRow();

 Q_SIGNALS:
  void linesChanged();     // totals are to be computed again
  void saveRequested();    // Ctrl+S; the cell in edit has been accepted
  void lookUpRequested();  // F4
  void escapePressed();    // Esc when no cell was in edit; linesChanged() went before

 protected:
  // A grid owns its rows and gives them by build() as soon as they are made. The table is named `name`, to a screen
  // reader `accessibleName`.
  explicit SheetGrid(QWidget* parent);
  void build(SheetRows& rows, const QString& name, const QString& accessibleName);

  bool eventFilter(QObject* watched, QEvent* event) override;
  // Enter in a cell; true when there was more to it than going on to the next one.
  virtual bool enterPressed() { return false; }
  // Puts what stands over a cell where the cell is now.
  virtual void placeOverCells();

  QTableView& table() const { return *table_; }
  QModelIndex current() const;
  bool isEditing() const;
  bool beginEdit();  // false when the column or the line does not allow it
  QString openedText() const { return openedText_; }
  QString typedText() const;
  CellList* openList() const;  // of the cell in edit, while it is shown

 private:
  // Building
  void buildTable(const QString& name, const QString& accessibleName);
  void buildEditor();
  void sizeColumns();
  const SheetColumn& column(int index) const { return rows_->columns()[static_cast<std::size_t>(index)]; }
  CellList* listOf(int column) const;

  // Cells
  void beginReplace(const QString& typed);
  void closeEditor();
  void currentChanged(const QModelIndex& current);
  bool moveToNextCell(int step);
  void moveRows(int rows);
  void markRow(int row);
  void clearCell();

  // Keys; true when the key was used
  bool tableKey(QKeyEvent& event);
  bool editorKey(const QKeyEvent& event);
  bool commandKey(const QKeyEvent& event);
  void escape();

  // Focus and lists
  bool watchTable(QEvent& event);
  bool watchEditor(QEvent& event);
  void focusLeft();
  void editorLeft();
  void narrowList();
  void narrowSoon();
  void choose(const QString& key);

  struct ColumnList {
    int column;
    CellList* list;
  };

  SheetRows* rows_ = nullptr;
  std::vector<ColumnList> lists_;
  SheetGridModel* model_ = nullptr;
  QTableView* table_ = nullptr;
  QLineEdit* editor_ = nullptr;
  QTimer IListTimer_;
  QTimer narrowTimer_;
  QString openedText_;         // of the cell in edit
  bool inListOrGrid_ = false;  // where the keyboard is
  bool ending_ = false;        // a cell's end is under way: its messages must not end it again
  bool handingOn_ = false;     // the cell is given a key that reached the table
};

}  // namespace velmo::frame
