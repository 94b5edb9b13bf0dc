#pragma once

#include <QDialog>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "forms/recordset_model.h"
#include "session/workplace.h"

class QHBoxLayout;
class QLabel;
class QTableView;

namespace velmo::frame {

class GridEditor;

struct GridCommand {
  std::string name;
  std::string caption;
  std::string hint;
  std::function<void(GridEditor&)> run;
  const char* failure = "Cannot Update";  // title of what is told when the store refuses
};

// A screen that edits one aspect of many rows at once, as data. Edits stay in the rows until `SaveBttn` (Ctrl+S) writes
// all of them or none; `CancelBttn` reads the rows again. One that does not save is a list to look at.
struct GridEditorType {
  std::string screen;
  std::string title;
  std::string grid;       // its name
  std::string hint = {};  // a line above the grid
  std::vector<forms::TableColumn> columns;
  std::function<void(GridEditor&, QHBoxLayout&)> filters = {};  // fills the row above the grid and shows the first rows
  std::vector<GridCommand> commands = {};
  std::function<void(GridEditor&, int row)> doubleClicked = {};
  bool saves = true;
};

class GridEditor : public QWidget {
  Q_OBJECT

 public:
  GridEditor(GridEditorType type, session::Workplace& workplace, QWidget* parent);
  ~GridEditor() override;

  session::Workplace& workplace() { return workplace_; }
  forms::RecordsetModel& model() { return *model_; }
  QTableView& grid() { return *grid_; }

  // Shows the rows of a statement; edits that were not saved are dropped when the user says so. False when he does not.
  bool show(const std::string& statement);
  // Rows were edited otherwise than by typing into the grid.
  void noteEdits();

  void save();
  void cancel();
  // Whether the edits that were not saved may be forgotten; asks the user when there are any.
  bool mayDrop();

  using QWidget::show;

 Q_SIGNALS:
  void closeRequested();

 private:
  void buildGrid();
  void buildFoot(QHBoxLayout& foot);
  void read();
  bool isEdited() const;  // cell by cell
  void showCount();

  const GridEditorType type_;
  session::Workplace& workplace_;
  forms::RecordsetModel* model_;
  QTableView* grid_ = nullptr;
  QLabel* count_ = nullptr;
  std::string statement_;
  bool edited_ = false;
};

// The screen as a modal dialog.
class GridDialog : public QDialog {
  Q_OBJECT

 public:
  GridDialog(GridEditorType type, session::Workplace& workplace, QWidget* parent);
  void done(int result) override;

 private:
  int roomyWidth() const;

  GridEditor* editor_;
};

}  // namespace velmo::frame
