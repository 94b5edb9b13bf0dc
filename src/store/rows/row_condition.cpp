#include "store/rows/row_condition.h"

#include <algorithm>
#include <cctype>

#include "store/rows/cell_table.h"
#include "store/sql/parse/literals.h"
#include "store/sql/parse/spellings.h"
#include "text/number.h"

namespace velmo::store {
namespace {

bool isTextType(ColumnType type) {
  return type == ColumnType::Text || type == ColumnType::Memo;
}

bool isWholeNumber(ColumnType type) {
  return type == ColumnType::Byte || type == ColumnType::Integer || type == ColumnType::Long;
}

// Whether an index can find what fits a pattern, spelling by spelling.
bool hasSpellings(ColumnType type, const std::string& pattern) {
  const std::optional<std::string> text = text::plainText(pattern);
  return isTextType(type) && text && sql::spellingsOf(*text);
}

StoreError refused(const sql::CompileError& error, std::string_view text) {
  return {ErrorKind::Statement, error.describe(text)};
}

// The literal in the kind of value that the field holds; nothing when it can be none.
std::optional<Value> comparable(ColumnType type, const Value& literal) {
  if (isTextType(type)) {
    std::string text = textOf(literal);
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
  }
  const auto* text = std::get_if<std::string>(&literal);
  if (text == nullptr) return type == ColumnType::YesNo ? Value(isYes(literal)) : literal;
  if (type == ColumnType::Date) {
    if (const auto date = sql::dateFromLiteral(*text)) return *date;
  } else if (const auto number = text::numberFrom(*text)) {
    return *number;
  }
  return std::nullopt;
}

// The one value that fits a pattern without wildcards, so that an index can find it; nothing when there may be several.
std::optional<Value> equalOfPattern(ColumnType type, const std::string& pattern) {
  const std::optional<std::string> text = text::plainText(pattern);
  if (!text || !text::isAscii(*text)) return std::nullopt;
  if (isTextType(type)) return *text;  // blanks count
  if (!isWholeNumber(type)) return std::nullopt;
  const auto number = text::numberFrom(*text);
  if (!number || textOf(*number) != *text) return std::nullopt;
  return *number;
}

bool holds(sql::Comparison comparison, int order) {
  switch (comparison) {
    case sql::Comparison::Equal:
      return order == 0;
    case sql::Comparison::NotEqual:
      return order != 0;
    case sql::Comparison::Less:
      return order < 0;
    case sql::Comparison::LessOrEqual:
      return order <= 0;
    case sql::Comparison::Greater:
      return order > 0;
    case sql::Comparison::GreaterOrEqual:
      return order >= 0;
    case sql::Comparison::Like:
      break;
  }
  return false;
}

const char* sqlOf(sql::Comparison comparison) {
  switch (comparison) {
    case sql::Comparison::Equal:
      return " = ";
    case sql::Comparison::NotEqual:
      return " <> ";
    case sql::Comparison::Less:
      return " < ";
    case sql::Comparison::LessOrEqual:
      return " <= ";
    case sql::Comparison::Greater:
      return " > ";
    case sql::Comparison::GreaterOrEqual:
      return " >= ";
    case sql::Comparison::Like:
      break;
  }
  return "";
}

}  // namespace

RowCondition::Comparison RowCondition::bound(const ResultSource& source, const sql::Criterion& criterion,
                                             std::string_view text) {
  Comparison comparison{.field = source.requireField(criterion.column),
                        .comparison = criterion.comparison,
                        .literal = criterion.literal,
                        .pattern = {},
                        .hasSpellings = false};
  const ColumnType type = source.fields[static_cast<std::size_t>(comparison.field)].type;
  if (criterion.comparison == sql::Comparison::Like) {
    const std::string pattern = textOf(criterion.literal);
    if (auto equal = equalOfPattern(type, pattern)) {
      comparison.comparison = sql::Comparison::Equal;
      comparison.literal = std::move(*equal);
    } else {
      comparison.literal = pattern;
      comparison.pattern = std::make_shared<const text::LikePattern>(pattern);
      comparison.hasSpellings = hasSpellings(type, pattern);
    }
    return comparison;
  }
  auto literal = comparable(type, criterion.literal);
  if (!literal) {
    throw StoreError(ErrorKind::Statement, "The condition \"" + std::string(text) + "\" compares " + criterion.column +
                                               " with a value of another kind.");
  }
  comparison.literal = std::move(*literal);
  return comparison;
}

RowCondition RowCondition::ofCriterion(const ResultSource& source, std::string_view text) {
  const auto criterion = sql::parseCriterion(text);
  if (!criterion) throw refused(criterion.error(), text);
  RowCondition condition;
  condition.text_ = text;
  condition.alternatives_ = {{bound(source, *criterion, text)}};
  return condition;
}

std::optional<RowCondition> RowCondition::ofFilter(const ResultSource& source, std::string_view text) {
  if (std::ranges::all_of(text, [](unsigned char c) { return std::isspace(c) != 0; })) return std::nullopt;
  const auto filter = sql::parseFilter(text);
  if (!filter) throw refused(filter.error(), text);
  RowCondition condition;
  condition.text_ = text;
  for (const auto& criteria : filter->alternatives) {
    auto& comparisons = condition.alternatives_.emplace_back();
    for (const sql::Criterion& criterion : criteria) comparisons.push_back(bound(source, criterion, text));
  }
  return condition;
}

bool RowCondition::passes(const std::function<Value(int field)>& valueOf) const {
  auto fits = [&](const Comparison& comparison) {
    const Value value = valueOf(comparison.field);
    if (isNull(value)) return false;
    if (comparison.pattern != nullptr) return comparison.pattern->matches(textOf(value));
    return holds(comparison.comparison, compareValues(value, comparison.literal));
  };
  return std::ranges::any_of(alternatives_, [&](const auto& all) { return std::ranges::all_of(all, fits); });
}

std::string RowCondition::sql(const std::function<std::string(int field)>& columnOf,
                              std::vector<Value>& parameters) const {
  std::string sql;
  for (const auto& alternative : alternatives_) {
    sql += sql.empty() ? "(" : " OR (";
    const char* separator = "";
    for (const Comparison& comparison : alternative) {
      parameters.push_back(comparison.literal);
      const std::string column = columnOf(comparison.field);
      const std::string literal = "?" + std::to_string(parameters.size());
      sql += separator;
      if (comparison.hasSpellings)
        sql += column + " IN (SELECT value FROM json_each(velmo_spellings(" + literal + ")))";
      else if (comparison.comparison == sql::Comparison::Like)
        sql += "velmo_like(" + column + ", " + literal + ")";
      else
        sql += column + sqlOf(comparison.comparison) + literal;
      separator = " AND ";
    }
    sql += ")";
  }
  return sql;
}

}  // namespace velmo::store
