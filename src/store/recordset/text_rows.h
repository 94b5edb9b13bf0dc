#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "store/connection/connection.h"

namespace velmo::store {

// Hands some fields of every row of a select to `take` as bound controls would show them, and keeps no rows: for lists
// that keep texts of their own. The views are valid during the call, which writes nothing. Throws StoreError, of kind
// Misuse when there is no such field.
void readTexts(const Connection& connection, std::string_view statement, std::span<const std::string> fields,
               const std::function<void(std::span<const std::string_view> texts)>& take);

}  // namespace velmo::store
