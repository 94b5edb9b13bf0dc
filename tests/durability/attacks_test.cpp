#include "attack/attacks.h"

#include <gtest/gtest.h>

namespace velmo::attack {
namespace {

constexpr unsigned seed = 20261122;

// One run of those that no other test here does; `./run attack` takes as many as there is time for.
TEST(Attacks, LoseNothing) {
  for (const auto& run : {killTheProgram, tearTheLog, letProgramsMeet}) {
    std::mt19937 random(seed);
    const Outcome outcome = run(random);
    EXPECT_FALSE(outcome.counts.empty()) << "nothing was done";
    for (const std::string& problem : outcome.problems)
      ADD_FAILURE() << problem << "; the company lies in " << outcome.evidence;
  }
}

}  // namespace
}  // namespace velmo::attack
