#include "store/sql/random_select.h"

#include <array>
#include <map>
#include <vector>

#include "schema/company_schema.h"

namespace velmo::test {

namespace {

class RandomSelect {
 public:
  explicit RandomSelect(Dice& dice) : dice_(dice) {}

  std::string text(int depth) {
    std::string from;
    for (std::size_t i = 0, count = 1 + dice_.below(3); i < count; ++i) {
      const auto earlier = columns_;
      const std::string source = sourceNamed("s" + std::to_string(depth) + std::to_string(i), depth);
      const char* const joins[] = {" INNER JOIN ", " LEFT JOIN ", " RIGHT JOIN "};
      const std::string join = joins[dice_.below(std::size(joins))];
      if (i == 0)
        from = source;
      else if (dice_.oneIn(4))
        from = source + join + "(" + from + ") ON " + joined(earlier);
      else
        from = (i > 1 ? "(" + from + ")" : from) + join + source + " ON " + joined(earlier);
    }
    const bool grouped = dice_.oneIn(4);
    const auto kind = dice_.oneOf(kinds);
    const std::string group = columnOf(kind);
    std::string list;
    for (std::size_t i = 0, count = 1 + dice_.below(4); i < count; ++i) {
      const std::string alias = "a" + std::to_string(i);
      if (i > 0) list += ", ";
      list += (!grouped ? expression(dice_.oneOf(kinds), 3) : dice_.oneIn(3) ? group : aggregate()) + " AS " + alias;
      if (!grouped && dice_.oneIn(3)) columns_[Number].push_back(alias);
    }
    std::string made = (dice_.oneIn(6)   ? "SELECT TOP 3 "
                        : dice_.oneIn(8) ? "SELECT DISTINCT "
                                         : "SELECT ") +
                       list + " FROM " + from;
    if (dice_.oneIn(2)) made += " WHERE " + expression(Condition, 3);
    if (grouped) made += " GROUP BY " + group + (dice_.oneIn(2) ? " HAVING Count(" + group + ") > 0" : "");
    if (dice_.oneIn(2))
      made += " ORDER BY " + (grouped ? group : expression(kind, 1)) + (dice_.oneIn(2) ? " DESC" : "");
    return made;
  }

 private:
  enum Kind { Number, Text, Condition, Date };
  static constexpr std::array kinds = {Number, Text, Condition, Date};

  std::string sourceNamed(const std::string& alias, int depth) {
    if (depth > 0 && dice_.oneIn(3)) {
      columns_[dice_.oneOf(kinds)].push_back(alias + ".a0");
      const bool bracketed = depth == 1 && dice_.oneIn(2);
      const std::string inner = RandomSelect(dice_).text(depth - 1);
      return (bracketed ? "[" + inner + "]. AS " : "(" + inner + ") AS ") + alias;
    }
    static const std::vector<const char*> tables = {
        "Transactions", "SubTransactions", "StockFlow", "AgingCr",  "AccLevel3",
        "StockLevel3",  "Employees",       "Jobs",      "TranType", "Users"};
    const auto* table = schema::companyCatalog().find(dice_.oneOf(tables));
    for (const auto& column : table->columns) {
      const bool text = column.type == store::ColumnType::Text || column.type == store::ColumnType::Memo;
      columns_[text                                      ? Text
               : column.type == store::ColumnType::YesNo ? Condition
               : column.type == store::ColumnType::Date  ? Date
                                                         : Number]
          .push_back(alias + "." + column.name);
    }
    return table->name + " AS " + alias;
  }

  std::string joined(const std::map<Kind, std::vector<std::string>>& earlier) {
    const auto known = earlier.find(Number);
    return (known == earlier.end() || known->second.empty() ? "1" : dice_.oneOf(known->second)) + "=" +
           columnOf(Number);
  }

