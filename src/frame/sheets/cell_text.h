#pragma once

#include <string>
#include <string_view>

#include "store/values/value.h"

// Between the cells of a sheet and the values behind them.
namespace velmo::frame {

// A text that nobody can type ends at no NUL: the store's own functions would see only half of it.
std::string withoutNul(std::string_view typed);

store::Value textOrNull(std::string text);
store::Value figureOrNull(std::string_view text);  // null for what is no number

// The amount of money that stands for a figure: what its cell shows, which is what is added up. Null for null.
store::Value moneyOf(const store::Value& figure);

// An amount as cells show it, "(5.00)", and as they open it for typing, "-5.00", with more decimals only when it has
// more. "" for null.
std::string shownFigure(const store::Value& amount);
std::string editFigure(const store::Value& amount);

}  // namespace velmo::frame
