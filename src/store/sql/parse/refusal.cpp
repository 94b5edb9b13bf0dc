#include "store/sql/parse/refusal.h"

#include <strings.h>

#include <utility>

namespace velmo::store::sql {

void refuse(std::string_view clause, const Place& place, std::string message) {
  throw Refusal{CompileError{.clause = std::string(clause),
                             .position = place.position,
                             .length = place.length,
                             .message = std::move(message)}};
}

bool sameWord(std::string_view a, std::string_view b) {
  return a.size() == b.size() && strncasecmp(a.data(), b.data(), a.size()) == 0;
}

std::string CompileError::describe(std::string_view statement) const {
  constexpr std::size_t longestQuote = 60;
  std::string sentence = clause.empty() ? message : "In the " + clause + " part: " + message;
  if (position >= statement.size()) return sentence + " The statement ends too early.";
  std::string_view piece = statement.substr(position, length == 0 ? 1 : length);
  sentence += " See \"";
  if (piece.size() <= longestQuote) return sentence + std::string(piece) + "\".";
  std::size_t cut = longestQuote;
  while (cut > 0 && (static_cast<unsigned char>(piece[cut]) & 0xC0) == 0x80) --cut;
  return sentence + std::string(piece.substr(0, cut)) + "...\".";
}

}  // namespace velmo::store::sql
