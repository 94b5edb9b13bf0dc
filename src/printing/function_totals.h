#pragma once

#include <vector>

#include "printing/report_walk.h"
#include "text/decimal_sum.h"

namespace velmo::printing {

// The running values of every Function of a design, for the group instance or report that its footer closes.
class FunctionTotals {
 public:
  // Throws std::logic_error for a function outside the footers, or one over the rows of its own level or above.
  FunctionTotals(const ReportDesign& design, const ReportWalk& walk);

  void beginGroup(int level);
  void addRow(int level);  // the current row of the walk
  store::Value result(const Element& element) const;

 private:
  struct Total {
    const Element* element = nullptr;
    int owner = -1;  // level of the footer; -1 for the report
    int source = 0;  // level whose rows count
    text::DecimalSum sum = {};
    double least = 0;
    double greatest = 0;
    std::int64_t rows = 0;
    std::int64_t values = 0;
  };

  void collect(const std::optional<Section>& footer, int owner);

  const ReportWalk& walk_;
  std::vector<Total> totals_ = {};
};

}  // namespace velmo::printing
