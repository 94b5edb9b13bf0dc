#include <QAbstractButton>
#include <QKeyEvent>
#include <QLineEdit>

#include "forms/caption.h"
#include "forms/date_picker.h"
#include "forms/drop_combo.h"
#include "frame/picking/account_code_box.h"
#include "frame/report/report_filters.h"

namespace velmo::frame {

bool ReportFilters::chosen(std::string_view name) const {
  return control<QAbstractButton>(name).isChecked();
}

int ReportFilters::choice(const std::string& name) const {
  for (int i = 0; controls_.contains(name + "_" + std::to_string(i)); ++i)
    if (chosen(name + "_" + std::to_string(i))) return i;
  throw std::logic_error("the report has no choice " + name);
}

std::string ReportFilters::text(std::string_view name) const {
  if (const auto* list = qobject_cast<forms::DropCombo*>(&control<QWidget>(name)))
    return list->currentText().toStdString();
  return control<QLineEdit>(name).text().toStdString();
}

std::int64_t ReportFilters::account(std::string_view name) const {
  return store::integerOf(control<AccountCodeBox>(name).code());
}

store::Value ReportFilters::bound(std::string_view name) const {
  return control<forms::DropCombo>(name).boundValue();
}

text::DateTime ReportFilters::day(std::string_view name) const {
  return control<forms::DatePicker>(name).day();
}

ReportPeriod ReportFilters::period(std::string_view from, std::string_view to) const {
  return {.from = day(from), .to = day(to)};
}

store::Value ReportFilters::value(std::string_view name) const {
  const QWidget& asked = control<QWidget>(name);
  if (const auto* list = qobject_cast<const forms::DropCombo*>(&asked)) return list->boundValue();
  if (const auto* code = qobject_cast<const CodeBox*>(&asked)) return code->code();
  if (const auto* picker = qobject_cast<const forms::DatePicker*>(&asked)) return picker->day();
  const std::string typed = text(name);
  return typed.empty() ? store::Value() : store::Value(typed);
}

std::string ReportFilters::state() const {
  std::string all;
  for (const auto& [name, control] : controls_) {
    const auto* button = qobject_cast<const QAbstractButton*>(control);
    const std::string stands = button ? std::to_string(button->isChecked()) : store::textOf(value(name));
    all += std::to_string(stands.size()) + ':' + stands;
  }
  return all;
}

void ReportFilters::choose(std::string_view name, bool chosen) {
  control<QAbstractButton>(name).setChecked(chosen);
}

void ReportFilters::setText(std::string_view name, const std::string& text) {
  control<QLineEdit>(name).setText(forms::shownText(text));
}

void ReportFilters::focus(std::string_view name) {
  control<QWidget>(name).setFocus(Qt::OtherFocusReason);
}

bool ReportFilters::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      Q_EMIT confirmed();
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace velmo::frame
