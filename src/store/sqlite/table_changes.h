#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

struct sqlite3;

namespace velmo::store {

// Counts the rows written to each table of one open file, so that what was read into memory can be told from what is
// there now without reading again.
class TableChanges {
 public:
  // From now on the writes through this handle are counted; everything read before counts as changed.
  void watch(sqlite3* database);
  // A DELETE of all rows empties a table as a whole, without telling of its rows.
  void noteEmptied(std::string_view table);
  // Rows that were read since a write are not there any more.
  void noteRollback() { ++changesToAll_; }
  // Grows when rows of the table were written through the handle, and for every table when another program wrote to
  // the file or writes were undone.
  std::int64_t generation(std::string_view table);
  // The same of all tables together.
  std::int64_t generation();

 private:
  static std::string lowerCase(std::string_view name);
  static void rowWritten(void* self, int operation, const char* schema, const char* table, long long row);
  void noteOthers();

  sqlite3* database_ = nullptr;
  std::unordered_map<std::string, std::int64_t> rowsWritten_;  // by table name in lower case
  std::string lastTable_;
  std::int64_t* lastCount_ = nullptr;  // of that table
  std::int64_t rowsWrittenToAny_ = 0;
  std::int64_t changesToAll_ = 0;
  std::int64_t dataVersion_ = -1;
};

}  // namespace velmo::store
