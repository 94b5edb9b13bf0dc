#pragma once

#include <vector>

#include "attack/told_books.h"

namespace velmo::attack {

// What processes tell of their steps. Throws std::runtime_error.
class ReportPipe {
 public:
  ReportPipe();
  ~ReportPipe();
  ReportPipe(const ReportPipe&) = delete;
  ReportPipe& operator=(const ReportPipe&) = delete;

  int end() const { return ends_[1]; }  // for the processes
  void tell(const Report& report) const;
  // What they have told since the last time.
  std::vector<Report> reports() const;
  // Whether something is told within the time, in milliseconds.
  bool waitForReport(int patience) const;

 private:
  int ends_[2] = {-1, -1};
};

}  // namespace velmo::attack
