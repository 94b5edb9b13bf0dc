#pragma once

#include <string>
#include <string_view>

#include "store/sql/parse/statement.h"

namespace velmo::store::sql {

// A stretch of the statement's text, in bytes.
struct Place {
  std::size_t position = 0;
  std::size_t length = 0;
};

inline Place spanning(const Place& first, const Place& last) {
  return {first.position, last.position + last.length - first.position};
}

// Thrown inside a stage to leave its recursion, and caught by the stage's own function: it never leaves the compiler.
struct Refusal {
  CompileError error;
};

[[noreturn]] void refuse(std::string_view clause, const Place& place, std::string message);

bool sameWord(std::string_view a, std::string_view b);  // ASCII letters of either case are equal

}  // namespace velmo::store::sql
