#include "store/sql/parse/criterion.h"

#include <iterator>
#include <utility>

#include "store/sql/parse/tokens.h"

namespace velmo::store::sql {
namespace {

constexpr std::string_view filterClause = "filter";
constexpr int deepestParentheses = 50;

class CriterionReader {
 public:
  explicit CriterionReader(Tokens& tokens) : tokens_(tokens) {}

  Filter filter() {
    Filter filter{anyOf()};
    requireEnd();
    return filter;
  }

  Criterion single() {
    Criterion criterion = this->criterion();
    requireEnd();
    return criterion;
  }

 private:
  using Alternatives = std::vector<std::vector<Criterion>>;

  const Token& peek() const { return tokens_.tokens[next_]; }
  Token take() {
    const Token token = peek();
    if (next_ + 1 < tokens_.tokens.size()) ++next_;
    return token;
  }
  [[noreturn]] void refuseHere(std::string message) const { refuse(filterClause, peek().place, std::move(message)); }

  void requireEnd() const {
    if (peek().kind != TokenKind::End) refuseHere("The condition should end here.");
  }

  Alternatives anyOf() {
    Alternatives all = allOf();
    while (peek().keyword == Keyword::Or) {
      take();
      Alternatives more = allOf();
      all.insert(all.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
    }
    return all;
  }

  Alternatives allOf() {
    Alternatives all = unit();
    while (peek().keyword == Keyword::And) {
      const Place place = take().place;
      Alternatives more = unit();
      if (all.size() > 1 || more.size() > 1) {
        refuse(filterClause, place, "Conditions joined by OR cannot be joined by AND to others.");
      }
      all[0].insert(all[0].end(), std::make_move_iterator(more[0].begin()), std::make_move_iterator(more[0].end()));
    }
    return all;
  }

  Alternatives unit() {
    if (peek().kind != TokenKind::OpenParenthesis) return {{criterion()}};
    if (depth_ == deepestParentheses) refuseHere("The condition is nested too deeply.");
    ++depth_;
    take();
    Alternatives inner = anyOf();
    if (peek().kind != TokenKind::CloseParenthesis) refuseHere("Here a closing parenthesis is expected.");
    take();
    --depth_;
    return inner;
  }

  Criterion criterion() {
    Criterion criterion;
    if (peek().kind != TokenKind::Word && peek().kind != TokenKind::BracketedName) {
      refuseHere("Here a column is expected.");
    }
    criterion.column = take().text;
    criterion.comparison = comparison();
    const Place place = peek().place;
    criterion.literal = literal();
    if (criterion.comparison == Comparison::Like) {
      auto* pattern = std::get_if<std::string>(&criterion.literal);
      if (pattern == nullptr) refuse(filterClause, place, "Here a text is expected.");
      if (pattern->starts_with('*')) pattern->front() = '%';
      if (pattern->ends_with('*')) pattern->back() = '%';
    }
    return criterion;
  }

  Comparison comparison() {
    const Token token = peek();
    if (token.keyword == Keyword::Like) {
      take();
      return Comparison::Like;
    }
    const auto found = [&](Comparison comparison) {
      take();
      return comparison;
    };
    switch (token.kind) {
      case TokenKind::Equal:
        return found(Comparison::Equal);
      case TokenKind::NotEqual:
        return found(Comparison::NotEqual);
      case TokenKind::Less:
        return found(Comparison::Less);
      case TokenKind::LessOrEqual:
        return found(Comparison::LessOrEqual);
      case TokenKind::Greater:
        return found(Comparison::Greater);
      case TokenKind::GreaterOrEqual:
        return found(Comparison::GreaterOrEqual);
      default:
        refuseHere("Here =, <>, <, <=, >, >= or like is expected.");
    }
  }

  Value literal() {
    const bool negative = peek().kind == TokenKind::Minus;
    if (negative) take();
    const Token token = peek();
    if (token.kind == TokenKind::Literal) {
      take();
      Value value = tokens_.literals[static_cast<std::size_t>(token.literal)].value;
      if (!negative) return value;
      if (const auto* whole = std::get_if<std::int64_t>(&value)) return -*whole;
      if (const auto* real = std::get_if<double>(&value)) return -*real;
      refuse(filterClause, token.place, "Here a number is expected.");
    }
    const bool yes = token.keyword == Keyword::Yes || token.keyword == Keyword::True;
    const bool no = token.keyword == Keyword::No || token.keyword == Keyword::False;
    if (negative || !(yes || no)) refuseHere("Here a value is expected.");
    take();
    return yes;
  }

  Tokens& tokens_;
  std::size_t next_ = 0;
  int depth_ = 0;
};

template <typename Read>
auto reading(std::string_view text, Read read)
    -> tl::expected<decltype(read(std::declval<CriterionReader&>())), CompileError> {
  auto tokens = tokenize(text);
  if (!tokens) return tl::unexpected(std::move(tokens.error()));
  try {
    CriterionReader reader(*tokens);
    return read(reader);
  } catch (const Refusal& refusal) {
    return tl::unexpected(refusal.error);
  }
}

}  // namespace

tl::expected<Criterion, CompileError> parseCriterion(std::string_view text) {
  return reading(text, [](CriterionReader& reader) { return reader.single(); });
}

tl::expected<Filter, CompileError> parseFilter(std::string_view text) {
  return reading(text, [](CriterionReader& reader) { return reader.filter(); });
}

}  // namespace velmo::store::sql
