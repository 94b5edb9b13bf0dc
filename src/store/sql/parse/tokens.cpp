#include "store/sql/parse/tokens.h"

#include <array>
#include <optional>
#include <utility>

#include "store/sql/parse/literals.h"
#include "store/sql/parse/spellings.h"
#include "text/like.h"

namespace velmo::store::sql {
namespace {

LikeForm formOf(const std::string& pattern) {
  if (text::isPlainPattern(pattern)) return LikeForm::Plain;
  const std::optional<std::string> text = text::plainText(pattern);
  if (!text) return LikeForm::Wildcards;
  if (text::isAscii(*text)) return LikeForm::Escaped;
  return spellingsOf(*text) ? LikeForm::Spellings : LikeForm::Wildcards;
}

struct Spelling {
  std::string_view word;
  Keyword keyword;
};

constexpr std::array spellings{Spelling{"ALL", Keyword::All},
                               Spelling{"AND", Keyword::And},
                               Spelling{"AS", Keyword::As},
                               Spelling{"ASC", Keyword::Asc},
                               Spelling{"BETWEEN", Keyword::Between},
                               Spelling{"BY", Keyword::By},
                               Spelling{"DELETE", Keyword::Delete},
                               Spelling{"DESC", Keyword::Desc},
                               Spelling{"DISTINCT", Keyword::Distinct},
                               Spelling{"DISTINCTROW", Keyword::DistinctRow},
                               Spelling{"FALSE", Keyword::False},
                               Spelling{"FROM", Keyword::From},
                               Spelling{"GROUP", Keyword::Group},
                               Spelling{"HAVING", Keyword::Having},
                               Spelling{"IN", Keyword::In},
                               Spelling{"INNER", Keyword::Inner},
                               Spelling{"INSERT", Keyword::Insert},
                               Spelling{"INTO", Keyword::Into},
                               Spelling{"IS", Keyword::Is},
                               Spelling{"JOIN", Keyword::Join},
                               Spelling{"LEFT", Keyword::Left},
                               Spelling{"LIKE", Keyword::Like},
                               Spelling{"MOD", Keyword::Mod},
                               Spelling{"NO", Keyword::No},
                               Spelling{"NOT", Keyword::Not},
                               Spelling{"NULL", Keyword::Nothing},
                               Spelling{"OFF", Keyword::Off},
                               Spelling{"ON", Keyword::On},
                               Spelling{"OR", Keyword::Or},
                               Spelling{"ORDER", Keyword::Order},
                               Spelling{"OUTER", Keyword::Outer},
                               Spelling{"PERCENT", Keyword::Percent},
                               Spelling{"RIGHT", Keyword::Right},
                               Spelling{"SELECT", Keyword::Select},
                               Spelling{"SET", Keyword::Set},
                               Spelling{"TOP", Keyword::Top},
                               Spelling{"TRUE", Keyword::True},
                               Spelling{"UNION", Keyword::Union},
                               Spelling{"UPDATE", Keyword::Update},
                               Spelling{"VALUES", Keyword::Values},
                               Spelling{"WHERE", Keyword::Where},
                               Spelling{"YES", Keyword::Yes}};

// Where the words with a first letter start in the table above, which is in alphabetical order.
constexpr auto firstOfLetter = [] {
  std::array<std::uint8_t, 27> starts{};
  for (std::size_t letter = 0; letter < starts.size(); ++letter) {
    std::size_t index = 0;
    while (index < spellings.size() && static_cast<std::size_t>(spellings[index].word[0] - 'A') < letter) ++index;
    starts[letter] = static_cast<std::uint8_t>(index);
  }
  return starts;
}();

Keyword keywordOf(std::string_view word) {
  const char upper = static_cast<char>(word[0] & ~0x20);
  if (upper < 'A' || upper > 'Z' || word.size() > 11) return Keyword::None;
  const auto letter = static_cast<std::size_t>(upper - 'A');
  for (std::size_t i = firstOfLetter[letter]; i < firstOfLetter[letter + 1]; ++i) {
    if (sameWord(spellings[i].word, word)) return spellings[i].keyword;
  }
  return Keyword::None;
}

bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}
bool isDigit(char c) {
  return c >= '0' && c <= '9';
}
bool isWordCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || isDigit(c) || c == '_' ||
         (static_cast<unsigned char>(c) >= 0x80);
}

class Tokenizer {
 public:
  explicit Tokenizer(std::string_view statement) : statement_(statement) {}

  Tokens run() {
    if (statement_.size() > longestStatement) refuse("", {0, 0}, "The statement is too long.");
    found_.tokens.reserve(statement_.size() / 4 + 4);
    while (skipBlanks(), at_ < statement_.size()) next();
    found_.tokens.push_back({.place = {statement_.size(), 0}});
    return std::move(found_);
  }

