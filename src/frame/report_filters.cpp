#include "frame/report_filters.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QRadioButton>
#include <ranges>
#include <stdexcept>

#include "forms/date_picker.h"
#include "forms/digits_box.h"
#include "forms/drop_combo.h"
#include "forms/look.h"
#include "frame/account_code_box.h"
#include "frame/account_drop_list.h"
#include "frame/own_fields.h"

namespace velmo::frame {
namespace {

template <typename... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

// A caption without the mark of its access key, for a screen reader.
std::string plain(const std::string& caption) {
  QString text = QString::fromStdString(caption);
  text.replace("&&", "\x01").remove(u'&').replace("\x01", "&");
  return text.toStdString();
}

QLabel* caption(const std::string& text) {
  if (text.empty()) return nullptr;
  auto* label = new QLabel(shownText(text));
  forms::makeCaption(*label);
  return label;
}

// The control that a caption stands for.
std::string captioned(const ReportFilter& filter) {
  return std::visit(
      Overloaded{[](const ReportOption&) { return std::string(); }, [](const ReportOptions&) { return std::string(); },
                 [](const ReportPeriodBoxes& boxes) { return boxes.from; },
                 [](const ReportAccount& account) { return account.code; },
                 [](const ReportList& list) { return list.name; },
                 [](const ReportDigits& digits) { return digits.name; }},
      filter);
}

void clear(QWidget& control) {
  if (auto* list = qobject_cast<forms::DropCombo*>(&control))
    list->setBoundValue({});
  else if (auto* line = qobject_cast<QLineEdit*>(&control))
    line->clear();
  else if (auto* button = qobject_cast<QCheckBox*>(&control))
    button->setChecked(false);
}

}  // namespace

ReportFilters::ReportFilters(const std::vector<ReportFilterRow>& rows, session::Workplace& workplace, QWidget* screen)
    : QWidget(screen), workplace_(workplace), screen_(screen) {
  auto* grid = new QGridLayout(this);
  forms::setGrid(*grid, 0);
  grid->setColumnStretch(1, 1);
  int line = 0;
  for (const ReportFilterRow& filters : rows) {
    if (const auto* options = std::get_if<ReportOptions>(&filters.front())) {
      grid->addWidget(makeOptions(*options), line++, 0, 1, 2);
      continue;
    }
    QWidget* leading = lead(filters.front());
    if (filters.size() == 1 && std::holds_alternative<ReportOption>(filters.front())) {
      grid->addWidget(leading, line++, 0, 1, 2);
      continue;
    }
    if (leading) grid->addWidget(leading, line, 0);
    auto* rest = new QHBoxLayout;
    forms::setGrid(*rest, 0);
    addControls(filters.front(), leading, *rest);
    for (const ReportFilter& filter : filters | std::views::drop(1)) {
      QWidget* before = lead(filter);
      if (before) rest->addWidget(before);
      addControls(filter, before, *rest);
    }
    const bool fills = std::ranges::any_of(
        filters, [](const ReportFilter& filter) { return std::holds_alternative<ReportAccount>(filter); });
    if (!fills) rest->addStretch(1);
    grid->addLayout(rest, line++, 1);
  }
  for (const auto& [name, group] : groups_) group->buttons().front()->setChecked(true);
  govern();
}

void ReportFilters::name(QWidget& control, const std::string& objectName, const std::string& accessibleName) {
  control.setObjectName(shownText(objectName));
  control.setAccessibleName(shownText(accessibleName.empty() ? objectName : plain(accessibleName)));
  controls_[objectName] = &control;
}

QAbstractButton* ReportFilters::makeButton(const std::string& name, const std::string& caption,
                                           const std::string& group, std::vector<std::string> inputs) {
  QAbstractButton* button = nullptr;
  if (group.empty()) {
    button = new QCheckBox(shownText(caption));
  } else {
    button = new QRadioButton(shownText(caption));
    QButtonGroup*& members = groups_[group];
    if (!members) members = new QButtonGroup(this);
    members->addButton(button);
  }
  this->name(*button, name, caption);
  governors_.push_back({button, std::move(inputs)});
  connect(button, &QAbstractButton::toggled, this, &ReportFilters::govern);
  return button;
}

QWidget* ReportFilters::makeOptions(const ReportOptions& options) {
  auto* frame = new QGroupBox(shownText(options.caption));
  auto* grid = new QGridLayout(frame);
  grid->setVerticalSpacing(forms::spacing::Tight);
  grid->setHorizontalSpacing(forms::spacing::Section);
  for (int i = 0; i < static_cast<int>(options.captions.size()); ++i)
    grid->addWidget(makeButton(options.name + "_" + std::to_string(i), options.captions[static_cast<std::size_t>(i)],
                               options.name, {}),
                    i / options.columns, i % options.columns);
  return frame;
}

QWidget* ReportFilters::lead(const ReportFilter& filter) {
  return std::visit(Overloaded{[&](const ReportOption& option) -> QWidget* {
                                 return makeButton(option.name, option.caption, option.group, option.inputs);
                               },
                               [&](const ReportPeriodBoxes& boxes) -> QWidget* {
                                 if (boxes.check.empty()) return caption(boxes.caption);
                                 return makeButton(boxes.check, boxes.caption, {}, {boxes.from, boxes.to});
                               },
                               [&](const ReportAccount& account) -> QWidget* { return caption(account.caption); },
                               [&](const ReportList& list) -> QWidget* { return caption(list.caption); },
                               [&](const ReportDigits& digits) -> QWidget* { return caption(digits.caption); },
                               [](const ReportOptions&) -> QWidget* { return nullptr; }},
                    filter);
}

void ReportFilters::addControls(const ReportFilter& filter, QWidget* leading, QHBoxLayout& row) {
  std::visit(Overloaded{[](const ReportOption&) {}, [](const ReportOptions&) {},
                        [&](const ReportPeriodBoxes& boxes) { addDates(boxes, row); },
                        [&](const ReportAccount& account) { addAccount(account, row); },
                        [&](const ReportList& list) { addList(list, row); },
                        [&](const ReportDigits& digits) {
                          auto* box = new forms::DigitsBox(this, digits.longest);
                          box->setFixedWidth(box->fontMetrics().averageCharWidth() * (digits.longest + 4));
                          name(*box, digits.name, digits.caption);
                          row.addWidget(box);
                        }},
             filter);
  if (auto* label = qobject_cast<QLabel*>(leading)) label->setBuddy(&control<QWidget>(captioned(filter)));
}

void ReportFilters::addDates(const ReportPeriodBoxes& boxes, QHBoxLayout& row) {
  const ReportPeriod period = initialPeriod(workplace_.context, workplace_.clock.today(), boxes.start);
  const auto add = [&](const std::string& objectName, const text::DateTime& day, const char* words) {
    auto* picker = new forms::DatePicker(this);
    picker->setDay(day);
    picker->setFixedWidth(picker->fontMetrics().horizontalAdvance("00-00-0000") + 52);
    picker->installEventFilter(this);
    name(*picker, objectName, words);
    row.addWidget(picker);
  };
  add(boxes.from, period.from, "From date");
  row.addWidget(caption("To"));
  add(boxes.to, period.to, "To date");
}

void ReportFilters::addAccount(const ReportAccount& account, QHBoxLayout& row) {
  if (!accounts_) {
    accounts_ = new AccountDropList(screen_);
    accounts_->setObjectName("AccCodeList");
  }
  auto* code = new AccountCodeBox(workplace_.context, *accounts_, {.listCondition = account.condition}, this);
  code->setFixedWidth(code->fontMetrics().averageCharWidth() * 16);
  name(*code, account.code, account.caption);
  auto* nameBox = new QLineEdit(this);
  nameBox->setReadOnly(true);
  nameBox->setFocusPolicy(Qt::NoFocus);
  name(*nameBox, account.name, plain(account.caption) + " name");
  connect(code, &AccountCodeBox::accountResolved, nameBox,
          [nameBox](const Account& found) { nameBox->setText(shownText(found.name)); });
  connect(code, &AccountCodeBox::accountCleared, nameBox, &QLineEdit::clear);
  connect(code, &AccountCodeBox::moveOn, code, [this] { focusNextChild(); });
  row.addWidget(code);
  row.addWidget(nameBox, 1);
}

void ReportFilters::addList(const ReportList& list, QHBoxLayout& row) {
  auto* box = new forms::DropCombo(this);
  box->setMinimumContentsLength(24);
  name(*box, list.name, list.caption);
  row.addWidget(box);
  const auto read = [this, box, list] {
    const store::Value parent = list.parent.empty() ? store::Value() : bound(list.parent);
    if (!list.parent.empty() && store::isNull(parent)) return box->setSource({}, list.shown, list.bound);
    box->setSource(store::Recordset(workplace_.context.KORDconn, list.statement(parent), store::LockType::ReadOnly),
                   list.shown, list.bound);
  };
  read();
  if (!list.parent.empty())
    connect(&control<forms::DropCombo>(list.parent), &forms::DropCombo::entryChanged, box, read);
}

// A control is enabled while every button that has it among its inputs is chosen and enabled itself.
void ReportFilters::govern() {
  std::map<QWidget*, bool> wanted;
  for (bool settled = false; !settled;) {
    settled = true;
    for (const Governor& governor : governors_) {
      const auto own = wanted.find(governor.button);
      const bool gives = governor.button->isChecked() && (own == wanted.end() || own->second);
      for (const std::string& input : governor.inputs) {
        QWidget* governed = &control<QWidget>(input);
        const auto [entry, isNew] = wanted.try_emplace(governed, gives);
        if (isNew || (entry->second && !gives)) settled = false;
        entry->second = entry->second && gives;
      }
    }
  }
  for (const auto& [governed, enabled] : wanted) {
    if (!enabled && governed->isEnabled()) clear(*governed);
    governed->setEnabled(enabled);
  }
}

template <typename Control>
Control& ReportFilters::control(std::string_view name) const {
  const auto found = controls_.find(name);
  auto* typed = found == controls_.end() ? nullptr : qobject_cast<Control*>(found->second);
  if (!typed) throw std::logic_error("the report has no control " + std::string(name));
  return *typed;
}

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
  const auto& account = control<AccountCodeBox>(name).account();
  return account ? account->code : 0;
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

void ReportFilters::choose(std::string_view name, bool chosen) {
  control<QAbstractButton>(name).setChecked(chosen);
}

void ReportFilters::setText(std::string_view name, const std::string& text) {
  control<QLineEdit>(name).setText(shownText(text));
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
