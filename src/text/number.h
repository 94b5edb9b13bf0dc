#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Numbers as the screens read and write them. The locale is always en-US: "." is the decimal point, "," groups.
namespace velmo::text {

// Up to 15 significant digits, never "-0", as any number turns to text: 0.5, 1E+15, 1E-05.
std::string numberText(double value);

// The number that a whole text stands for: "(5.00)", "5-", "$5", "1,234.50", "1e3", "&HFF" are numbers;
// "", "1 2", "1.2.3", ",5" are not.
std::optional<double> numberFrom(std::string_view text);
bool isNumeric(std::string_view text);

// The number at the head of a text, 0 when there is none; reads no grouping and no parentheses.
double leadingNumber(std::string_view text);

// A text box's figure: its number, or 0 when it holds none.
double amountFrom(std::string_view text);

// Half to even in decimal digits of the double, as the store's Round, CInt and CLng do.
double roundHalfEven(double value, int digits = 0);
double wholePart(double value);  // towards minus infinity
double truncated(double value);  // towards zero

}  // namespace velmo::text
