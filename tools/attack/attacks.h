#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "attack/told_books.h"

namespace velmo::attack {

// What one run of an attack came to.
struct Outcome {
  Problems problems = {};
  std::filesystem::path evidence = {};              // the folder of the company, kept where there are problems
  std::map<std::string, std::int64_t> counts = {};  // of what was done, by words
};

// One way of harming the company's file, or of working on it where harm may come of it; each run takes some seconds.
struct Attack {
  const char* name;
  std::function<Outcome(std::mt19937& random)> run;
};

const std::vector<Attack>& attacks();

Outcome killTheProgram(std::mt19937& random);         // at random instants of whatever it does
Outcome letTheDiskFail(std::mt19937& random);         // at random writes of a piece of work
Outcome tearTheLog(std::mt19937& random);             // as a power cut does, behind what was told as saved
Outcome letProgramsMeet(std::mt19937& random);        // two or three on one file, some of them killed
Outcome damageTheFile(std::mt19937& random);          // and let the program open it
Outcome startProgramsTogether(std::mt19937& random);  // on no company, and on one of an older version

}  // namespace velmo::attack
