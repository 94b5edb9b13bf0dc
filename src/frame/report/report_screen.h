#pragma once

#include <QDialog>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <map>
#include <string>

#include "frame/report/report_filters.h"
#include "frame/report/report_type.h"
#include "session/open_screen.h"

class QAbstractButton;
class QHBoxLayout;
class QLabel;
class QStackedWidget;
class QVBoxLayout;

namespace velmo::forms {
class TableView;
}

namespace velmo::frame {

class ReportDetailPane;
class ReportFoot;
class ReportModel;
class ReportRows;

// A report as its descriptor says: filters, commands, grids, figures. The first rows of a long report show at once, the
// others follow in idle moments with the figures behind them.
class ReportScreen : public QWidget, public session::Reopened {
  Q_OBJECT

 public:
  ReportScreen(ReportType type, session::Workplace& workplace, QWidget* parent);
  ~ReportScreen() override;

  session::Workplace& workplace() { return workplace_; }
  ReportFilters& filters() { return *filters_; }
  const ReportFilters& filters() const { return *filters_; }
  const ReportType& type() const { return type_; }

  // For the functions of the descriptor.
  void setRows(const std::string& grid, std::shared_ptr<ReportRows> rows);
  void setRows(const std::string& grid, const std::string& statement);
  void showGrid(const std::string& grid);
  ReportModel& model(const std::string& grid);
  ReportModel& model();  // of the grid that is shown
  forms::TableView& grid();
  void setFigure(const std::string& name, const std::string& text);  // of a box or a label
  std::string figure(const std::string& name) const;
  void showFurtherTotals(const std::string& grid, bool shown);
  // Lets the windows repaint between two parts of a long run; what is pressed is heard behind it.
  static void breathe();
  // Tells it, and gives the keyboard to a control; false.
  bool refuse(const char* title, const char* text, const char* focus = nullptr);
  // A widget above the grids, where a report has something of its own to show.
  void addNote(QWidget& note);

  // The commands, as their buttons run them.
  void view();
  void print();
  void exportSheet();
  // Reads what is still to be read, with progress; false when the user stopped it.
  bool finishReading();
  void showMessage(const QString& text);

  void reopen() override;

 Q_SIGNALS:
  void closeRequested();

 private:
  struct Table {
    ReportModel* model;
    forms::TableView* view;
  };

  QWidget* makeHead();
  void addCommands(QHBoxLayout& row);
  QAbstractButton* makeCommand(const ReportCommand& command, const QKeySequence& keys, std::function<void()> run);
  void addLabels(QHBoxLayout& row);
  QWidget* makeTables();
  void addDetail();
  Table makeTable(const ReportGrid& grid);
  bool load(ReportUse use);
  // What the rows depend on: the file, the filters and the day.
  std::string basis() const;
  bool isComplete() const;
  bool pauses() const;
  void readOn();
  void completed();
  void showSums();
  void showCount();
  void setRunning(bool running);
  void confirm();
  void attempt(const char* title, const std::function<void()>& action);       // a failure ends the run
  void attemptAside(const char* title, const std::function<void()>& action);  // the run goes on
  void drillDown(std::int64_t row);
  void openDocumentOf(const ReportModel& rows, std::int64_t row);

  const ReportType type_;
  session::Workplace& workplace_;
  ReportFilters* filters_ = nullptr;
  QVBoxLayout* column_ = nullptr;
  QStackedWidget* tables_ = nullptr;
  QLabel* wait_ = nullptr;
  ReportFoot* foot_ = nullptr;
  ReportDetailPane* detail_ = nullptr;
  std::vector<QAbstractButton*> commands_;  // view, print and sheet
  QPointer<QWidget> hadFocus_;              // before the commands were disabled
  QPointer<QWidget> hasFocusMeanwhile_;
  std::map<std::string, Table, std::less<>> byName_;
  std::map<std::string, QWidget*, std::less<>> figures_;  // boxes and labels
  QTimer idle_;
  std::string basis_;  // of the rows that were loaded
};

// The screen as a modal dialog.
class ReportDialog : public QDialog {
  Q_OBJECT

 public:
  ReportDialog(ReportType type, session::Workplace& workplace, QWidget* parent);
  ReportScreen& screen() { return *screen_; }

 private:
  ReportScreen* screen_;
};

// The screen as a child window: Esc closes the frame around it.
QWidget* makeReportWindow(ReportType type, session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::frame
