#pragma once

#include <string>

namespace velmo::text {

// English words of an amount of zero or more, with hundredths: "one thousand, two hundred thirty-four and 50/100".
std::string AmountInWords(double amount);

}  // namespace velmo::text
