#include "store/row_test.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "store/cell_table.h"
#include "store/sql/literals.h"
#include "text/number.h"

namespace velmo::store {
namespace {

using Condition = RowTest::Condition;
using Kind = RowTest::Kind;
using Operator = RowTest::Operator;

struct OperatorText {
  std::string_view text;
  Operator op;
};

// Longer ones first, so that "<=" is not read as "<".
constexpr std::array<OperatorText, 6> operatorTexts{{{"<>", Operator::NotEqual},
                                                     {"<=", Operator::LessOrEqual},
                                                     {">=", Operator::GreaterOrEqual},
                                                     {"=", Operator::Equal},
                                                     {"<", Operator::Less},
                                                     {">", Operator::Greater}}};

bool isTextType(ColumnType type) {
  return type == ColumnType::Text || type == ColumnType::Memo;
}

class Parser {
 public:
  Parser(const ResultSource& source, std::string_view text) : source_(source), text_(text) {}

  Condition one() {
    Condition condition = comparison();
    requireEnd();
    return condition;
  }

  Condition several() {
    Condition condition = alternatives();
    requireEnd();
    return condition;
  }

 private:
  Condition alternatives() { return chain(Kind::Or, "OR", &Parser::conjunction); }
  Condition conjunction() { return chain(Kind::And, "AND", &Parser::operand); }

  Condition chain(Kind kind, std::string_view word, Condition (Parser::*part)()) {
    Condition first = (this->*part)();
    if (!takeWord(word)) return first;
    Condition all{.kind = kind, .parts = {std::move(first)}};
    do {
      all.parts.push_back((this->*part)());
    } while (takeWord(word));
    return all;
  }

  Condition operand() {
    if (!take('(')) return comparison();
    constexpr int deepest = 50;
    if (++depth_ > deepest) refuse();
    Condition inside = alternatives();
    if (!take(')')) refuse();
    --depth_;
    return inside;
  }

  Condition comparison() {
    Condition condition{.field = source_.requireField(name())};
    condition.op = comparisonOperator();
    const ColumnType type = source_.fields[static_cast<std::size_t>(condition.field)].type;
    condition.literal = literal();
    if (condition.op == Operator::Like) {
      std::string pattern = textOf(condition.literal);
      std::ranges::replace(pattern, '*', '%');
      condition.pattern = std::make_shared<const sql::LikePattern>(pattern);
      condition.literal = std::move(pattern);
    } else {
      condition.literal = comparable(type, condition.literal);
    }
    return condition;
  }

  Value comparable(ColumnType type, const Value& literal) const {
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
    refuse();
  }

  Operator comparisonOperator() {
    skipBlanks();
    for (const OperatorText& candidate : operatorTexts) {
      if (!text_.substr(at_).starts_with(candidate.text)) continue;
      at_ += candidate.text.size();
      return candidate.op;
    }
    if (takeWord("LIKE")) return Operator::Like;
    refuse();
  }

  std::string_view name() {
    skipBlanks();
    const std::size_t start = at_;
    if (take('[')) {
      const std::size_t end = text_.find(']', at_);
      if (end == std::string_view::npos) refuse();
      at_ = end + 1;
      return text_.substr(start + 1, end - start - 1);
    }
    while (at_ < text_.size() && isNameCharacter(text_[at_])) ++at_;
    if (at_ == start) refuse();
    return text_.substr(start, at_ - start);
  }

  Value literal() {
    skipBlanks();
    const char first = at_ < text_.size() ? text_[at_] : '\0';
    if (first == '\'' || first == '"') return quotedText(first);
    if (first == '#') {
      const std::size_t end = text_.find('#', at_ + 1);
      if (end == std::string_view::npos) refuse();
      const auto date = sql::dateFromLiteral(text_.substr(at_ + 1, end - at_ - 1));
      if (!date) refuse();
      at_ = end + 1;
      return *date;
    }
    if (takeWord("TRUE") || takeWord("YES")) return true;
    if (takeWord("FALSE") || takeWord("NO")) return false;
    return number();
  }

  Value quotedText(char quote) {
    const std::size_t start = ++at_;
    for (; at_ < text_.size(); ++at_) {
      if (text_[at_] != quote) continue;
      if (at_ + 1 >= text_.size() || text_[at_ + 1] != quote) {
        return sql::textFromLiteral(text_.substr(start, at_++ - start), quote);
      }
      ++at_;
    }
    refuse();
  }

