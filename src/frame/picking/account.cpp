#include "frame/picking/account.h"

#include <cmath>

#include "text/number.h"

namespace velmo::frame {

std::optional<std::int64_t> accountCode(std::string_view typed) {
  const auto number = text::numberFrom(typed);
  constexpr double largestCode = 2147483647;
  if (!number || std::floor(*number) != *number || std::fabs(*number) > largestCode) return std::nullopt;
  return static_cast<std::int64_t>(*number);
}

std::optional<Account> findAccount(store::Recordset& accounts, std::string_view typedCode) {
  const auto code = accountCode(typedCode);
  if (!code || !accounts.isOpen() || accounts.isEmpty()) return std::nullopt;
  accounts.moveFirst();
  if (!accounts.find("AccCode = " + std::to_string(*code))) return std::nullopt;
  return Account{.code = accounts.integer("acccode"),
                 .name = accounts.text("accname"),
                 .address = accounts.text("address"),
                 .phone = accounts.text("phone"),
                 .contact = accounts.text("contact"),
                 .terms = accounts.text("creditterms"),
                 .creditLimit = accounts.number("creditlimit"),
                 .empId = accounts.integer("empid")};
}

}  // namespace velmo::frame
