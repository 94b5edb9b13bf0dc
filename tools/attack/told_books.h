#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace velmo::attack {

using Problems = std::vector<std::string>;  // sentences for whoever looks into it; none when all is well

// What a document is to look like in the file: the figures from which every row of it can be checked.
struct Expected {
  bool present = false;
  std::int64_t lines = 0;
  double netTotal = 0;
  bool cancelled = false;
  bool operator==(const Expected&) const = default;
};

using Documents = std::map<std::int64_t, Expected>;  // by number

// One step of a process that saves, told through a pipe before it begins and again when the save has returned.
struct Report {
  enum class Phase { Begun, Done, Refused, Note };
  Phase phase = Phase::Note;
  std::int64_t docNo = 0;  // of a note, whatever it says
  Expected outcome = {};
};

// The books as a cashier told of them, held against the file "Uninstall/Uninstall.MDB".
class ToldBooks {
 public:
  const Documents& known() const { return known_; }
  int interrupted() const { return interrupted_; }  // how often the file was left within a step

  // Opens the file as the program does. Every step that was told as done is to be there whole, one that was only begun
  // whole or not at all, and what is there from now on is known. Of steps on one number that ran beside each other any
  // may have been the last.
  Problems check(const std::vector<Report>& reports);

 private:
  void know(std::int64_t docNo, const Expected& outcome);

  Documents known_;
  int interrupted_ = 0;
};

}  // namespace velmo::attack
