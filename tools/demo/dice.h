#pragma once

#include <cstdint>
#include <random>

namespace velmo::demo {

// Chance that falls the same way on every machine and every run.
class Dice {
 public:
  explicit Dice(std::uint32_t seed) : engine_(seed) {}

  // Both ends included.
  int between(int least, int most) {
    return least + static_cast<int>(engine_() % static_cast<std::uint32_t>(most - least + 1));
  }
  bool inHundred(int chances) { return between(1, 100) <= chances; }

  template <typename List>
  const auto& pick(const List& list) {
    return list[static_cast<std::size_t>(between(0, static_cast<int>(std::size(list)) - 1))];
  }

 private:
  std::mt19937 engine_;
};

}  // namespace velmo::demo
