#include "store/sql/bind/function_table.h"

#include <array>

#include "store/sql/parse/refusal.h"

namespace velmo::store::sql {
namespace {

// IIf, IsNull and Format depend on the kinds of their arguments and are bound on their own.
constexpr std::array functions{
    Function{"Abs", "abs", Argument::Number, Argument::None, 1, 1, Result::SameAsFirst},
    Function{"Int", "velmo_int", Argument::Number, Argument::None, 1, 1, Result::SameAsFirst},
    Function{"Fix", "velmo_fix", Argument::Number, Argument::None, 1, 1, Result::SameAsFirst},
    Function{"Round", "velmo_round", Argument::Number, Argument::Number, 1, 2, Result::SameAsFirst},
    Function{"Sgn", "sign", Argument::Number, Argument::None, 1, 1, Result::Whole},
    Function{"CInt", "velmo_whole", Argument::Convertible, Argument::None, 1, 1, Result::Whole},
    Function{"CLng", "velmo_whole", Argument::Convertible, Argument::None, 1, 1, Result::Whole},
    Function{"CDbl", "velmo_number", Argument::Convertible, Argument::None, 1, 1, Result::Real},
    Function{"CStr", "velmo_required_text", Argument::Text, Argument::None, 1, 1, Result::Text},
    Function{"Val", "velmo_val", Argument::Text, Argument::None, 1, 1, Result::Real},
    Function{"Left", "velmo_left", Argument::Text, Argument::Number, 2, 2, Result::Text},
    Function{"Right", "velmo_right", Argument::Text, Argument::Number, 2, 2, Result::Text},
    Function{"Mid", "velmo_mid", Argument::Text, Argument::Number, 2, 3, Result::Text},
    Function{"Len", "length", Argument::Text, Argument::None, 1, 1, Result::Whole},
    Function{"Trim", "trim", Argument::Text, Argument::None, 1, 1, Result::Text},
    Function{"LTrim", "ltrim", Argument::Text, Argument::None, 1, 1, Result::Text},
    Function{"RTrim", "rtrim", Argument::Text, Argument::None, 1, 1, Result::Text},
    Function{"Sum", "velmo_sum", Argument::Number, Argument::None, 1, 1, Result::Real, true},
    Function{"Avg", "velmo_avg", Argument::Number, Argument::None, 1, 1, Result::Real, true},
    Function{"Min", "min", Argument::Any, Argument::None, 1, 1, Result::SameAsFirst, true},
    Function{"Max", "max", Argument::Any, Argument::None, 1, 1, Result::SameAsFirst, true},
    Function{"Count", "count", Argument::Any, Argument::None, 1, 1, Result::Whole, true},
    Function{"First", "velmo_first", Argument::Any, Argument::None, 1, 1, Result::SameAsFirst, true},
    Function{"Last", "velmo_last", Argument::Any, Argument::None, 1, 1, Result::SameAsFirst, true}};

}  // namespace

const Function* findFunction(std::string_view name) {
  for (const Function& function : functions) {
    if (sameWord(function.name, name)) return &function;
  }
  return nullptr;
}

}  // namespace velmo::store::sql
