#pragma once

#include <QWidget>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "frame/report_type.h"
#include "session/workplace.h"

class QAbstractButton;
class QButtonGroup;
class QGridLayout;
class QHBoxLayout;

namespace velmo::frame {

class AccountCodeBox;
class AccountDropList;

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
  ReportPeriod period(std::string_view from = "LedgerDt_0", std::string_view to = "LedgerDt_1") const;

  // As the user would.
  void choose(std::string_view name, bool chosen = true);
  void setText(std::string_view name, const std::string& text);
  void focus(std::string_view name);

  bool isEmpty() const { return controls_.empty(); }

 Q_SIGNALS:
  void confirmed();  // Enter in a date

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Governor {
    QAbstractButton* button;
    std::vector<std::string> inputs;
  };

  QWidget* lead(const ReportFilter& filter);
  void addControls(const ReportFilter& filter, QWidget* leading, QHBoxLayout& row);
  void addDates(const ReportPeriodBoxes& boxes, QHBoxLayout& row);
  void addAccount(const ReportAccount& account, QHBoxLayout& row);
  void addList(const ReportList& list, QHBoxLayout& row);
  QWidget* makeOptions(const ReportOptions& options);
  QAbstractButton* makeButton(const std::string& name, const std::string& caption, const std::string& group,
                              std::vector<std::string> inputs);
  void name(QWidget& control, const std::string& objectName, const std::string& accessibleName);
  void govern();

  template <typename Control>
  Control& control(std::string_view name) const;

  session::Workplace& workplace_;
  QWidget* screen_;
  AccountDropList* accounts_ = nullptr;
  std::map<std::string, QWidget*, std::less<>> controls_;
  std::map<std::string, QButtonGroup*, std::less<>> groups_;
  std::vector<Governor> governors_;
};

}  // namespace velmo::frame
