#pragma once

#include <optional>
#include <string>

#include "frame/picking/account.h"
#include "frame/picking/account_drop_list.h"
#include "frame/picking/code_box.h"
#include "session/login_context.h"

namespace velmo::frame {

enum class WithoutAccounts { Clear, LeaveAsIs };  // what a lookup does while no accounts have been read

struct AccountBoxKind {
  std::string listCondition;  // on acclevel3: "Level1ID=120 or Level1ID=210"
  WithoutAccounts withoutAccounts = WithoutAccounts::Clear;
};

// The accounts that fulfil the condition, as a drop list shows them.
PickListSource accountSource(const std::string& condition);

// A box for the code of an account, which is looked up among LoginContext::AccountsRS.
class AccountCodeBox : public CodeBox {
  Q_OBJECT

 public:
  AccountCodeBox(session::LoginContext& context, AccountDropList& list, AccountBoxKind kind, QWidget* parent = nullptr);

  const std::optional<Account>& account() const { return account_; }
  store::Value code() const override { return account_ ? store::Value(account_->code) : store::Value(); }

 Q_SIGNALS:
  // Each at every change of the text, also when the same account is found again.
  void accountResolved(const velmo::frame::Account& account);
  void accountCleared();

 protected:
  void lookUp() override;

 private:
  void forgetAccount();

  session::LoginContext& context_;
  AccountBoxKind kind_;
  std::optional<Account> account_;
};

}  // namespace velmo::frame
