#pragma once

#include <string_view>

struct sqlite3;

// What marks a file as one of this program, and what keeps it closed to others.
namespace velmo::store {

// Stands in the header of every file of this program.
inline constexpr int applicationId = 0x56454c4d;

// Keeps a salted derivation of the password in the file, in place of any earlier one. Throws StoreError.
void writePassword(sqlite3* database, std::string_view password);
// Throws StoreError, of kind Damaged when the file has lost its password.
bool passwordFits(sqlite3* database, std::string_view password);

}  // namespace velmo::store
