#include "attack/reading.h"

#include <sqlite3.h>

#include <algorithm>
#include <memory>
#include <stdexcept>

#include "attack/plain_rows.h"

namespace velmo::attack {
namespace {

namespace fs = std::filesystem;

constexpr const char* readFolder = "read";
constexpr std::int64_t versionWithTotals = 6;

void readRows(sqlite3* file, const std::string& table, const std::string& statement, Reading& reading) {
  PlainRows rows(file, statement);
  for (int column = 0; column < rows.columns(); ++column) reading.names[table].push_back(rows.name(column));
  std::vector<std::vector<std::string>>& all = reading.rows[table];
  while (rows.next()) {
    std::vector<std::string>& row = all.emplace_back();
    for (int column = 0; column < rows.columns(); ++column) row.push_back(rows.written(column));
  }
}

void readAll(sqlite3* file, Reading& reading) {
  reading.version = numberIn(file, "PRAGMA user_version");
  readRows(file, "header",
           "SELECT user_version, application_id, encoding FROM pragma_user_version, pragma_application_id, "
           "pragma_encoding",
           reading);
  std::vector<std::string> tables = {"sqlite_schema"};
  PlainRows names(file, "SELECT name FROM sqlite_schema WHERE type = 'table' ORDER BY name");
  while (names.next()) tables.push_back(names.text(0));
  for (const std::string& table : tables) readRows(file, table, "SELECT * FROM \"" + table + "\"", reading);
}

}  // namespace

bool Reading::has(Flaw::Kind kind) const {
  return std::ranges::any_of(flaws, [kind](const Flaw& flaw) { return flaw.kind == kind; });
}

Reading readCopyOf(const fs::path& file) {
  fs::remove_all(readFolder);
  fs::create_directory(readFolder);
  for (const char* part : {"", "-wal", "-journal"})
    if (fs::exists(file.string() + part)) fs::copy_file(file.string() + part, std::string(readFolder) + "/copy" + part);
  sqlite3* opened = nullptr;
  sqlite3_open((std::string(readFolder) + "/copy").c_str(), &opened);
  const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> database(opened, sqlite3_close);
  Reading reading;
  try {
    readAll(opened, reading);
    reading.isWhole = true;
  } catch (const std::runtime_error& unreadable) {
    reading.flaws.push_back({Flaw::Kind::Structure, unreadable.what()});
    return reading;
  }
  reading.flaws = flawsOfBooks(opened, reading.version < versionWithTotals ? Totals::Passed : Totals::Looked);
  if (sqlite3_db_readonly(opened, "main") == 1)
    reading.flaws.push_back({Flaw::Kind::Structure, "the header makes it a file to read alone"});
  return reading;
}

std::set<std::string> differences(const Reading& one, const Reading& other) {
  std::set<std::string> places;
  for (const auto& [table, rows] : one.rows) {
    const auto found = other.rows.find(table);
    if (found == other.rows.end() || found->second.size() != rows.size() ||
        other.names.at(table) != one.names.at(table)) {
      places.insert(table);
      continue;
    }
    for (std::size_t row = 0; row < rows.size(); ++row)
      for (std::size_t column = 0; column < rows[row].size(); ++column)
        if (rows[row][column] != found->second[row][column]) places.insert(table + "." + one.names.at(table)[column]);
  }
  for (const auto& [table, rows] : other.rows)
    if (!one.rows.contains(table)) places.insert(table);
  return places;
}

}  // namespace velmo::attack
