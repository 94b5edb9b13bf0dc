#include "store/sqlite/sqlite_error.h"

#include <sqlite3.h>

#include <cerrno>
#include <string_view>

namespace velmo::store {
namespace {

std::string afterColon(const std::string& message) {
  const std::size_t colon = message.find(": ");
  return colon == std::string::npos ? message : message.substr(colon + 2);
}

StoreError constraintError(int extendedCode, const std::string& message) {
  switch (extendedCode) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
      return {ErrorKind::Constraint,
              "The record was not saved: another record already has the same value in " + afterColon(message) + "."};
    case SQLITE_CONSTRAINT_NOTNULL:
      return {ErrorKind::Constraint, "The record was not saved: " + afterColon(message) + " must not be empty."};
    case SQLITE_CONSTRAINT_FOREIGNKEY:
      return {ErrorKind::Constraint,
              "The change was not made: it would leave a record that refers to another one which is not there."};
    default:
      return {ErrorKind::Constraint, "The record was not saved: the database refuses it (" + message + ")."};
  }
}

// A quota or the greatest size of a file is as full as a full disk.
bool isForRoom(sqlite3* database) {
  const int reason = database == nullptr ? 0 : sqlite3_system_errno(database);
  return reason == EDQUOT || reason == EFBIG || reason == ENOSPC;
}

}  // namespace

StoreError sqliteError(sqlite3* database, int code, const std::string& fileName) {
  const std::string message = database != nullptr ? sqlite3_errmsg(database) : sqlite3_errstr(code);
  const std::string file = "\"" + fileName + "\"";
  switch (code & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return {ErrorKind::Busy, "The file " + file + " is in use by another program. Close that program and try again."};
    case SQLITE_FULL:
      return {ErrorKind::Full, "The disk that holds " + file + " is full. Nothing was saved; make room and try again."};
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return {ErrorKind::ReadOnly,
              "The file " + file + " cannot be written. Check the rights of the file, its folder and the disk."};
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      return {ErrorKind::Damaged, "The file " + file + " is damaged. Restore it from a back-up copy."};
    case SQLITE_CANTOPEN:
      return {ErrorKind::Missing,
              "The file " + file + " cannot be opened. Check that it is there and that you may use it."};
    case SQLITE_IOERR:
      if (isForRoom(database)) return sqliteError(database, SQLITE_FULL, fileName);
      return {ErrorKind::Failed,
              "The disk that holds " + file + " reported an error (" + message + "). Nothing was saved."};
    case SQLITE_TOOBIG:
      return {ErrorKind::Value, "A text is too long to be kept."};
    case SQLITE_CONSTRAINT:
      return constraintError(database != nullptr ? sqlite3_extended_errcode(database) : code, message);
    case SQLITE_ERROR:
      return {ErrorKind::Statement, "The statement could not be carried out: " + message + "."};
    default:
      return {ErrorKind::Failed, "The database " + file + " reported an error: " + message + "."};
  }
}

}  // namespace velmo::store
