#pragma once

#include <vector>

#include "spreadsheet/part_xml.h"

namespace velmo::spreadsheet {

// What the number of a cell means by its format.
struct NumberMeaning {
  bool isDate = false;
  int digits = 0;  // of a format of nothing but zeros, "00000": the number is a code with leading zeros

  // By a format's code: "yyyy-mm-dd", "[$-409]d\-mmm\-yy;@", "0.00" , "[h]:mm" (a number).
  static NumberMeaning of(QStringView code);
};

// The meanings by the index that cells give as their style.
std::vector<NumberMeaning> readStyles(const Archive& archive, const std::string& part);

}  // namespace velmo::spreadsheet
