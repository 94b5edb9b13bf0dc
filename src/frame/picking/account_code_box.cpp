#include "frame/picking/account_code_box.h"

#include <QKeyEvent>

#include "frame/picking/drop_place.h"

namespace velmo::frame {
namespace {

bool isCommand(const QKeyEvent& key) {
  const bool isCharacter = key.key() < Qt::Key_Escape;
  const bool isFunction = key.key() >= Qt::Key_F1 && key.key() <= Qt::Key_F35;
  return isFunction || (isCharacter && (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)));
}

}  // namespace

PickListSource accountSource(const std::string& condition) {
  return {.select = "SELECT acccode, accname, (AccCode & '  ' & AccName) as Account from acclevel3",
          .condition = condition,
          .order = "acccode",
          .displayColumn = "Account",
          .keyColumn = "acccode",
          .beforeName = "  ",
          .tables = {"AccLevel3"}};
}

AccountCodeBox::AccountCodeBox(session::LoginContext& context, AccountDropList& list, AccountBoxKind kind,
                               QWidget* parent)
    : QLineEdit(parent),
      context_(context),
      list_(list),
      kind_(std::move(kind)),
      entries_(context.KORDconn, accountSource(kind_.listCondition)) {
  setToolTip("Type a part of the code or the name, then Down to pick; Esc clears");
  connect(this, &QLineEdit::textChanged, this, &AccountCodeBox::lookUp);
  connect(this, &QLineEdit::textEdited, this, [this](const QString& typed) {
    if (list_.ListOwner() != this) list_.takeOver(*this);
    if (!typed.isEmpty()) return list_.showMatching(typed);
    list_.takeOver(*this);
    list_.hide();
  });
}

void AccountCodeBox::lookUp() {
  const std::string typed = text().toStdString();
  const bool knowsAccounts = context_.AccountsRS.isOpen() && !context_.AccountsRS.isEmpty();
  if (!knowsAccounts && kind_.withoutAccounts == WithoutAccounts::LeaveAsIs && accountCode(typed)) return;
  std::optional<Account> found = findAccount(context_.AccountsRS, typed);
  if (!found) return forgetAccount();
  account_ = std::move(found);
  Q_EMIT accountResolved(*account_);
}

void AccountCodeBox::forgetAccount() {
  account_.reset();
  Q_EMIT accountCleared();
}

void AccountCodeBox::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  if (isPassingFocusLoss(*event)) return;
  selectAll();
  list_.takeOver(*this);
}

void AccountCodeBox::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  if (isPassingFocusLoss(*event)) return;
  // "12,001,001" finds its account as well; statements and documents need the bare code.
  const QString code = account_ ? QString::number(account_->code) : QString();
  if (text() != code) setText(code);
  list_.ownerLeft();
}

// A command, whatever it says of the code, leaves the box as it is, and the list would lie over what comes of it.
bool AccountCodeBox::event(QEvent* event) {
  if (event->type() != QEvent::ShortcutOverride) return QLineEdit::event(event);
  const auto& key = *static_cast<QKeyEvent*>(event);
  if (key.key() == Qt::Key_Escape) {
    event->accept();
    return true;
  }
  if (isCommand(key) && list_.ListOwner() == this) list_.hide();
  return QLineEdit::event(event);
}

void AccountCodeBox::keyPressEvent(QKeyEvent* event) {
  const bool listShown = list_.isVisible() && list_.ListOwner() == this;
  switch (event->key()) {
    case Qt::Key_Down:
    case Qt::Key_Up:
      if (!listShown) break;
      list_.enter();
      return;
    case Qt::Key_Escape:
      clear();
      list_.hide();
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      list_.hide();
      Q_EMIT moveOn();
      return;
    default:
      break;
  }
  QLineEdit::keyPressEvent(event);
}

void AccountCodeBox::takeFromList(const QString& code) {
  setText(code);
  setFocus(Qt::OtherFocusReason);
}

void AccountCodeBox::moveOnFromList() {
  Q_EMIT moveOn();
}

void AccountCodeBox::giveUpList() {
  clear();
  setFocus(Qt::OtherFocusReason);
}

}  // namespace velmo::frame
