#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmo::store {

enum class ColumnType { Text, Memo, Byte, Integer, Long, Double, Date, YesNo };

struct Column {
  std::string name;
  ColumnType type = ColumnType::Text;
  bool autoNumber = false;
};

struct Relation {
  std::string column;  // of the table that holds the relation
  std::string parentTable;
  std::string parentColumn;
  bool cascadeDelete = false;
};

struct Index {
  std::string name;
  std::vector<std::string> columns;
  bool unique = false;
};

struct Table {
  std::string name;
  std::vector<Column> columns;
  std::vector<std::string> key;
  std::vector<Relation> relations = {};
  std::vector<Index> indexes = {};

  const Column* find(std::string_view columnName) const;  // case-insensitive; nullptr when absent
};

// The tables that statements may name. Free of any one company's schema.
class Catalog {
 public:
  explicit Catalog(std::vector<Table> tables);
  const Table* find(std::string_view tableName) const;  // case-insensitive; nullptr when absent
  const std::vector<Table>& tables() const { return tables_; }

 private:
  std::vector<Table> tables_;
};

}  // namespace velmo::store
