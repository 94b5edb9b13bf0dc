#include "store/file/file_check.h"

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <fstream>
#include <memory>
#include <span>
#include <string>

#include "store/file/file_mark.h"
#include "store/file/open_database.h"
#include "store/sqlite/sqlite_error.h"

namespace velmo::store {
namespace {

namespace fs = std::filesystem;

std::string nameOf(const fs::path& file) {
  return "\"" + file.string() + "\"";
}

StoreError noDatabase(const fs::path& file) {
  return {ErrorKind::Damaged, "The file " + nameOf(file) +
                                  " is not a company file, or its beginning is damaged. It was not changed. Restore it "
                                  "from a back-up copy."};
}

// A mark against writing is honoured even where the system would let the user pass it.
bool isWritable(const fs::path& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return false;
  constexpr unsigned anyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
  return (status.st_mode & anyWrite) != 0 && ::access(path.c_str(), W_OK) == 0;
}

void checkWritable(const fs::path& file) {
  if (::access(file.c_str(), R_OK) != 0) {
    throw StoreError(ErrorKind::ReadOnly, "The file " + nameOf(file) + " cannot be read. Ask for the right to use it.");
  }
  if (!isWritable(file)) {
    throw StoreError(ErrorKind::ReadOnly,
                     "The file " + nameOf(file) + " is read-only. Allow writing to it and start again.");
  }
  const fs::path folder = file.has_parent_path() ? file.parent_path() : fs::path(".");
  if (!isWritable(folder)) {
    throw StoreError(ErrorKind::ReadOnly, "The folder " + nameOf(folder) +
                                              " is read-only. The company file needs a folder that can be written.");
  }
}

// A number of the file's header.
int headerNumber(sqlite3* database, const char* pragma, const fs::path& file) {
  sqlite3_stmt* prepared = nullptr;
  int code = sqlite3_prepare_v2(database, pragma, -1, &prepared, nullptr);
  const std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> statement(prepared, sqlite3_finalize);
  if (code == SQLITE_OK) code = sqlite3_step(prepared);
  if ((code & 0xff) == SQLITE_NOTADB) throw noDatabase(file);
  if ((code & 0xff) == SQLITE_CORRUPT) throw damagedFile(file);
  if (code != SQLITE_ROW) throw sqliteError(database, code, file.string());
  return sqlite3_column_int(prepared, 0);
}

void checkPassword(sqlite3* database, const fs::path& file, std::string_view password) {
  bool fits = false;
  try {
    fits = passwordFits(database, password);
  } catch (const StoreError& failure) {
    // The table that it stands in is one of every file of this program.
    if (failure.kind() == ErrorKind::Damaged || failure.kind() == ErrorKind::Statement) throw damagedFile(file);
    throw;
  }
  if (!fits) {
    throw StoreError(ErrorKind::Password, "The password does not fit the file " + nameOf(file) +
                                              ". It may be the file of another installation.");
  }
}

// A header that asks for a newer SQLite makes the file one to read alone, though it may be written.
bool isReadOnlyByItsHeader(sqlite3* database, const fs::path& file) {
  return sqlite3_db_readonly(database, "main") == 1 && ::access(file.c_str(), W_OK) == 0;
}

}  // namespace

StoreError damagedFile(const fs::path& file) {
  return {ErrorKind::Damaged,
          "The file " + nameOf(file) + " is damaged. It was not changed. Restore it from a back-up copy."};
}

void checkPlace(const fs::path& file) {
  std::error_code none;
  if (!fs::exists(file, none)) {
    throw StoreError(ErrorKind::Missing, "The file " + nameOf(file) + " is not there.");
  }
  if (!fs::is_regular_file(file, none)) {
    throw StoreError(ErrorKind::Foreign, nameOf(file) + " is not a file of this program.");
  }
  // An empty file would pass for a new database.
  if (fs::file_size(file, none) == 0) throw damagedFile(file);
  checkWritable(file);
}

void checkIdentity(sqlite3* database, const fs::path& file, std::string_view password, int newestSchemaVersion) {
  if (headerNumber(database, "PRAGMA application_id", file) != applicationId) {
    throw StoreError(ErrorKind::Foreign, "The file " + nameOf(file) +
                                             " belongs to another program. It was not changed. Move it elsewhere to "
                                             "start with a new company file.");
  }
  if (schemaVersionOf(database, file) > newestSchemaVersion) {
    throw StoreError(ErrorKind::Newer, "The file " + nameOf(file) +
                                           " was made by a newer version of this program. It was not changed. Install "
                                           "the newer version to use it.");
  }
  checkPassword(database, file, password);
  if (isReadOnlyByItsHeader(database, file)) throw damagedFile(file);
}

bool isDatabaseFile(const fs::path& file) {
  if (isOpenDatabase(file)) return true;
  std::error_code none;
  if (!fs::is_regular_file(file, none)) return false;
  constexpr std::size_t idAt = 68;
  std::array<unsigned char, idAt + 4> bytes{};
  std::ifstream(file, std::ios::binary).read(reinterpret_cast<char*>(bytes.data()), bytes.size());
  std::uint32_t id = 0;
  for (const unsigned char byte : std::span(bytes).subspan(idAt)) id = id << 8 | byte;
  constexpr std::string_view magic("SQLite format 3\0", 16);
  return std::string_view(reinterpret_cast<const char*>(bytes.data()), magic.size()) == magic &&
         id == static_cast<std::uint32_t>(applicationId);
}

int schemaVersionOf(sqlite3* database, const fs::path& file) {
  return headerNumber(database, "PRAGMA user_version", file);
}

}  // namespace velmo::store
