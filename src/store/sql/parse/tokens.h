#pragma once

#include <string_view>
#include <tl/expected.hpp>
#include <vector>

#include "store/sql/parse/refusal.h"
#include "store/sql/parse/statement.h"
#include "store/values/value.h"

// First stage: a statement's text to tokens. The values of literals are kept apart from the tokens, so that two
// statements that differ in values alone have the same tokens.
namespace velmo::store::sql {

enum class TokenKind {
  Word,           // a name or keyword as it stands
  BracketedName,  // [Desc]: never a keyword
  Literal,        // a value behind a parameter
  FixedNumber,    // a number that belongs to the statement's form: TOP 4, ORDER BY 2
  OpenDerived,    // the bracket of [SELECT ...]. AS x
  CloseDerived,
  OpenParenthesis,
  CloseParenthesis,
  Comma,
  Dot,  // . or !
  Star,
  Plus,
  Minus,
  Slash,
  Backslash,
  Caret,
  Ampersand,
  Equal,
  NotEqual,
  Less,
  LessOrEqual,
  Greater,
  GreaterOrEqual,
  Semicolon,
  End
};

enum class Keyword {
  None,
  All,
  And,
  As,
  Asc,
  Between,
  By,
  Delete,
  Desc,
  Distinct,
  DistinctRow,
  False,
  From,
  Group,
  Having,
  In,
  Inner,
  Insert,
  Into,
  Is,
  Join,
  Left,
  Like,
  Mod,
  No,
  Not,
  Nothing,
  Off,
  On,
  Or,
  Order,
  Outer,
  Percent,
  Right,
  Select,
  Set,
  Top,
  True,
  Union,
  Update,
  Values,
  Where,
  Yes
};

struct Token {
  TokenKind kind = TokenKind::End;
  Keyword keyword = Keyword::None;  // of a word
  Place place = {};
  std::string_view text = {};  // of a word, without brackets; of a fixed number, its digits
  int literal = -1;            // index into Tokens::literals
};

// How a text literal behind LIKE matches. Part of a statement's form, since an index serves all but the last.
enum class LikeForm {
  NotPattern,
  Plain,      // what is equal but for the case of its letters
  Escaped,    // the same behind the brackets of [%]
  Spellings,  // one of a few texts: letters beyond ASCII have two cases that the store does not know of
  Wildcards
};

// Whether only what is equal but for case matches.
constexpr bool isWhole(LikeForm form) {
  return form != LikeForm::NotPattern && form != LikeForm::Wildcards;
}

struct Literal {
  Value value;
  LikeForm like = LikeForm::NotPattern;
};

// Whether it is a number and 0. Part of a statement's form as well.
bool isZero(const Literal& literal);

struct Tokens {
  std::vector<Token> tokens;  // ends with TokenKind::End
  // In order of appearance. Where the statement groups or is distinct, equal literals are one, so that an expression
  // of the select list can be told to be one of the group's or of the order's.
  std::vector<Literal> literals;
};

inline constexpr std::size_t longestStatement = 256 * 1024;  // bytes
inline constexpr std::size_t mostLiterals = 30'000;

tl::expected<Tokens, CompileError> tokenize(std::string_view statement);

}  // namespace velmo::store::sql
