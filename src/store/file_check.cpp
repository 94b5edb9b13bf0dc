#include "store/file_check.h"

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <fstream>
#include <memory>
#include <string>

#include "store/error.h"
#include "store/file_identity.h"
#include "store/sqlite_error.h"

namespace velmo::store {
namespace {

namespace fs = std::filesystem;

// The fields of SQLite's 100-byte file header that tell whose file it is and whether it is whole.
struct Header {
  std::uint32_t pageSize = 0;
  std::uint32_t changeCounter = 0;
  std::uint32_t pageCount = 0;
  std::uint32_t userVersion = 0;
  std::uint32_t applicationId = 0;
  std::uint32_t pageCountValidFor = 0;
};

std::string nameOf(const fs::path& file) {
  return "\"" + file.string() + "\"";
}

StoreError damaged(const fs::path& file) {
  return {ErrorKind::Damaged,
          "The file " + nameOf(file) + " is damaged. It was not changed. Restore it from a back-up copy."};
}

std::uint32_t bigEndian(const unsigned char* bytes, int count) {
  std::uint32_t number = 0;
  for (int i = 0; i < count; ++i) number = number << 8 | bytes[i];
  return number;
}

Header readHeader(const fs::path& file) {
  constexpr std::string_view magic("SQLite format 3\0", 16);
  std::array<unsigned char, 100> bytes{};
  std::ifstream stream(file, std::ios::binary);
  if (!stream) {
    throw StoreError(ErrorKind::ReadOnly, "The file " + nameOf(file) + " cannot be read. Ask for the right to use it.");
  }
  stream.read(reinterpret_cast<char*>(bytes.data()), bytes.size());
  const auto count = static_cast<std::size_t>(stream.gcount());
  if (count < bytes.size()) throw damaged(file);
  if (std::string_view(reinterpret_cast<const char*>(bytes.data()), magic.size()) != magic) {
    throw StoreError(ErrorKind::Damaged, "The file " + nameOf(file) +
                                             " is not a company file, or its beginning is damaged. It was not "
                                             "changed. Restore it from a back-up copy.");
  }
  Header header{.pageSize = bigEndian(&bytes[16], 2),
                .changeCounter = bigEndian(&bytes[24], 4),
                .pageCount = bigEndian(&bytes[28], 4),
                .userVersion = bigEndian(&bytes[60], 4),
                .applicationId = bigEndian(&bytes[68], 4),
                .pageCountValidFor = bigEndian(&bytes[92], 4)};
  if (header.pageSize == 1) header.pageSize = 65536;
  return header;
}

// A log beside the file may hold the rest of its pages, so only a file without one can be judged by its length.
void checkLength(const fs::path& file, const Header& header) {
  std::error_code none;
  const auto logSize = fs::file_size(file.string() + "-wal", none);
  if (!none && logSize > 0) return;
  if (header.pageCountValidFor != header.changeCounter) return;
  const std::uint64_t expected = static_cast<std::uint64_t>(header.pageSize) * header.pageCount;
  if (header.pageSize < 512 || fs::file_size(file) < expected) throw damaged(file);
}

Header identify(const fs::path& file) {
  std::error_code none;
  if (!fs::exists(file, none)) {
    throw StoreError(ErrorKind::Missing, "The file " + nameOf(file) + " is not there.");
  }
  if (!fs::is_regular_file(file, none)) {
    throw StoreError(ErrorKind::Foreign, nameOf(file) + " is not a file of this program.");
  }
  const Header header = readHeader(file);
  if (header.applicationId != static_cast<std::uint32_t>(applicationId)) {
    throw StoreError(ErrorKind::Foreign, "The file " + nameOf(file) +
                                             " belongs to another program. It was not changed. Move it elsewhere to "
                                             "start with a new company file.");
  }
  checkLength(file, header);
  return header;
}

// A mark against writing is honoured even where the system would let the user pass it.
bool isWritable(const fs::path& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return false;
  constexpr unsigned anyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
  return (status.st_mode & anyWrite) != 0 && ::access(path.c_str(), W_OK) == 0;
}

void checkWritable(const fs::path& file) {
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

// Percent-encodes what has a meaning in a file URI.
std::string immutableUri(const fs::path& file) {
  std::string uri = "file:";
  for (char c : fs::absolute(file).string()) {
    switch (c) {
      case '%':
        uri += "%25";
        break;
      case '?':
        uri += "%3f";
        break;
      case '#':
        uri += "%23";
        break;
      default:
        uri += c;
    }
  }
  return uri + "?mode=ro&immutable=1";
}

void checkPassword(const fs::path& file, std::string_view password) {
  sqlite3* opened = nullptr;
  const int code =
      sqlite3_open_v2(immutableUri(file).c_str(), &opened, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr);
  const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> database(opened, sqlite3_close);
  if (code != SQLITE_OK) throw sqliteError(database.get(), code, file.string());
  bool fits = false;
  try {
    fits = passwordFits(database.get(), password);
  } catch (const StoreError&) {
    throw damaged(file);
  }
  if (!fits) {
    throw StoreError(ErrorKind::Password, "The password does not fit the file " + nameOf(file) +
                                              ". It may be the file of another installation.");
  }
}

}  // namespace

void checkDatabaseFile(const fs::path& file, std::string_view password, int newestSchemaVersion) {
  const Header header = identify(file);
  if (header.userVersion > static_cast<std::uint32_t>(newestSchemaVersion)) {
    throw StoreError(ErrorKind::Newer, "The file " + nameOf(file) +
                                           " was made by a newer version of this program. It was not changed. Install "
                                           "the newer version to use it.");
  }
  checkWritable(file);
  checkPassword(file, password);
}

int schemaVersionOf(const fs::path& file) {
  return static_cast<int>(identify(file).userVersion);
}

}  // namespace velmo::store
