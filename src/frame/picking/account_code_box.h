#pragma once

#include <QLineEdit>
#include <optional>
#include <string>

#include "frame/picking/account.h"
#include "frame/picking/account_drop_list.h"
#include "frame/picking/pick_list.h"
#include "session/login_context.h"

namespace velmo::frame {

enum class WithoutAccounts { Clear, LeaveAsIs };  // what a lookup does while no accounts have been read

struct AccountBoxKind {
  std::string listCondition;  // on acclevel3: "Level1ID=120 or Level1ID=210"
  WithoutAccounts withoutAccounts = WithoutAccounts::Clear;
};

// The accounts that fulfil the condition, as a drop list shows them.
PickListSource accountSource(const std::string& condition);

// A box for the code of an account. Typing a part of a code or a name narrows the drop list below it; a whole code is
// looked up at each change among LoginContext::AccountsRS. Enter leads on, Down or Up into the list, Esc clears; a text
// that is no account's code is cleared when the focus leaves.
class AccountCodeBox : public QLineEdit, public AccountListOwner {
  Q_OBJECT

 public:
  // One drop list serves all boxes of a screen.
  AccountCodeBox(session::LoginContext& context, AccountDropList& list, AccountBoxKind kind, QWidget* parent = nullptr);

  // What the text stands for at present.
  const std::optional<Account>& account() const { return account_; }
  PickList& entries() override { return entries_; }

  const QWidget& listAnchor() const override { return *this; }
  QRect listArea() const override { return rect(); }
  void takeFromList(const QString& code) override;
  void moveOnFromList() override;
  void giveUpList() override;

 Q_SIGNALS:
  // Each at every change of the text, also when the same account is found again.
  void accountResolved(const velmo::frame::Account& account);
  void accountCleared();
  // The user is done with this box.
  void moveOn();

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void lookUp();
  void forgetAccount();

  session::LoginContext& context_;
  AccountDropList& list_;
  AccountBoxKind kind_;
  PickList entries_;
  std::optional<Account> account_;
};

}  // namespace velmo::frame
