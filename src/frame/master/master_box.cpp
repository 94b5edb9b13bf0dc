#include "frame/master/master_box.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "forms/caption.h"
#include "forms/digits_box.h"
#include "forms/drop_combo.h"
#include "forms/look.h"
#include "forms/number_box.h"
#include "forms/optional_day.h"
#include "text/blanks.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::frame {
namespace {

constexpr int longestText = 255;
constexpr double largestAmount = 999999999999;

// Every digit that was saved, and two places at least, so that a price that is looked at is not rounded.
constexpr const char* amountFormat = "0.00##########";

QString optionName(const MasterField& field, int option) {
  return forms::shownText(field.name) + QLatin1Char('_') + QString::number(option);
}

// The list is read when it is about to be seen.
class LateCombo : public forms::DropCombo {
 public:
  LateCombo(QWidget* parent, std::function<void()> beforeList)
      : DropCombo(parent), beforeList_(std::move(beforeList)) {}
  void showPopup() override {
    beforeList_();
    DropCombo::showPopup();
  }

 private:
  std::function<void()> beforeList_;
};

}  // namespace

MasterBox::MasterBox(const MasterField& field, session::Workplace& workplace, QWidget& screen)
    : field_(field), workplace_(workplace), screen_(screen) {
  choices_ = field_.choices.statement;
  control_ = makeControl();
  if (field_.kind != BoxKind::OneOfTwo) control_->setObjectName(forms::shownText(field_.name));
  if (control_->accessibleName().isEmpty()) control_->setAccessibleName(forms::shownText(field_.caption).remove('&'));
  place_ = field_.keeper.button.empty() ? control_ : withKeeper();
}

QWidget* MasterBox::makeControl() {
  switch (field_.kind) {
    case BoxKind::Text:
    case BoxKind::Secret:
    case BoxKind::Digits:
    case BoxKind::Amount:
      return makeLine();
    case BoxKind::Account:
      return makeAccountLine();
    case BoxKind::Choice:
    case BoxKind::Suggestion:
      return makeCombo();
    case BoxKind::Check:
      check_ = new QCheckBox(forms::shownText(field_.caption));
      connect(check_, &QCheckBox::toggled, this, &MasterBox::tell);
      return check_;
    case BoxKind::OneOfTwo:
      return makeOptions();
    case BoxKind::Day:
      day_ = new forms::OptionalDay([this] { return workplace_.clock.today(); });
      connect(day_, &QDateEdit::dateChanged, this, &MasterBox::tell);
      return day_;
  }
  return nullptr;
}

QWidget* MasterBox::makeLine() {
  if (field_.kind == BoxKind::Amount)
    line_ = new forms::NumberBox(nullptr, {.restFormat = amountFormat, .keyLimit = largestAmount});
  else if (field_.kind == BoxKind::Digits)
    line_ = new forms::DigitsBox;
  else
    line_ = new QLineEdit;
  allowLongest(longestText);
  if (field_.kind == BoxKind::Secret) line_->setEchoMode(QLineEdit::Password);
  connect(line_, &QLineEdit::textChanged, this, &MasterBox::tell);
  return line_;
}

// All boxes of a screen share one list.
QWidget* MasterBox::makeAccountLine() {
  auto* list = screen_.findChild<AccountDropList*>();
  if (!list) list = new AccountDropList(&screen_);
  account_ = new AccountCodeBox(workplace_.context, *list, {.listCondition = field_.accounts});
  line_ = account_;
  connect(line_, &QLineEdit::textChanged, this, &MasterBox::tell);
  connect(account_, &AccountCodeBox::moveOn, this, [this] {
    QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
    QCoreApplication::sendEvent(account_, &tab);
  });
  return line_;
}

QWidget* MasterBox::makeCombo() {
  combo_ = new LateCombo(nullptr, [this] { keepValue(); });
  if (combo_->lineEdit()) combo_->lineEdit()->setMaxLength(longestText);
  connect(combo_, &QComboBox::editTextChanged, this, &MasterBox::tell);
  return combo_;
}

QWidget* MasterBox::makeOptions() {
  auto* row = new QWidget;
  auto* layout = new QHBoxLayout(row);
  forms::setGrid(*layout, 0);
  options_ = new QButtonGroup(row);
  for (int i = 0; i < static_cast<int>(field_.options.size()); ++i) {
    auto* option = new QRadioButton(forms::shownText(field_.options[static_cast<std::size_t>(i)]).trimmed());
    option->setObjectName(optionName(field_, i));
    options_->addButton(option, i);
    layout->addWidget(option);
  }
  layout->addStretch(1);
  row->setFocusProxy(options_->button(0));
  connect(options_, &QButtonGroup::idToggled, this, [this](int, bool on) {
    if (on) tell();
  });
  return row;
}

