#include "frame/account_code_box.h"

#include <QKeyEvent>
#include <cmath>

#include "frame/drop_place.h"
#include "text/number.h"

namespace velmo::frame {
namespace {

// The code that a text stands for, when it is one that an account can have.
std::optional<std::int64_t> accountCode(const QString& text) {
  const auto number = text::numberFrom(text.toStdString());
  constexpr double largestCode = 2147483647;
  if (!number || std::floor(*number) != *number || std::fabs(*number) > largestCode) return std::nullopt;
  return static_cast<std::int64_t>(*number);
}

Account currentAccount(const store::Recordset& accounts) {
  return {.code = accounts.integer("acccode"),
          .name = accounts.text("accname"),
          .address = accounts.text("address"),
          .phone = accounts.text("phone"),
          .contact = accounts.text("contact"),
          .terms = accounts.text("creditterms"),
          .creditLimit = accounts.number("creditlimit"),
          .empId = accounts.integer("empid")};
}

}  // namespace

PickListSource accountSource(const std::string& condition) {
  return {.select = "SELECT acccode, accname, (AccCode & '  ' & AccName) as Account from acclevel3",
          .condition = condition,
          .order = "acccode",
          .displayColumn = "Account",
          .keyColumn = "acccode",
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
    list_.narrow(typed);
  });
}

void AccountCodeBox::lookUp() {
  const auto code = accountCode(text());
  store::Recordset& accounts = context_.AccountsRS;
  if (!accounts.isOpen() || accounts.isEmpty()) {
    if (kind_.withoutAccounts == WithoutAccounts::Clear || !code) forgetAccount();
    return;
  }
  if (code) accounts.moveFirst();
  if (!code || !accounts.find("AccCode = " + std::to_string(*code))) {
    forgetAccount();
    return;
  }
  account_ = currentAccount(accounts);
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
  list_.boxLeft();
}

bool AccountCodeBox::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    event->accept();
    return true;
  }
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

void AccountCodeBox::moveOnFromList() {
  Q_EMIT moveOn();
}

}  // namespace velmo::frame
