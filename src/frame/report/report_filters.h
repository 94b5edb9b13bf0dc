#pragma once

#include <QWidget>
#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "frame/report/report_type.h"
#include "session/workplace.h"

class QAbstractButton;
class QButtonGroup;
class QGridLayout;
class QHBoxLayout;

namespace velmo::frame {

class AccountDropList;
class CodeBox;
class CodeDropList;

// The controls of a report's filters, which enable, disable, clear and reload one another as the descriptor says, and
// what stands in them. A name that no control has throws std::logic_error.
class ReportFilters : public QWidget {
  Q_OBJECT

 public:
  // The drop list of the account pickers floats above the fields of `screen`, which is this widget's window or the
  // whole of its screen.
  ReportFilters(const std::vector<ReportFilterRow>& rows, session::Workplace& workplace, QWidget* screen);

  bool chosen(std::string_view name) const;  // a button or check box
  // The number behind "<name>_" of the chosen button of an array.
  int choice(const std::string& name) const;
  std::string text(std::string_view name) const;
  // Of a code box: the account that it stands for, or 0.
  std::int64_t account(std::string_view name) const;
  // Of a drop list; null when the text is no entry of it.
  store::Value bound(std::string_view name) const;
  text::DateTime day(std::string_view name) const;
  // What a control stands for: the bound value of a list, the code of a code box, a day, or the text; null for nothing.
  store::Value value(std::string_view name) const;
  ReportPeriod period(std::string_view from = "LedgerDt_0", std::string_view to = "LedgerDt_1") const;

  // All that is chosen and typed, as one text that is another when anything in it is.
  std::string state() const;

  // As the user would.
  void choose(std::string_view name, bool chosen = true);
  void setText(std::string_view name, const std::string& text);
  void focus(std::string_view name);

 Q_SIGNALS:
  void confirmed();  // Enter in a date or a text
  void optionChosen(const std::string& name);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Governed {
    QAbstractButton* button;
    std::vector<std::string> inputs;
  };

  struct ListSource {
    store::Recordset rows;
    int bound;  // field
  };

  void addRow(const ReportFilterRow& filters, QGridLayout& grid, int line);
  QWidget* lead(const ReportFilter& filter);
  void addControls(const ReportFilter& filter, QWidget* leading, QHBoxLayout& row);
  void addDates(const ReportPeriodBoxes& boxes, QHBoxLayout& row);
  void addAccount(const ReportAccount& account, QHBoxLayout& row);
  void addItem(const ReportItem& item, QHBoxLayout& row);
  template <typename Filter>
  void addCodeBox(CodeBox& code, const Filter& filter, QHBoxLayout& row);
  void addList(const ReportList& list, QHBoxLayout& row);
  void addEntryBoxes(const ReportEntryBoxes& boxes, QHBoxLayout& row);
  store::Recordset read(const ReportList& list) const;
  void alignLeads();
  QWidget* makeOptions(const ReportOptions& options);
  QAbstractButton* makeButton(const std::string& name, const std::string& caption, const std::string& group,
                              std::vector<std::string> inputs);
  void name(QWidget& control, const std::string& objectName, const std::string& accessibleName);
  void makeGovernor();

  template <typename Control>
  Control& control(std::string_view name) const;

  session::Workplace& workplace_;
  QWidget* screen_;
  AccountDropList* accounts_ = nullptr;
  CodeDropList* items_ = nullptr;
  std::map<std::string, QWidget*, std::less<>> controls_;
  std::map<std::string, QButtonGroup*, std::less<>> groups_;
  std::map<std::string, ListSource, std::less<>> lists_;
  std::vector<Governed> governed_;
  // What leads the filters behind the first, row by row, by the kinds of filters in the row.
  std::map<std::vector<std::size_t>, std::vector<std::vector<QWidget*>>> leads_;
};

template <typename Control>
Control& ReportFilters::control(std::string_view name) const {
  const auto found = controls_.find(name);
  auto* typed = found == controls_.end() ? nullptr : qobject_cast<Control*>(found->second);
  if (!typed) throw std::logic_error("the report has no control " + std::string(name));
  return *typed;
}

}  // namespace velmo::frame
