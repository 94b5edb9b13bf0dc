#pragma once

#include <optional>
#include <string>
#include <vector>

#include "store/checks/finding.h"

namespace velmo::attack {

// What the program said of a file that it was started with and left alone with for a while.
struct ProgramSaid {
  int status = 0;                                 // of its process; 0 when it ended as it should
  std::optional<std::string> refusal;             // the sentence with which the start ended
  bool isUseful = true;                           // that sentence says what is wrong with the file
  bool mended = false;                            // totals, at the start or in the idle round
  std::vector<store::Finding> findings;           // of the start and of the idle round
  std::optional<std::string> roundFailed;         // a check that could not be carried out
  std::optional<std::string> backUpRefusal = {};  // a back-up was asked for and is not there
  bool saved = false;                             // though damage was found

  bool found(store::Finding::Kind kind) const;
};

// Where the file and its log lie as they were when damage was found in them.
inline constexpr const char* foundFolder = "found";

// In a process of its own, which is given a minute: the start of the program, the idle round with all its checks and
// what follows from them, a report, a back-up, and with damage an attempt to save.
ProgramSaid openAsProgram();

}  // namespace velmo::attack
