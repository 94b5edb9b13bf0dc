#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/values/catalog.h"
#include "store/values/value.h"

// What the compiler of statements hands out.
namespace velmo::store::sql {

enum class StatementKind { Select, Insert, Update, Delete };

// One column of a select's result. `table`, `tableAlias` and `column` name where it comes from, and are empty when it
// is calculated or aggregated, which makes it read-only.
struct ResultColumn {
  std::string name;
  ColumnType type = ColumnType::Text;
  std::string table = {};
  std::string tableAlias = {};
  std::string column = {};
};

// A select of one table without grouping, in pieces, so that a cursor can walk it by key without reading it whole.
struct SingleTableSelect {
  struct OrderItem {
    std::string column;
    bool descending = false;
  };
  std::string table;
  std::string columnsSql = {};        // the select list: "Jobs"."JobID" AS "JobID", ...
  std::string whereSql = {};          // "" when there is none; uses parameters ?1, ?2 ... of `parameters`
  std::vector<OrderItem> order = {};  // plain columns of the table
};

struct CompiledStatement {
  StatementKind kind = StatementKind::Select;
  std::string sql;
  std::vector<Value> parameters;
  std::vector<ResultColumn> columns;  // of a select
  std::vector<std::string> tables;    // base tables read or written, canonical names
  std::optional<SingleTableSelect> singleTable;
};

// Why a statement is refused: the clause, the place in the text and a sentence.
struct CompileError {
  std::string clause;        // "SELECT", "WHERE", "ORDER BY", ...
  std::size_t position = 0;  // byte offset into the statement
  std::size_t length = 0;
  std::string message;

  // The sentence with the clause and the piece of the statement it points at.
  std::string describe(std::string_view statement) const;
};

}  // namespace velmo::store::sql
