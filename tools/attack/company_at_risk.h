#pragma once

#include <functional>
#include <vector>

#include "attack/cashier.h"
#include "attack/failing_disk.h"
#include "attack/report_pipe.h"
#include "attack/risk_folder.h"

namespace velmo::attack {

// A piece of the program's work on a company's file, to be cut off or to fail at one of its writes.
struct Work {
  const char* name;
  int documentsBefore = 3;    // saved by a program that died: what it wrote is in the log
  bool firstVersion = false;  // then the file is as the first version of the program left it
  // One of them, in a process of its own, whose writes count from its beginning.
  std::function<void(Cashier&)> working = {};  // with the file open
  std::function<void()> opening = {};
};

// Saving, changing and deleting, the idle checkpoint, recovery at opening, the upgrade, a back-up, an import, the login
// and the balance pass.
const std::vector<Work>& works();

// A company in a folder of its own, which is the current one while it lives, before a piece of work. Throws
// std::runtime_error when that cannot be made.
class CompanyAtRisk {
 public:
  explicit CompanyAtRisk(const Work& work);

  // How many writes, syncs, truncations and deletions the work takes.
  long operations();
  // The company as it was before, the work with the fault at one of them, from 1, and the program started again.
  // What is wrong then.
  Problems problemsAfter(long operation, Fault fault);
  RiskFolder& folder() { return folder_; }

 private:
  int run(long operation, Fault fault);
  void restore();
  void lookAtFile(Problems& problems);
  void lookAtBackUp(Problems& problems);

  const Work& work_;
  RiskFolder folder_;
  ReportPipe pipe_;
  ToldBooks books_;
};

}  // namespace velmo::attack
