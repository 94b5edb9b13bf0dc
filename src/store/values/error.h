#pragma once

#include <stdexcept>
#include <string>

namespace velmo::store {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wshadow"  // the enumerators are reached through ErrorKind:: alone
enum class ErrorKind {
  Statement,   // the statement is not of the dialect, or does not fit the tables
  Conflict,    // a row was changed or removed since it was read
  Constraint,  // a key, relation or required value refused the row
  Value,       // a value does not fit its column
  Busy,        // another program holds the file
  Full,        // the disk is full
  ReadOnly,    // the file cannot be written
  Damaged,     // the file is not sound
  Foreign,     // the file belongs to another program
  Newer,       // the file was made by a newer version
  Password,    // the password does not fit
  Missing,     // a file or folder is not there
  Failed,      // anything else the store reports
  Misuse       // the operation does not fit the state: no current row, closed recordset
};
#pragma GCC diagnostic pop

// Every failure of the store. what() is a full sentence that can be shown to the user.
class StoreError : public std::runtime_error {
 public:
  StoreError(ErrorKind kind, const std::string& message) : std::runtime_error(message), kind_(kind) {}
  ErrorKind kind() const { return kind_; }

 private:
  ErrorKind kind_;
};

}  // namespace velmo::store
