#pragma once

namespace velmo::store {
class Connection;
}

namespace velmo::attack {

// Within the folder of a company at risk.
inline constexpr const char* companyFolder = "Uninstall";
inline constexpr const char* companyFile = "Uninstall/Uninstall.MDB";
inline constexpr const char* keptFolder = "kept";  // the company as it was before
inline constexpr const char* olderFile = "older";  // as it was some work earlier, with nothing in a log
inline constexpr const char* backUpFolder = "copy";
inline constexpr const char* backUpFile = "copy/back-up";

inline constexpr int importedAccounts = 150;  // of one import, all named "Imported ..."

void startProgram();      // as far as the company's file goes
void makeFirstVersion();  // of the company's file: as the first version of the program left it
void backUp();
void importAccounts(store::Connection& books);
void logIn(store::Connection& books);  // with the tidying that goes before it
void passBalances(store::Connection& books);

}  // namespace velmo::attack
