#include "store/sql/emission_audit.h"

#include <algorithm>
#include <cctype>
#include <set>

#include "schema/company_schema.h"
#include "store/sqlite/kept_totals.h"
#include "support/parted.h"

namespace velmo::test {

namespace {

const std::set<std::string_view> words = {
    "SELECT",  "DISTINCT", "FROM",  "WHERE", "GROUP", "BY",           "HAVING",  "ORDER", "DESC",   "LIMIT",  "AS",
    "AND",     "OR",       "NOT",   "IS",    "NULL",  "IN",           "BETWEEN", "INNER", "LEFT",   "JOIN",   "ON",
    "COLLATE", "NOCASE",   "UNION", "CROSS", "ALL",   "OVER",         "UPDATE",  "SET",   "DELETE", "INSERT", "INTO",
    "VALUES",  "rowid",    "Line",  "value", "WITH",  "MATERIALIZED", "Lines",   "Apart"};
const std::vector<std::string_view> listed = parted(
    "abs round sign length trim ltrim rtrim sum velmo_sum velmo_avg velmo_add velmo_subtract velmo_kept velmo_sum_kept "
    "velmo_sum_exactly min max count iif rank row_number velmo_int velmo_fix velmo_round velmo_whole velmo_number "
    "velmo_required_text velmo_val velmo_left velmo_right velmo_mid velmo_first velmo_last velmo_divide "
    "velmo_whole_divide velmo_modulo velmo_power velmo_concat velmo_text velmo_date_text velmo_date velmo_add_days "
    "velmo_days_between velmo_format velmo_format_date velmo_like velmo_plain_text velmo_spellings json_each "
    "velmo_yes_no substr",
    ' ');
const std::set<std::string_view> functions(listed.begin(), listed.end());
const std::set<std::string_view> namesOfTheEmitter = {"row order", "row rank", "row",  "changed",
                                                      "document",  "beside",   "apart"};

std::string lower(std::string_view text) {
  std::string all(text);
  std::ranges::transform(all, all.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return all;
}

bool isOfTheCatalogue(std::string_view name) {
  static const auto names = [] {
    std::set<std::string, std::less<>> all;
    for (const auto& kept : schema::companyCatalog().keptTotals()) {
      for (const auto& amount : kept.amounts) all.insert(store::givenColumnOf(amount));
      all.insert({store::daysTableOf(kept), store::monthsTableOf(kept), store::yearsTableOf(kept),
                  store::pendingTableOf(kept), store::stateTableOf(kept), "Month"});
    }
    for (const auto& kept : schema::companyCatalog().keptBalances()) all.insert(kept.name);
    for (const auto& table : schema::companyCatalog().tables()) {
      all.insert(table.name);
      for (const auto& column : table.columns) all.insert(column.name);
    }
    return all;
  }();
  return names.contains(name);
}

// An alias, or a name made for an item without one: Expr1000, A.Name.
bool isOwnAlias(const std::string& name, const std::string& written) {
  const auto dot = name.find('.');
  return name.starts_with("Expr") || name.starts_with("value") || written.find(lower(name)) != std::string::npos ||
         (dot != std::string::npos && isOfTheCatalogue(name.substr(dot + 1)));
}

template <typename Test>
std::size_t lengthWhile(std::string_view text, Test test) {
  std::size_t length = 1;
  while (length < text.size() && test(static_cast<unsigned char>(text[length]))) ++length;
  return length;
}

}  // namespace

std::string emissionProblem(const store::sql::CompiledStatement& compiled, std::string_view statement) {
  const std::string written = lower(statement);
  for (std::string_view rest = compiled.sql; !rest.empty();) {
    std::size_t length = 1;
    const auto first = static_cast<unsigned char>(rest[0]);
    if (first == '"') {
      std::string name;
      for (; length < rest.size() && (rest[length] != '"' || rest.substr(length, 2) == "\"\""); ++length) {
        if (rest[length] == '"') ++length;
        name += rest[length];
      }
      if (++length > rest.size()) return "an open name";
      if (!isOfTheCatalogue(name) && !namesOfTheEmitter.contains(name) && !isOwnAlias(name, written))
        return "the name " + name;
    } else if (std::isalpha(first)) {
      length = lengthWhile(rest, [](unsigned char c) { return std::isalnum(c) || c == '_'; });
      const auto word = rest.substr(0, length);
      if (!words.contains(word) && !functions.contains(word)) return "the word " + std::string(word);
    } else if (std::isdigit(first) || first == '?') {
      length = lengthWhile(rest, [](unsigned char c) { return std::isdigit(c) != 0; });
      if (length > 19) return "a long number";
      if (first == '?' &&
          (length == 1 || std::stoull(std::string(rest.substr(1, length - 1))) > compiled.parameters.size()))
        return "a parameter without a value";
    } else if (rest.starts_with(store::noDay)) {
      length = std::string_view(store::noDay).size();
    } else if (rest.starts_with("--") || rest.starts_with("/*") ||
               std::string_view(" (),.+-*/=<>|").find(rest[0]) == std::string_view::npos) {
      return "the sign " + std::string(rest.substr(0, 2));
    }
    rest.remove_prefix(length);
  }
  return "";
}

}  // namespace velmo::test
