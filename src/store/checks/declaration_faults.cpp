#include "store/checks/declaration_faults.h"

#include <algorithm>
#include <set>

#include "store/connection/connection_impl.h"

namespace velmo::store {
namespace {

struct Listed {
  std::string type, name, table, sql;
};

struct Declared {
  std::string type, name;
};

std::string nextWord(std::string_view& sql) {
  sql.remove_prefix(std::min(sql.find_first_not_of(" \t\r\n"), sql.size()));
  const std::string_view open = "\"'`[";
  if (sql.empty() || open.find(sql.front()) == open.npos) {
    const std::size_t end = std::min(sql.find_first_of(" \t\r\n(\"'`["), sql.size());
    std::string word(sql.substr(0, end));
    sql.remove_prefix(end);
    return word;
  }
  const char close = sql.front() == '[' ? ']' : sql.front();
  std::string word;
  std::size_t at = 1;
  for (; at < sql.size(); ++at) {
    if (sql[at] == close) {
      if (close == ']' || at + 1 >= sql.size() || sql[at + 1] != close) break;
      ++at;
    }
    word += sql[at];
  }
  sql.remove_prefix(std::min(at + 1, sql.size()));
  return word;
}

// SQLite keeps a declaration as it was written from the name on, behind words of its own.
Declared declaredBy(std::string_view sql) {
  for (std::string word = nextWord(sql); !word.empty(); word = nextWord(sql)) {
    std::ranges::transform(word, word.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (word == "table" || word == "index" || word == "view" || word == "trigger") return {word, nextWord(sql)};
  }
  return {};
}

std::vector<Listed> listOf(Connection& connection) {
  std::vector<Listed> all;
  PreparedStatement read =
      connection.impl()->prepare("SELECT type, name, tbl_name, sql FROM sqlite_schema WHERE sql IS NOT NULL");
  const auto text = [&](int column) { return textOf(columnValue(read.handle(), column)); };
  while (read.step()) all.push_back({text(0), text(1), text(2), text(3)});
  return all;
}

}  // namespace

std::vector<Finding> declarationFaults(Connection& connection) {
  const std::vector<Listed> all = listOf(connection);
  std::set<std::string> tables;
  for (const Listed& each : all)
    if (each.type == "table") tables.insert(each.name);
  std::vector<Finding> faults;
  for (const Listed& each : all) {
    const Declared declared = declaredBy(each.sql);
    const bool hasItsTable = each.type == "table"   ? each.table == each.name
                             : each.type == "index" ? tables.contains(each.table)
                                                    : true;
    if (declared.type == each.type && declared.name == each.name && hasItsTable) continue;
    faults.push_back({.kind = Finding::Kind::Damage,
                      .words = "its list of tables (\"" + declared.name + "\" stands there as \"" + each.name + "\")"});
  }
  return faults;
}

}  // namespace velmo::store
