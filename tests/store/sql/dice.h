#pragma once

#include <random>

namespace velmo::test {

// The same throws in every run.
class Dice {
 public:
  explicit Dice(unsigned seed) : engine_(seed) {}
  std::size_t below(std::size_t end) { return engine_() % end; }
  bool oneIn(std::size_t chances) { return below(chances) == 0; }
  template <typename Items>
  const auto& oneOf(const Items& items) {
    return items[below(items.size())];
  }

 private:
  std::mt19937 engine_;
};

}  // namespace velmo::test