QWidget* MasterBox::withKeeper() {
  auto* row = new QWidget;
  auto* layout = new QHBoxLayout(row);
  forms::setGrid(*layout, 0, forms::spacing::Tight);
  layout->addWidget(control_, 1);
  keeper_ = new QPushButton(QStringLiteral("…"));
  keeper_->setObjectName(forms::shownText(field_.keeper.button));
  keeper_->setAccessibleName(forms::shownText(field_.keeper.hint));
  keeper_->setToolTip(forms::shownText(field_.keeper.hint));
  keeper_->setAutoDefault(false);
  keeper_->setFixedWidth(46);
  keeper_->setEnabled(workplace_.screens.hasScreen(field_.keeper.dialog));
  layout->addWidget(keeper_);
  connect(keeper_, &QPushButton::clicked, this, [this] {
    workplace_.screens.openDialog(field_.keeper.dialog);
    keepValue();
    control_->setFocus(Qt::OtherFocusReason);
  });
  return row;
}

void MasterBox::tell() {
  if (!showing_) Q_EMIT edited();
}

void MasterBox::readChoices() {
  const ChoiceRows& choices = field_.choices;
  combo_->setSource(store::Recordset(workplace_.context.KORDconn, choices_, store::LockType::ReadOnly),
                    choices.shownColumn, choices.boundColumn.empty() ? choices.shownColumn : choices.boundColumn);
  choicesRead_ = true;
}

void MasterBox::offer(const std::string& statement) {
  if (choices_ == statement) return;
  choices_ = statement;
  keepValue();
}

void MasterBox::keepValue() {
  showing_ = true;
  const QString typed = combo_->currentText();
  const store::Value chosen = combo_->boundValue();
  readChoices();
  if (store::isNull(chosen))
    combo_->setEditText(typed);
  else
    combo_->setBoundValue(chosen);  // empties it when the entry is gone
  showing_ = false;
}

void MasterBox::show(const store::Value& value) {
  showing_ = true;
  if (line_) {
    const std::string text = store::textOf(value);
    allowLongest(longestText);
    line_->setText(QString::fromStdString(
        field_.kind == BoxKind::Amount && !store::isNull(value) ? text::formatText(text, amountFormat) : text));
    line_->setCursorPosition(0);
  } else if (combo_) {
    if (!choicesRead_) readChoices();
    if (field_.kind == BoxKind::Choice)
      combo_->setBoundValue(value);
    else
      combo_->setEditText(QString::fromStdString(store::textOf(value)));
    combo_->lineEdit()->setCursorPosition(0);
  } else if (check_) {
    check_->setChecked(store::isYes(value));
  } else if (day_) {
    store::isNull(value) ? day_->makeEmpty() : day_->setDay(store::dateOf(value));
  } else if (options_) {
    options_->button(store::isYes(value) ? 0 : 1)->setChecked(true);
  }
  showing_ = false;
}

void MasterBox::allowLongest(int characters) {
  if (field_.kind == BoxKind::Text || field_.kind == BoxKind::Secret) line_->setMaxLength(characters);
}

void MasterBox::showInitial(const text::DateTime& today) {
  if (day_) return show(today);
  if (check_ || options_) return show(field_.initial == "yes");
  showInitialText();
  if (field_.longest > 0) allowLongest(field_.longest);
}

void MasterBox::showInitialText() {
  if (field_.initial.empty()) return show({});
  show(field_.initial);
  // The bound column of a list may be a number.
  if (field_.kind == BoxKind::Choice && store::isNull(combo_->boundValue()))
    if (const std::optional<double> number = text::numberFrom(field_.initial)) show(*number);
}

std::string MasterBox::text() const {
  if (line_) return line_->text().toStdString();
  if (combo_) return combo_->currentText().toStdString();
  return store::textOf(value());
}

std::string MasterBox::textToSave() const {
  const bool isTyped = combo_ || (line_ && !line_->isReadOnly());
  if (!isTyped || field_.kind == BoxKind::Secret) return text();
  return std::string(text::trimmed(text()));
}

void MasterBox::setText(const std::string& text) {
  if (line_)
    line_->setText(QString::fromStdString(text));
  else if (combo_)
    combo_->setEditText(QString::fromStdString(text));
}

store::Value MasterBox::value() const {
  if (account_ && account_->account()) return account_->account()->code;
  if (line_) {
    const std::string text = textToSave();
    const bool isText = field_.kind == BoxKind::Text || field_.kind == BoxKind::Secret;
    return text.empty() && !isText ? store::Value() : store::Value(text);
  }
  if (field_.kind == BoxKind::Choice) return combo_->boundValue();
  if (combo_) return textToSave();
  if (check_) return check_->isChecked();
  if (options_) return options_->checkedId() == 0;
  return day_->isEmpty() ? store::Value() : store::Value(day_->day());
}

void MasterBox::setOpen(bool open) {
  if (line_) {
    line_->setReadOnly(!open);
    line_->setFocusPolicy(open ? Qt::StrongFocus : Qt::ClickFocus);
  } else {
    control_->setEnabled(open);
  }
  if (keeper_) keeper_->setEnabled(open && workplace_.screens.hasScreen(field_.keeper.dialog));
}

}  // namespace velmo::frame
