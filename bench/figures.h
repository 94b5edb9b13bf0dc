#pragma once

#include <optional>
#include <string>

namespace velmo::bench {

struct Figure {
  std::string group, name;
  double value = 0;
  const char* unit = "ms";
  std::optional<double> goal = {};  // the most that it should be
  std::string remark = {};

  bool isBeyond() const { return goal && value > *goal; }
};

// Keeps what was measured until all benchmarks have run.
void tell(const Figure& figure);

// A table of all of them by group, and once more those that are beyond their goals. Prints nothing when none was told.
void printFigures();

}  // namespace velmo::bench
