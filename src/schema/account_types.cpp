#include "schema/account_types.h"

namespace velmo::schema::account_type {

std::string anyOf(std::initializer_list<int> types) {
  std::string condition;
  for (const int type : types) condition += (condition.empty() ? "Level1ID=" : " or Level1ID=") + std::to_string(type);
  return condition;
}

std::string parties() {
  return anyOf({Customers, Vendors});
}

std::string money() {
  return anyOf({Cash, Banks});
}

}  // namespace velmo::schema::account_type
