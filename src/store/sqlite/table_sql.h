#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/values/catalog.h"

// How a table of the catalogue is declared in the file, so that any SQLite tool can read it.
namespace velmo::store {

// A name in double quotes.
std::string quotedName(std::string_view name);

// What a column is declared to hold, and how its texts are compared.
std::string declaredType(const Column& column);

// CREATE TABLE with key, relations and checks. Keys of AutoNumber columns are never given out twice. Yes/No columns
// hold -1 or 0 and are never null. Throws std::invalid_argument when an AutoNumber column is not the table's one key.
std::string createTableSql(const Table& table);

std::vector<std::string> createIndexSql(const Table& table);

}  // namespace velmo::store
