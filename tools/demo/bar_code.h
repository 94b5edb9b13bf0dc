#pragma once

#include <cstdint>
#include <string>

namespace velmo::demo {

// The 13 digits of a European article number from the range that shops number themselves, with its check digit.
inline std::string articleNumber(std::int64_t number) {
  std::string digits = std::to_string(200000000000 + number);
  int sum = 0;
  for (std::size_t at = 0; at < digits.size(); ++at) sum += (digits[at] - '0') * (at % 2 == 0 ? 1 : 3);
  return digits + static_cast<char>('0' + (10 - sum % 10) % 10);
}

}  // namespace velmo::demo
