#pragma once

#include <random>
#include <set>
#include <string>

#include "attack/attacks.h"
#include "attack/harms.h"
#include "attack/reading.h"
#include "attack/risk_folder.h"

namespace velmo::attack {

struct ProgramSaid;

// A company with some days of work in a folder of its own, to be damaged again and again.
class DamagedCompany {
 public:
  // Closed, or left by a program that died with the latest work in the log; of today, or of the first version.
  explicit DamagedCompany(std::mt19937& random);

  // Damages it, lets the program open it and judges what that said by what somebody sees who reads the file by himself.
  // A loss is a damage that was called good, a sound file that was refused or called damaged, a change by the program
  // that nobody asked for, a crash, or a minute without an end.
  void harm(const Harm& harm, std::mt19937& random, Outcome& outcome);

 private:
  void judge(const Harm& harm, const Reading& harmed, const ProgramSaid& said, Outcome& outcome);
  // Of a file that is no loss: what came of the damage.
  static void countWhatWasSeen(const Reading& harmed, const ProgramSaid& said, const std::set<std::string>& changes,
                               Outcome& outcome);

  RiskFolder folder_;
  Reading original_;
};

}  // namespace velmo::attack
