#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "attack/attacks.h"

// velmo_attack MINUTES [SEED [ATTACK]]: harms companies' files in every way it knows for so long, or only in one way.
// Prints what was done; stops with status 1 at the first loss, with the seed that makes it happen again.
namespace {

using namespace velmo::attack;
using Counts = std::map<std::string, std::int64_t>;

void print(const Counts& counts, int minutes) {
  std::printf("After %d min:\n", minutes);
  for (const auto& [words, count] : counts) std::printf("  %8lld %s\n", static_cast<long long>(count), words.c_str());
  std::fflush(stdout);
}

int tellLoss(const Attack& attack, unsigned seed, const Outcome& outcome) {
  std::printf("LOSS in \"%s\", seed %u; the company lies in %s\n", attack.name, seed, outcome.evidence.c_str());
  for (const std::string& problem : outcome.problems) std::printf("  %s\n", problem.c_str());
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  const int minutes = argc > 1 ? std::atoi(argv[1]) : 0;
  if (minutes <= 0) {
    std::fprintf(stderr, "velmo_attack MINUTES [SEED [ATTACK]]\n");
    return 2;
  }
  auto seed = static_cast<unsigned>(argc > 2 ? std::atoi(argv[2]) : 1);
  Counts counts;
  const auto start = std::chrono::steady_clock::now();
  int told = 0;
  for (;; ++seed) {
    const auto passed =
        std::chrono::duration_cast<std::chrono::minutes>(std::chrono::steady_clock::now() - start).count();
    if (passed > told) print(counts, told = static_cast<int>(passed));
    if (passed >= minutes) break;
    for (const Attack& attack : attacks()) {
      if (argc > 3 && std::strcmp(argv[3], attack.name) != 0) continue;
      std::mt19937 random(seed);
      const Outcome outcome = attack.run(random);
      for (const auto& [words, count] : outcome.counts) counts[words] += count;
      if (!outcome.problems.empty()) return tellLoss(attack, seed, outcome);
    }
  }
  std::printf("Nothing was lost.\n");
  return 0;
}
