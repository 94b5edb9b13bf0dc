#include "frame/picking/account_code_box.h"

#include "forms/caption.h"

namespace velmo::frame {

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
    : CodeBox(context.KORDconn, accountSource(kind.listCondition), list, parent),
      context_(context),
      kind_(std::move(kind)) {}

void AccountCodeBox::lookUp() {
  const std::string typed = text().toStdString();
  const bool knowsAccounts = context_.AccountsRS.isOpen() && !context_.AccountsRS.isEmpty();
  if (!knowsAccounts && kind_.withoutAccounts == WithoutAccounts::LeaveAsIs && accountCode(typed)) return;
  std::optional<Account> found = findAccount(context_.AccountsRS, typed);
  if (!found) return forgetAccount();
  account_ = std::move(found);
  Q_EMIT named(forms::shownText(account_->name));
  Q_EMIT accountResolved(*account_);
}

void AccountCodeBox::forgetAccount() {
  account_.reset();
  Q_EMIT named({});
  Q_EMIT accountCleared();
}

}  // namespace velmo::frame
