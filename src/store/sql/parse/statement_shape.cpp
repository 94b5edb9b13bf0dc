#include "store/sql/parse/statement_shape.h"

#include <charconv>
#include <utility>

#include "store/sql/parse/tokens.h"

namespace velmo::store::sql {
namespace {

// Stands in the key for a literal: its kind, how it matches behind LIKE, whether it is a plain 0, and which of the
// literals it is, since equal ones may share a parameter. Starts with a character that no token does.
void writeHole(const Literal& literal, int index, std::string& key) {
  key += '\x01';
  key += static_cast<char>('a' + literal.value.index());
  key += static_cast<char>('0' + static_cast<int>(literal.like));
  if (isZero(literal)) key += 'z';
  char digits[12];
  const auto end = std::to_chars(std::begin(digits), std::end(digits), index).ptr;
  key.append(std::begin(digits), end);
  key += '\x01';
}

}  // namespace

tl::expected<StatementShape, CompileError> shapeOf(std::string_view statement) {
  auto tokens = tokenize(statement);
  if (!tokens) return tl::unexpected(std::move(tokens.error()));
  StatementShape shape;
  shape.key.reserve(statement.size() + tokens->literals.size() * 6);
  std::size_t copied = 0;
  for (const Token& token : tokens->tokens) {
    if (token.kind != TokenKind::Literal) continue;
    shape.key += statement.substr(copied, token.place.position - copied);
    copied = token.place.position + token.place.length;
    writeHole(tokens->literals[static_cast<std::size_t>(token.literal)], token.literal, shape.key);
  }
  shape.key += statement.substr(copied);
  shape.parameters.reserve(tokens->literals.size());
  for (Literal& literal : tokens->literals) shape.parameters.push_back(std::move(literal.value));
  return shape;
}

}  // namespace velmo::store::sql
