#pragma once

#include <QFrame>
#include <memory>
#include <string>
#include <vector>

#include "frame/master/master_box.h"
#include "frame/master/master_type.h"

class QHBoxLayout;
class QLabel;
class QPushButton;

namespace velmo::forms {
class RecordsetModel;
class TableView;
}  // namespace velmo::forms

namespace velmo::frame {

// One level of a master dialog: the list of its rows, the boxes of the current one, and its commands. Typing in a box
// begins a change: until it is saved or cancelled the list and the other levels stand still.
class MasterPanel : public QFrame {
  Q_OBJECT

 public:
  enum class State { Browsing, Adding, Changing };

  MasterPanel(const MasterLevel& level, session::Workplace& workplace, QWidget* parent);
  ~MasterPanel() override;

  const MasterLevel& level() const { return level_; }
  session::Workplace& workplace() const { return workplace_; }
  State state() const { return state_; }
  bool isBusy() const { return state_ != State::Browsing; }

  // Shows the rows of a parent, the first of them. parentKeys: outermost first, the type's root key before all.
  void load(std::vector<std::string> parentKeys);
  // False when the rows do not have it.
  bool goTo(const std::string& key);

  std::string key() const;  // of the current row; "" when there is none or a new one is in the boxes
  const std::string& parent() const { return parentKeys_.back(); }
  const std::vector<std::string>& parentKeys() const { return parentKeys_; }
  store::Recordset& rows() { return rows_; }
  forms::RecordsetModel& model() { return *model_; }
  MasterEntry entry() const;

  // The one that the user sees, where the column has several; throws std::logic_error when there is none.
  MasterBox& box(std::string_view column) const;
  std::string text(std::string_view column) const { return box(column).text(); }
  void setText(std::string_view column, const std::string& text) { box(column).setText(text); }

  void add();
  void save();
  void cancel();
  void remove();

  void focusList();
  void focusBox(std::string_view column);
  // The row of the panel's commands and the row of its heading, for further buttons.
  QHBoxLayout& commands() { return *commands_; }
  QHBoxLayout& heading() { return *heading_; }

 Q_SIGNALS:
  // Another row is current, or none, or a new one is in the boxes.
  void currentChanged();
  void busyChanged();

 private:
  // Rows of an inner level need one to stand under.
  bool hasParent() const { return parentKeys_.size() == 1 || !parent().empty(); }
  void buildHeading();
  void buildList();
  void addSpreadsheet();
  void saveSpreadsheet();
  void buildForm();
  void addHidden(std::unique_ptr<MasterBox> box);
  void buildCommands();
  QPushButton* makeCommand(const char* name, const QString& caption, const QString& hint);
  void openRows();
  void rowChosen();
  void showRow();
  void boxEdited(MasterBox& box);
  bool isMirror(const MasterBox& box) const;  // hidden, of a column with a box that is seen
  void mirror();                              // brings those to the value of the box that is seen
  void setState(State state);
  void selectRow(std::int64_t row);
  // What kept the row from being saved.
  struct Failure {
    std::string words;
    std::string column;  // its box gets the focus
  };
  std::optional<Failure> firstFailure(const MasterEntry& entry) const;
  std::optional<Failure> write(MasterEntry entry);
  void writeRow(const MasterEntry& entry);
  void showSaved(const std::string& key);
  std::string literal(std::string_view column, const std::string& code) const;
  void proposeCode();
  bool isCodeTaken(const MasterEntry& entry) const;
  void focusFirstBox();

  const MasterLevel& level_;
  session::Workplace& workplace_;
  store::Recordset rows_;
  std::vector<std::string> parentKeys_;
  State state_ = State::Browsing;
  std::string keyBefore_;  // of the row that was current before one was added
  bool moving_ = false;    // the list follows the rows, not the other way round
  std::vector<std::unique_ptr<MasterBox>> boxes_;
  QHBoxLayout* heading_ = nullptr;
  QHBoxLayout* commands_ = nullptr;
  QLabel* count_ = nullptr;
  forms::RecordsetModel* model_ = nullptr;
  forms::TableView* list_ = nullptr;
  QPushButton* add_ = nullptr;
  QPushButton* save_ = nullptr;
  QPushButton* cancel_ = nullptr;
  QPushButton* remove_ = nullptr;
};

}  // namespace velmo::frame
