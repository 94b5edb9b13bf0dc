#include "frame/report/report_filters.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <ranges>

#include "forms/caption.h"
#include "forms/date_picker.h"
#include "forms/digits_box.h"
#include "forms/drop_combo.h"
#include "forms/look.h"
#include "forms/name_box.h"
#include "frame/picking/account_code_box.h"
#include "frame/picking/account_drop_list.h"
#include "frame/report/input_governor.h"
#include "frame/report/report_entry_boxes.h"

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
  auto* label = new QLabel(forms::shownText(text));
  forms::makeCaption(*label);
  return label;
}

}  // namespace

ReportFilters::ReportFilters(const std::vector<ReportFilterRow>& rows, session::Workplace& workplace, QWidget* screen)
    : QWidget(screen), workplace_(workplace), screen_(screen) {
  auto* grid = new QGridLayout(this);
  forms::setGrid(*grid, 0);
  grid->setColumnStretch(1, 1);
  int line = 0;
  for (const ReportFilterRow& filters : rows) addRow(filters, *grid, line++);
  alignLeads();
  makeGovernor();
}

void ReportFilters::addRow(const ReportFilterRow& filters, QGridLayout& grid, int line) {
  if (const auto* options = std::get_if<ReportOptions>(&filters.front())) {
    grid.addWidget(makeOptions(*options), line, 0, 1, 2);
    return;
  }
  QWidget* leading = lead(filters.front());
  if (filters.size() == 1 && std::holds_alternative<ReportOption>(filters.front())) {
    grid.addWidget(leading, line, 0, 1, 2);
    return;
  }
  if (leading) grid.addWidget(leading, line, 0);
  auto* rest = new QHBoxLayout;
  forms::setGrid(*rest, 0);
  addControls(filters.front(), leading, *rest);
  std::vector<QWidget*> leads;
  for (const ReportFilter& filter : filters | std::views::drop(1)) {
    QWidget* before = lead(filter);
    if (before) rest->addWidget(before);
    addControls(filter, before, *rest);
    leads.push_back(before);
  }
  const bool fills = std::ranges::any_of(filters, [](const ReportFilter& filter) {
    return std::holds_alternative<ReportAccount>(filter) || std::holds_alternative<ReportItem>(filter);
  });
  if (!fills) rest->addStretch(1);
  grid.addLayout(rest, line, 1);
  std::vector<std::size_t> kinds;
  for (const ReportFilter& filter : filters) kinds.push_back(filter.index());
  leads_[kinds].push_back(std::move(leads));
}

void ReportFilters::alignLeads() {
  for (const auto& [kinds, rows] : leads_)
    for (std::size_t at = 0; at + 1 < kinds.size(); ++at) {
      int width = 0;
      for (const std::vector<QWidget*>& leads : rows)
        if (leads[at]) width = std::max(width, leads[at]->sizeHint().width());
      for (const std::vector<QWidget*>& leads : rows)
        if (leads[at]) leads[at]->setMinimumWidth(width);
    }
}

void ReportFilters::makeGovernor() {
  auto* governor = new InputGovernor(this);
  for (const auto& [button, names] : governed_) {
    std::vector<QWidget*> inputs;
    for (const std::string& input : names) inputs.push_back(&control<QWidget>(input));
    governor->add(*button, std::move(inputs));
  }
  for (const auto& [name, group] : groups_) group->buttons().front()->setChecked(true);
  governor->apply();
}

void ReportFilters::name(QWidget& control, const std::string& objectName, const std::string& accessibleName) {
  control.setObjectName(forms::shownText(objectName));
  control.setAccessibleName(forms::shownText(accessibleName.empty() ? objectName : plain(accessibleName)));
  controls_[objectName] = &control;
}

QAbstractButton* ReportFilters::makeButton(const std::string& name, const std::string& caption,
                                           const std::string& group, std::vector<std::string> inputs) {
  QAbstractButton* button = nullptr;
  if (group.empty()) {
    button = new QCheckBox(forms::shownText(caption));
  } else {
    button = new QRadioButton(forms::shownText(caption));
    QButtonGroup*& members = groups_[group];
    if (!members) members = new QButtonGroup(this);
    members->addButton(button);
  }
  this->name(*button, name, caption);
  governed_.push_back({button, std::move(inputs)});
  connect(button, &QAbstractButton::toggled, this, [this, name](bool chosen) {
    if (chosen) Q_EMIT optionChosen(name);
  });
  return button;
}

