#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "store/recordset/recordset.h"

namespace velmo::frame {

struct Account {
  std::int64_t code = 0;
  std::string name;
  std::string address;
  std::string phone;
  std::string contact = {};
  std::string terms;
  double creditLimit = 0;
  std::int64_t empId = 0;

  bool operator==(const Account&) const = default;
};

// The code that a typed text stands for, when it is one that an account can have.
std::optional<std::int64_t> accountCode(std::string_view typed);

// The account with this code among the shared ones, which may not have been read yet.
std::optional<Account> findAccount(store::Recordset& accounts, std::string_view typedCode);

}  // namespace velmo::frame
