#pragma once

#include <string>

namespace velmo::frame {

// The figures of an item line as they stand in its cells; a text that is no number counts as 0.
struct LineFigures {
  std::string quantity;
  std::string rate;
  std::string discountRate;  // per cent of the gross amount; blank leaves `discount` as it was typed
  std::string discount;
};

// What follows from them. Gross and discount are texts of two decimals, and the net is computed from those texts, so
// that a line adds up as it is printed. The net is a plain number of up to 15 digits.
struct LineAmounts {
  std::string gross;
  std::string discount;
  std::string net;

  bool operator==(const LineAmounts&) const = default;
};

LineAmounts lineAmounts(const LineFigures& line);

// False when an amount of the line would be beyond what a number can hold.
bool isComputable(const LineFigures& line);

}  // namespace velmo::frame
