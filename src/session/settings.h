#pragma once

#include <string>
#include <string_view>

#include "store/connection.h"

// How the company works at its screens, kept in its file. The names are the program's own.
namespace velmo::session {

namespace settings {
inline constexpr std::string_view ScannedAgain = "Counter.ScannedAgain";  // "NewLine", otherwise the quantity is raised
inline constexpr std::string_view SlipPrinter = "Counter.SlipPrinter";    // its name; "" for the preview
}  // namespace settings

// "" when it was never set. Throws StoreError.
std::string setting(store::Connection& connection, std::string_view name);
void saveSetting(store::Connection& connection, std::string_view name, const std::string& value);

}  // namespace velmo::session
