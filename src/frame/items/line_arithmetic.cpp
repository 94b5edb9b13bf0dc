#include "frame/items/line_arithmetic.h"

#include <cmath>

#include "text/decimal_sum.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::frame {

LineAmounts lineAmounts(const LineFigures& line) {
  LineAmounts amounts;
  amounts.gross = text::formatNumber(text::amountFrom(line.quantity) * text::amountFrom(line.rate), "0.00");
  amounts.discount = line.discount;
  if (const auto percent = text::numberFrom(line.discountRate)) {
    amounts.discount = text::formatNumber(*percent / 100 * text::amountFrom(amounts.gross), "0.00");
  }
  amounts.net = text::numberText(text::sumOf({text::amountFrom(amounts.gross), -text::amountFrom(amounts.discount)}));
  return amounts;
}

bool isComputable(const LineFigures& line) {
  const double gross = text::amountFrom(line.quantity) * text::amountFrom(line.rate);
  const auto percent = text::numberFrom(line.discountRate);
  const double discount = percent ? *percent / 100 * gross : text::amountFrom(line.discount);
  return std::isfinite(gross) && std::isfinite(discount) && std::isfinite(gross - discount);
}

}  // namespace velmo::frame