  std::string columnOf(Kind kind) {
    const auto& known = columns_[kind];
    static const std::map<Kind, std::string> otherwise = {
        {Number, "7"}, {Text, "'x'"}, {Condition, "No"}, {Date, "#7-1-2025#"}};
    return known.empty() ? otherwise.at(kind) : dice_.oneOf(known);
  }

  std::string aggregate() {
    static const std::vector<std::string> ofNumbers = {"Sum", "Avg", "Min"},
                                          ofAll = {"Min", "Max", "Count", "First", "Last"};
    return dice_.oneIn(2) ? dice_.oneOf(ofNumbers) + "(" + expression(Number, 1) + ")"
                          : dice_.oneOf(ofAll) + "(" + expression(dice_.oneOf(kinds), 1) + ")";
  }

  std::string expression(Kind kind, int depth) {
    if (dice_.oneIn(60)) kind = dice_.oneOf(kinds);
    static const std::map<Kind, std::vector<std::string>> literals = {
        {Number, {"0", "1.5", "Null", "-3", "1e3"}},
        {Text, {"'a'", "'O''B'", "''", "\"x\""}},
        {Condition, {"Yes", "False", "Null"}},
        {Date, {"#7-1-2025#", "#12/31/1999 11:59:59 PM#"}}};
    if (depth == 0 || dice_.oneIn(4)) return dice_.oneIn(3) ? dice_.oneOf(literals.at(kind)) : columnOf(kind);
    const auto of = [&](Kind inner) { return expression(inner, depth - 1); };
    const auto any = [&] { return of(dice_.oneOf(kinds)); };
    if (dice_.oneIn(5))
      return "IIf(" + of(Condition) + ", " + of(kind) + (dice_.oneIn(3) ? ")" : ", " + of(kind) + ")");
    switch (kind) {
      case Number: {
        static const std::vector<std::string> signs = {"+", "-", "*", "/", "\\", " Mod ", "^"};
        static const std::vector<std::string> calls = {"Abs(", "Int(", "Round(", "CDbl(", "-("};
        return dice_.oneIn(6)   ? "(" + of(Date) + "-" + of(Date) + ")"
               : dice_.oneIn(6) ? "Len(" + any() + ")"
               : dice_.oneIn(3) ? dice_.oneOf(calls) + of(Number) + ")"
                                : "(" + of(Number) + dice_.oneOf(signs) + of(Number) + ")";
      }
      case Text: {
        static const std::vector<std::string> calls = {"Left(", "Mid(", "Right("};
        return dice_.oneIn(3)   ? dice_.oneOf(calls) + of(Text) + ", 2)"
               : dice_.oneIn(4) ? "Format(" + any() + ", '#,##0.00;(dd-mmm-yy)')"
                                : "(" + any() + " & " + any() + ")";
      }
      case Date:
        return "(" + of(Date) + "+" + of(Number) + ")";
      case Condition:
        break;
    }
    const Kind inner = dice_.oneOf(kinds);
    static const std::vector<std::string> comparisons = {"=", "<>", "<", ">="}, words = {" And ", " Or "};
    switch (dice_.below(6)) {
      case 0:
        return "(" + any() + " like '%a_[!b-c]%')";
      case 1:
        return "(" + of(inner) + " Not Between " + of(inner) + " And " + of(inner) + ")";
      case 2:
        return "(" + of(inner) + " In (" + of(inner) + ", " + of(inner) + "))";
      case 3:
        return dice_.oneIn(2) ? "IsNull(" + any() + ")" : "(Not " + of(Condition) + ")";
      case 4:
        return "(" + of(Condition) + dice_.oneOf(words) + of(Condition) + ")";
      default:
        return "(" + of(inner) + dice_.oneOf(comparisons) + of(inner) + ")";
    }
  }

  Dice& dice_;
  std::map<Kind, std::vector<std::string>> columns_;
};

}  // namespace

std::string randomSelect(Dice& dice, int depth) {
  return RandomSelect(dice).text(depth);
}

}  // namespace velmo::test