  Value number() {
    const bool negative = take('-');
    skipBlanks();
    const std::size_t start = at_;
    auto belongs = [&](char c) {
      const bool exponentSign = (c == '-' || c == '+') && at_ > start && (text_[at_ - 1] | 0x20) == 'e';
      return std::isalnum(static_cast<unsigned char>(c)) || c == '.' || exponentSign;
    };
    while (at_ < text_.size() && belongs(text_[at_])) ++at_;
    const auto value = sql::numberFromLiteral(text_.substr(start, at_ - start));
    if (!value) refuse();
    if (!negative) return *value;
    if (const auto* whole = std::get_if<std::int64_t>(&*value)) return -*whole;
    return -numberOf(*value);
  }

  static bool isNameCharacter(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return std::isalnum(byte) || byte >= 0x80 || c == '_' || c == '.';
  }

  bool take(char c) {
    skipBlanks();
    if (at_ >= text_.size() || text_[at_] != c) return false;
    ++at_;
    return true;
  }

  bool takeWord(std::string_view word) {
    skipBlanks();
    const bool same = std::ranges::equal(text_.substr(at_, word.size()), word, [](char left, char right) {
      return std::toupper(static_cast<unsigned char>(left)) == right;
    });
    if (!same || (at_ + word.size() < text_.size() && isNameCharacter(text_[at_ + word.size()]))) return false;
    at_ += word.size();
    return true;
  }

  void skipBlanks() {
    while (at_ < text_.size() && std::isspace(static_cast<unsigned char>(text_[at_]))) ++at_;
  }

  void requireEnd() {
    skipBlanks();
    if (at_ < text_.size()) refuse();
  }

  [[noreturn]] void refuse() const {
    throw StoreError(ErrorKind::Statement, "The condition \"" + std::string(text_) +
                                               "\" cannot be understood at place " + std::to_string(at_ + 1) + ".");
  }

  const ResultSource& source_;
  std::string_view text_;
  std::size_t at_ = 0;
  int depth_ = 0;
};

bool holds(Operator op, int order) {
  switch (op) {
    case Operator::Equal:
      return order == 0;
    case Operator::NotEqual:
      return order != 0;
    case Operator::Less:
      return order < 0;
    case Operator::LessOrEqual:
      return order <= 0;
    case Operator::Greater:
      return order > 0;
    case Operator::GreaterOrEqual:
      return order >= 0;
    case Operator::Like:
      break;
  }
  return false;
}

bool fits(const Condition& condition, const std::function<Value(int)>& valueOf) {
  auto partFits = [&](const Condition& part) { return fits(part, valueOf); };
  if (condition.kind == Kind::And) return std::ranges::all_of(condition.parts, partFits);
  if (condition.kind == Kind::Or) return std::ranges::any_of(condition.parts, partFits);
  const Value value = valueOf(condition.field);
  if (isNull(value)) return false;
  if (condition.op == Operator::Like) return condition.pattern->matches(textOf(value));
  return holds(condition.op, compareValues(value, condition.literal));
}

std::string_view sqlOf(Operator op) {
  for (const OperatorText& candidate : operatorTexts) {
    if (candidate.op == op) return candidate.text;
  }
  return {};
}

std::string writeSql(const Condition& condition, const std::function<std::string(int)>& columnOf,
                     std::vector<Value>& parameters) {
  if (condition.kind == Kind::Comparison) {
    parameters.push_back(condition.literal);
    const std::string parameter = "?" + std::to_string(parameters.size());
    const std::string column = columnOf(condition.field);
    if (condition.op == Operator::Like) return "velmo_like(" + column + ", " + parameter + ")";
    return column + " " + std::string(sqlOf(condition.op)) + " " + parameter;
  }
  std::string sql = "(";
  for (const Condition& part : condition.parts) {
    if (sql.size() > 1) sql += condition.kind == Kind::And ? " AND " : " OR ";
    sql += writeSql(part, columnOf, parameters);
  }
  return sql + ")";
}

}  // namespace

RowTest RowTest::criterion(const ResultSource& source, std::string_view text) {
  return RowTest(Parser(source, text).one());
}

std::optional<RowTest> RowTest::filter(const ResultSource& source, std::string_view text) {
  if (std::ranges::all_of(text, [](unsigned char c) { return std::isspace(c) != 0; })) return std::nullopt;
  return RowTest(Parser(source, text).several());
}

bool RowTest::passes(const std::function<Value(int field)>& valueOf) const {
  return fits(condition_, valueOf);
}

std::string RowTest::sql(const std::function<std::string(int field)>& columnOf, std::vector<Value>& parameters) const {
  return writeSql(condition_, columnOf, parameters);
}

}  // namespace velmo::store
