#include "frame/sheets/cell_text.h"

#include "text/format.h"
#include "text/number.h"

namespace velmo::frame {

std::string withoutNul(std::string_view typed) {
  std::string text(typed);
  std::erase(text, '\0');
  return text;
}

store::Value textOrNull(std::string text) {
  if (text.empty()) return store::Null{};
  return text;
}

store::Value figureOrNull(std::string_view text) {
  const auto number = text::numberFrom(text);
  if (!number) return store::Null{};
  return *number;
}

store::Value moneyOf(const store::Value& figure) {
  if (store::isNull(figure)) return figure;
  return text::amountFrom(text::formatNumber(store::numberOf(figure), "0.00"));
}

std::string shownFigure(const store::Value& amount) {
  return store::isNull(amount) ? std::string() : text::formatNumber(store::numberOf(amount), "0.00;(0.00)");
}

std::string editFigure(const store::Value& amount) {
  const std::string plain = store::textOf(amount);
  if (plain.empty()) return plain;
  const std::string twoDecimals = text::formatText(plain, "0.00");
  return text::numberFrom(twoDecimals) == text::numberFrom(plain) ? twoDecimals : plain;
}

}  // namespace velmo::frame