QWidget* ReportFilters::makeOptions(const ReportOptions& options) {
  auto* frame = new QGroupBox(forms::shownText(options.caption));
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
                               [&](const ReportItem& item) -> QWidget* { return caption(item.caption); },
                               [&](const ReportList& list) -> QWidget* { return caption(list.caption); },
                               [&](const ReportText& text) -> QWidget* { return caption(text.caption); },
                               [&](const ReportDigits& digits) -> QWidget* { return caption(digits.caption); },
                               [](const ReportOptions&) -> QWidget* { return nullptr; },
                               [](const ReportEntryBoxes&) -> QWidget* { return nullptr; }},
                    filter);
}

void ReportFilters::addControls(const ReportFilter& filter, QWidget* leading, QHBoxLayout& row) {
  std::visit(Overloaded{[](const ReportOption&) {}, [](const ReportOptions&) {},
                        [&](const ReportPeriodBoxes& boxes) { addDates(boxes, row); },
                        [&](const ReportAccount& account) { addAccount(account, row); },
                        [&](const ReportItem& item) { addItem(item, row); },
                        [&](const ReportList& list) { addList(list, row); },
                        [&](const ReportEntryBoxes& boxes) { addEntryBoxes(boxes, row); },
                        [&](const ReportText& text) {
                          auto* box = new QLineEdit(this);
                          box->setClearButtonEnabled(true);
                          box->setMinimumWidth(box->fontMetrics().averageCharWidth() * text.width);
                          box->installEventFilter(this);
                          name(*box, text.name, text.caption);
                          row.addWidget(box);
                        },
                        [&](const ReportDigits& digits) {
                          auto* box = new forms::DigitsBox(this, digits.longest);
                          box->setFixedWidth(box->fontMetrics().averageCharWidth() * (digits.longest + 4));
                          name(*box, digits.name, digits.caption);
                          row.addWidget(box);
                        }},
             filter);
  if (auto* label = qobject_cast<QLabel*>(leading)) label->setBuddy(&control<QWidget>(controlsOf(filter).front()));
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
  addCodeBox(*new AccountCodeBox(workplace_.context, *accounts_, {.listCondition = account.condition}, this), account,
             row);
}

void ReportFilters::addItem(const ReportItem& item, QHBoxLayout& row) {
  if (!items_)
    items_ = new CodeDropList({.name = "ItemCodeList", .spoken = "Items", .nothing = "No item matches"}, screen_);
  addCodeBox(*new ItemCodeBox(workplace_.context, *items_, item.kinds, this), item, row);
}

// The box, and the name of what it stands for.
template <typename Filter>
void ReportFilters::addCodeBox(CodeBox& code, const Filter& filter, QHBoxLayout& row) {
  code.setFixedWidth(code.fontMetrics().averageCharWidth() * 16);
  name(code, filter.code, filter.caption);
  auto* nameBox = new QLineEdit(this);
  forms::makeNameBox(*nameBox);
  name(*nameBox, filter.name, plain(filter.caption) + " name");
  connect(&code, &CodeBox::named, nameBox, &QLineEdit::setText);
  connect(&code, &CodeBox::moveOn, &code, [this] { focusNextChild(); });
  row.addWidget(&code);
  row.addWidget(nameBox, 1);
}

void ReportFilters::addList(const ReportList& list, QHBoxLayout& row) {
  auto* box = new forms::DropCombo(this);
  box->setMinimumContentsLength(list.width);
  name(*box, list.name, list.caption);
  row.addWidget(box);
  const auto reload = [this, box, list] {
    const store::Recordset rows = read(list);
    box->setSource(rows, list.shown, list.bound);
    lists_[list.name] = {rows, rows.isOpen() ? rows.fieldIndex(list.bound) : -1};
  };
  reload();
  if (!list.parent.empty())
    connect(&control<forms::DropCombo>(list.parent), &forms::DropCombo::entryChanged, box, reload);
}

store::Recordset ReportFilters::read(const ReportList& list) const {
  const store::Value parent = list.parent.empty() ? store::Value() : bound(list.parent);
  if (!list.parent.empty() && store::isNull(parent)) return {};
  return {workplace_.context.KORDconn, list.statement(parent), store::LockType::ReadOnly};
}

void ReportFilters::addEntryBoxes(const ReportEntryBoxes& boxes, QHBoxLayout& row) {
  auto* group = new ReportEntryGroup(boxes, this);
  row.addWidget(group);
  connect(&control<forms::DropCombo>(boxes.list), &forms::DropCombo::entryChanged, group, [this, group, boxes] {
    const auto& [rows, field] = lists_.at(boxes.list);
    const store::Value wanted = bound(boxes.list);
    std::int64_t at = store::isNull(wanted) ? -1 : rows.recordCount() - 1;
    while (at >= 0 && rows.valueAt(at, field) != wanted) --at;
    group->show(rows, at);
  });
}

}  // namespace velmo::frame
