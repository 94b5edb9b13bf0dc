#pragma once

#include <random>
#include <string>

namespace velmo::test {

// The same throws in every run.
class Dice {
 public:
  explicit Dice(unsigned seed) : engine_(seed) {}
  int pick(int below) { return static_cast<int>(engine_() % static_cast<unsigned>(below)); }
  std::size_t below(std::size_t end) { return engine_() % end; }
  bool oneIn(std::size_t chances) { return below(chances) == 0; }
  template <typename Items>
  const auto& oneOf(const Items& items) {
    return items[below(items.size())];
  }
  // Up to so many digits before the point, and up to three behind it.
  std::string amount(int digits) {
    std::string text;
    for (int left = pick(3) ? 1 + pick(digits) : digits; left > 0; --left) text += std::to_string(pick(10));
    if (pick(4) != 0) text += '.' + std::to_string(pick(10)) + std::to_string(pick(10)) + std::to_string(pick(10));
    return text;
  }

 private:
  std::mt19937 engine_;
};

}  // namespace velmo::test
