#pragma once

#include <cstdint>
#include <string>

namespace velmo::attack {

// An amount as the books mean it: the number that 15 significant digits write, in whole units of 10^-12. What is
// greater than 10^20 counts as that.
class Amount {
 public:
  Amount() = default;
  explicit Amount(double value);
  static Amount ofTenThousandths(std::int64_t parts);

  Amount& operator+=(const Amount& other);
  friend Amount operator-(const Amount& one, const Amount& other);
  bool operator==(const Amount&) const = default;

  bool isHalfCentOrMore() const;  // up or down
  // Up to what sums of binary fractions in another order may differ by.
  bool isAbout(const Amount& other) const;
  std::string text() const;

 private:
  __extension__ using Units = __int128;
  Units units_ = 0;
};

}  // namespace velmo::attack
