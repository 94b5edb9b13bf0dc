#include "masters/accounts/account_prints.h"

#include "frame/master/master_dialog.h"
#include "masters/accounts/acc_list_print.h"

namespace velmo::masters {
namespace {

using frame::MasterDialog;
using frame::MasterPrint;
// The hierarchy to print, from what is chosen in the dialog; "" when nothing is.
using Hierarchy = std::function<std::string(MasterDialog&)>;

MasterPrint printAccounts(const std::string& caption, Hierarchy hierarchy) {
  return {caption,
          [=](MasterDialog& dialog) -> std::optional<printing::Report> {
            const std::string statement = hierarchy(dialog);
            if (statement.empty()) return std::nullopt;
            session::LoginContext& context = dialog.workplace().context;
            context.AccListRS = store::Recordset();
            context.AccListRS.openShape(context.KORDconn, statement);
            return accListPrint(context, context.AccListRS, dialog.workplace().clock.today());
          },
          [](session::LoginContext& context) { context.AccListRS = {}; }};
}

std::string chosenType(MasterDialog& dialog) {
  const std::string type = dialog.panel(0).key();
  return type.empty() ? std::string() : accountsOfType(std::stoll(type));
}

std::string chosenSubType(MasterDialog& dialog) {
  const std::string subType = dialog.panel(1).key();
  return subType.empty() ? std::string() : accountsOfSubType(std::stoll(dialog.panel(0).key()), std::stoll(subType));
}

}  // namespace

std::vector<MasterPrint> chartOfAccountsPrints() {
  return {printAccounts("Whole chart", [](MasterDialog&) { return wholeChartOfAccounts(); }),
          printAccounts("Selected type", chosenType), printAccounts("Selected sub type", chosenSubType)};
}

std::vector<MasterPrint> accountsOfTypePrints(int type, const std::string& caption) {
  return {printAccounts(caption, [type](MasterDialog&) { return accountsOfType(type); })};
}

}  // namespace velmo::masters
