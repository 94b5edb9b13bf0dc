#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmo::house {

struct FunctionLength {
  std::string head = {};  // what stands before its body
  int line = 0;           // where the body begins, from 1
  int lines = 0;          // of the body with its braces
  int statements = 0;     // that end with a semicolon, those of blocks and lambdas in it included
};

// The functions that a source file of ours defines, those within classes included; a lambda belongs to the function or
// the table that it stands in.
std::vector<FunctionLength> functionsIn(std::string_view source);

// Long, and no table of data: a function that says one thing at length, as a descriptor does, has no way to get lost
// in.
bool isTooLong(const FunctionLength& function);

}  // namespace velmo::house
