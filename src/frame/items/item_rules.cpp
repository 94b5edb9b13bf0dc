#include "frame/items/item_rules.h"

#include <algorithm>
#include <cmath>

#include "text/number.h"

namespace velmo::frame {
namespace {

constexpr double figureLimit = 99999999;
constexpr double percentLimit = 100;      // itself refused
constexpr std::size_t longestText = 250;  // characters

// What a cell is called in "Select inventory item before entering ...".
std::string_view entryName(GridColumn column) {
  switch (column) {
    case GridColumn::Description:
      return "description";
    case GridColumn::Quantity:
      return "quantity";
    case GridColumn::Rate:
      return "rate";
    case GridColumn::DiscountRate:
      return "discount rate";
    case GridColumn::Discount:
      return "discount amount";
    case GridColumn::Packing:
      return "packing details";
    default:
      return {};
  }
}

std::size_t characters(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

bool isWithin(std::string_view text, FigureRange range) {
  const auto number = text::numberFrom(text);
  if (!number) return false;
  return range == FigureRange::BelowLimit ? *number < figureLimit : std::abs(*number) <= figureLimit;
}

bool isNumberBelow(std::string_view text, double limit) {
  const auto number = text::numberFrom(text);
  return number && *number < limit;
}

}  // namespace

bool isReadOnly(GridColumn column) {
  return column == GridColumn::FlowId || column == GridColumn::Unit || column == GridColumn::GrossAmount ||
         column == GridColumn::NetAmount;
}

bool isFigure(GridColumn column) {
  return column == GridColumn::Quantity || (column >= GridColumn::Rate && column <= GridColumn::NetAmount);
}

EntryVerdict beforeEdit(GridColumn column, const LineCells& line, const LineRules& rules) {
  if (isReadOnly(column)) return {.refused = true};
  EntryVerdict verdict;
  if (const auto name = entryName(column); !name.empty() && line.itemCode.empty()) {
    verdict.refused = rules.codes == LineCodes::ItemsOnly;
    verdict.messages.push_back({.title = "Select Inventory Item",
                                .text = "Select inventory item before entering " + std::string(name) +
                                        ". If you want to enter a service, then give 'Service' in Item Code Column."});
  }
  if (column == GridColumn::Discount && !line.discountRate.empty()) {
    verdict.refused = true;
    verdict.messages.push_back(
        {.title = "Discount Error",
         .text = "You cannot enter discount amount, if you have already given discount rate in percent. If you want "
                 "to give discount amount manually then clear discount rate."});
  }
  return verdict;
}

bool acceptsEntry(GridColumn column, std::string_view typed, const LineCells& line, const LineRules& rules) {
  switch (column) {
    case GridColumn::ItemCode:
      return true;
    case GridColumn::Description:
    case GridColumn::Packing:
      return characters(typed) <= longestText;
    case GridColumn::Quantity:
    case GridColumn::Rate:
      return isWithin(typed, rules.figures);
    case GridColumn::DiscountRate:
      return typed.empty() || isNumberBelow(typed, percentLimit);
    case GridColumn::Discount: {
      const auto discount = text::numberFrom(typed);
      return discount && *discount <= text::amountFrom(line.gross);
    }
    default:
      return false;
  }
}

bool isServiceCode(std::string_view itemCode) {
  constexpr std::string_view service = "SERVICE";
  return std::equal(itemCode.begin(), itemCode.end(), service.begin(), service.end(),
                    [](char a, char b) { return (a >= 'a' && a <= 'z' ? a - 0x20 : a) == b; });
}

std::optional<session::Prompt> shortBalance(std::string_view quantity, double available) {
  if (text::amountFrom(quantity) <= available) return std::nullopt;
  return session::Prompt{.title = "Short Item Balance",
                         .text = "You do not have required balance of this item in hand."};
}

}  // namespace velmo::frame
