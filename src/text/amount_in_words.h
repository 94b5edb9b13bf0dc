#pragma once

#include <string>

namespace velmo::text {

// English words of an amount with hundredths: "one thousand, two hundred thirty-four and 50/100". The whole part stands
// in figures from a thousand trillions on; a negative amount is "minus " and the words of its size.
std::string AmountInWords(double amount);

}  // namespace velmo::text
