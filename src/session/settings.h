#pragma once

#include <string>
#include <string_view>

#include "store/connection/connection.h"

// How the company and its users work at their screens, kept in its file. The names are the program's own.
namespace velmo::session {

namespace settings {
inline constexpr std::string_view ScannedAgain = "Counter.ScannedAgain";  // "NewLine", otherwise the quantity is raised
inline constexpr std::string_view SlipPrinter = "Counter.SlipPrinter";    // its name; "" for the preview
inline constexpr std::string_view AskShortTender = "Counter.AskShortTender";  // "Yes": asks before less than the total
inline constexpr std::string_view AskBeforeDropping = "AskBeforeDropping";    // of a user: "Yes" asks
inline constexpr std::string_view LastRound = "Check.LastRound";              // when all checks were through, ISO
inline constexpr std::string_view BackUpPlace = "BackUp.Place";  // of the last back-up that was saved: its file
inline constexpr std::string_view BackUpTime = "BackUp.Time";    // and when, ISO
}  // namespace settings

// "" when it was never set. Throws StoreError.
std::string setting(store::Connection& connection, std::string_view name);
void saveSetting(store::Connection& connection, std::string_view name, const std::string& value);

// The name under which a user has a setting for himself: "User.7.AskBeforeDropping".
std::string userSetting(std::string_view name, int userId);

}  // namespace velmo::session
