#pragma once

#include <random>
#include <vector>

namespace velmo::attack {

// One way of damaging the company's file, which nobody has open.
struct Harm {
  enum class Of {
    Bytes,   // of the file or its log, as disks and careless copying damage them
    Rows,    // by another program, which knows nothing of what the books promise
    Foreign  // another file in its place
  };
  const char* name;
  Of of;
  void (*doTo)(std::mt19937& random);
};

const std::vector<Harm>& harms();

}  // namespace velmo::attack
