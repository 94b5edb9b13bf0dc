#pragma once

#include <cstddef>
#include <string_view>

// The functions a statement may call. Any other name is refused.
namespace velmo::store::sql {

// What values an expression has, as far as the dialect tells them apart.
enum class Domain { Nothing, YesNo, Whole, Real, Date, Text };

enum class Argument {
  None,
  Any,
  Number,      // refused of other kinds
  Text,        // numbers and dates turn to their text first
  Convertible  // a number, or text that is turned into one
};

enum class Result { Whole, Real, Text, SameAsFirst };

struct Function {
  std::string_view name;       // in the dialect
  std::string_view storeName;  // in the emitted statement
  Argument first = Argument::None;
  Argument others = Argument::None;
  std::size_t fewest = 1;  // arguments
  std::size_t most = 1;
  Result result = Result::Real;
  bool aggregate = false;
};

const Function* findFunction(std::string_view name);  // nullptr when it is not of the dialect

}  // namespace velmo::store::sql