 private:
  void skipBlanks() {
    while (at_ < statement_.size() && isBlank(statement_[at_])) ++at_;
  }
  char peek(std::size_t ahead = 0) const { return at_ + ahead < statement_.size() ? statement_[at_ + ahead] : '\0'; }

  void next() {
    const char c = peek();
    if (isDigit(c) || (c == '.' && isDigit(peek(1)) && !followsName())) return numberOrWord();
    if (isWordCharacter(c)) return word(at_);
    if (c == '\'' || c == '"') return quotedText(c);
    if (c == '#') return date();
    if (c == '[') return bracket();
    if (c == ']' && openDerived_ > 0) {
      --openDerived_;
      return symbol(TokenKind::CloseDerived, 1);
    }
    symbolOf(c);
  }

  bool followsName() const {
    if (found_.tokens.empty()) return false;
    const Token& last = found_.tokens.back();
    return (last.kind == TokenKind::Word || last.kind == TokenKind::BracketedName) &&
           last.place.position + last.place.length == at_;
  }

  void symbol(TokenKind kind, std::size_t length) {
    found_.tokens.push_back({.kind = kind, .place = {at_, length}});
    at_ += length;
  }

  void symbolOf(char c) {
    switch (c) {
      case '(':
        ++depth_;
        return symbol(TokenKind::OpenParenthesis, 1);
      case ')':
        closeParenthesis();
        return symbol(TokenKind::CloseParenthesis, 1);
      case ',':
        return symbol(TokenKind::Comma, 1);
      case '.':
      case '!':
        return symbol(TokenKind::Dot, 1);
      case '*':
        return symbol(TokenKind::Star, 1);
      case '+':
        return symbol(TokenKind::Plus, 1);
      case '-':
        return symbol(TokenKind::Minus, 1);
      case '/':
        return symbol(TokenKind::Slash, 1);
      case '\\':
        return symbol(TokenKind::Backslash, 1);
      case '^':
        return symbol(TokenKind::Caret, 1);
      case '&':
        return symbol(TokenKind::Ampersand, 1);
      case '=':
        return symbol(TokenKind::Equal, 1);
      case '<':
        return peek(1) == '>'   ? symbol(TokenKind::NotEqual, 2)
               : peek(1) == '=' ? symbol(TokenKind::LessOrEqual, 2)
                                : symbol(TokenKind::Less, 1);
      case '>':
        return peek(1) == '=' ? symbol(TokenKind::GreaterOrEqual, 2) : symbol(TokenKind::Greater, 1);
      case ';':
        return symbol(TokenKind::Semicolon, 1);
      default:
        refuse("", {at_, 1}, "This character has no meaning in a statement.");
    }
  }

  void closeParenthesis() {
    --depth_;
    if (depth_ < orderDepth_) orderDepth_ = notInOrder;
  }

  void word(std::size_t from) {
    while (at_ < statement_.size() && isWordCharacter(statement_[at_])) ++at_;
    Token token{.kind = TokenKind::Word, .place = {from, at_ - from}, .text = statement_.substr(from, at_ - from)};
    token.keyword = keywordOf(token.text);
    if (token.keyword == Keyword::Distinct) comparesExpressions_ = true;
    if (token.keyword == Keyword::By && lastKeyword() == Keyword::Order) orderDepth_ = depth_;
    found_.tokens.push_back(token);
  }

  Keyword lastKeyword() const { return found_.tokens.empty() ? Keyword::None : found_.tokens.back().keyword; }

  // A name may start with digits ("010Days"); a number is what its characters alone spell.
  void numberOrWord() {
    const std::size_t from = at_;
    while (isDigit(peek())) ++at_;
    if (peek() == '.') {
      ++at_;
      while (isDigit(peek())) ++at_;
    }
    if (peek() == 'e' || peek() == 'E') {
      const std::size_t sign = peek(1) == '+' || peek(1) == '-' ? 1 : 0;
      if (isDigit(peek(1 + sign))) {
        at_ += 1 + sign;
        while (isDigit(peek())) ++at_;
      }
    }
    if (isWordCharacter(peek())) return word(from);
    const std::string_view digits = statement_.substr(from, at_ - from);
    const auto value = numberFromLiteral(digits);
    if (!value) refuse("", {from, at_ - from}, "This number is too large.");
    if (isFixedPlace()) {
      found_.tokens.push_back({.kind = TokenKind::FixedNumber, .place = {from, at_ - from}, .text = digits});
    } else {
      literal({from, at_ - from}, {*value});
    }
  }

