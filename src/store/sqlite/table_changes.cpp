#include "store/sqlite/table_changes.h"

#include <sqlite3.h>

namespace velmo::store {

std::string TableChanges::lowerCase(std::string_view name) {
  std::string lower(name);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 0x20);
  }
  return lower;
}

void TableChanges::watch(sqlite3* database) {
  database_ = database;
  dataVersion_ = -1;
  sqlite3_update_hook(database, rowWritten, this);
}

// Most rows go to the table of the row before.
void TableChanges::rowWritten(void* self, int, const char*, const char* table, long long) {
  auto& changes = *static_cast<TableChanges*>(self);
  if (changes.lastTable_ != table) {
    changes.lastTable_ = table;
    changes.lastCount_ = &changes.rowsWritten_[lowerCase(table)];
  }
  ++*changes.lastCount_;
  ++changes.rowsWrittenToAny_;
}

void TableChanges::noteEmptied(std::string_view table) {
  ++rowsWritten_[lowerCase(table)];
  ++rowsWrittenToAny_;
}

std::int64_t TableChanges::generation(std::string_view table) {
  noteOthers();
  const auto written = rowsWritten_.find(lowerCase(table));
  return changesToAll_ + (written == rowsWritten_.end() ? 0 : written->second);
}

std::int64_t TableChanges::generation() {
  noteOthers();
  return changesToAll_ + rowsWrittenToAny_;
}

void TableChanges::noteOthers() {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(database_, "PRAGMA data_version", -1, &statement, nullptr) != SQLITE_OK) {
    ++changesToAll_;  // unknown: whoever asks reads again
    return;
  }
  const std::int64_t version = sqlite3_step(statement) == SQLITE_ROW ? sqlite3_column_int64(statement, 0) : -1;
  sqlite3_finalize(statement);
  if (version != dataVersion_ || version < 0) ++changesToAll_;
  dataVersion_ = version;
}

}  // namespace velmo::store