  bool isFixedPlace() const {
    if (found_.tokens.empty()) return false;
    const Token& last = found_.tokens.back();
    if (last.keyword == Keyword::Top) return true;
    return depth_ == orderDepth_ && (last.keyword == Keyword::By || last.kind == TokenKind::Comma);
  }

  void quotedText(char quote) {
    const std::size_t from = at_++;
    for (;;) {
      const std::size_t end = statement_.find(quote, at_);
      if (end == std::string_view::npos) {
        refuse("", {from, statement_.size() - from}, "This text has no closing quote.");
      }
      at_ = end + 1;
      if (peek() != quote) break;
      ++at_;
    }
    const std::string_view inside = statement_.substr(from + 1, at_ - from - 2);
    Literal text{textFromLiteral(inside, quote)};
    if (lastKeyword() == Keyword::Like) {
      text.like = formOf(std::get<std::string>(text.value));
    }
    literal({from, at_ - from}, std::move(text));
  }

  void date() {
    const std::size_t end = statement_.find('#', at_ + 1);
    if (end == std::string_view::npos) refuse("", {at_, statement_.size() - at_}, "This date has no closing #.");
    const Place place{at_, end + 1 - at_};
    const auto value = dateFromLiteral(statement_.substr(at_ + 1, end - at_ - 1));
    if (!value) refuse("", place, "This is not a date of the calendar.");
    at_ = end + 1;
    literal(place, {*value});
  }

  void bracket() {
    std::size_t start = at_ + 1;
    while (start < statement_.size() && isBlank(statement_[start])) ++start;
    const bool derived = sameWord(statement_.substr(std::min(start, statement_.size()), 6), "SELECT") &&
                         start + 6 < statement_.size() && isBlank(statement_[start + 6]);
    if (derived) {
      ++openDerived_;
      return symbol(TokenKind::OpenDerived, 1);
    }
    const std::size_t end = statement_.find(']', at_);
    if (end == std::string_view::npos) refuse("", {at_, statement_.size() - at_}, "This name has no closing bracket.");
    const std::string_view name = statement_.substr(at_ + 1, end - at_ - 1);
    const Place place{at_, end + 1 - at_};
    if (name.empty()) refuse("", place, "There is no name between the brackets.");
    for (const char c : name) {
      if (static_cast<unsigned char>(c) < 0x20) refuse("", place, "A name cannot hold control characters.");
    }
    found_.tokens.push_back({.kind = TokenKind::BracketedName, .place = place, .text = name});
    at_ = end + 1;
  }

  void literal(const Place& place, Literal literal) {
    found_.tokens.push_back(
        {.kind = TokenKind::Literal, .place = place, .literal = indexOf(std::move(literal), place)});
  }

  int indexOf(Literal literal, const Place& place) {
    if (comparesExpressions()) {
      const std::size_t compared = std::min(found_.literals.size(), mostCompared);
      for (std::size_t i = 0; i < compared; ++i) {
        if (found_.literals[i].value == literal.value && found_.literals[i].like == literal.like)
          return static_cast<int>(i);
      }
    }
    if (found_.literals.size() == mostLiterals) refuse("", place, "The statement holds too many values.");
    found_.literals.push_back(std::move(literal));
    return static_cast<int>(found_.literals.size()) - 1;
  }

  // Known from the start, since the select list stands before the words GROUP BY.
  bool comparesExpressions() {
    if (!comparesExpressions_) {
      comparesExpressions_ = false;
      for (std::size_t i = at_; i + 5 <= statement_.size() && !*comparesExpressions_; ++i) {
        const char first = static_cast<char>(statement_[i] | 0x20);
        comparesExpressions_ = first == 'g' && sameWord(statement_.substr(i, 5), "group");
      }
    }
    return *comparesExpressions_;
  }

  static constexpr std::size_t mostCompared = 256;
  static constexpr int notInOrder = 1 << 30;

  std::string_view statement_;
  std::size_t at_ = 0;
  int depth_ = 0;
  int orderDepth_ = notInOrder;
  int openDerived_ = 0;
  std::optional<bool> comparesExpressions_;
  Tokens found_;
};

}  // namespace

bool isZero(const Literal& literal) {
  const auto* whole = std::get_if<std::int64_t>(&literal.value);
  const auto* real = std::get_if<double>(&literal.value);
  return (whole != nullptr && *whole == 0) || (real != nullptr && *real == 0);
}

tl::expected<Tokens, CompileError> tokenize(std::string_view statement) {
  try {
    return Tokenizer(statement).run();
  } catch (const Refusal& refusal) {
    return tl::unexpected(refusal.error);
  }
}

}  // namespace velmo::store::sql
