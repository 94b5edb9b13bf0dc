#include "schema/currencies_of_the_world.h"

#include <unicode/ucurr.h>
#include <unicode/uloc.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <optional>

namespace velmo::schema {
namespace {

constexpr const char* english = "en_US";

std::string utf8(const icu::UnicodeString& text) {
  std::string result;
  text.toUTF8String(result);
  return result;
}

std::string currencyName(const char16_t* code, UCurrNameStyle style) {
  UErrorCode status = U_ZERO_ERROR;
  int32_t length = 0;
  const char16_t* name = ucurr_getName(code, english, style, nullptr, &length, &status);
  return utf8(U_SUCCESS(status) ? icu::UnicodeString(name, length) : icu::UnicodeString(code));
}

std::optional<CountryCurrency> currencyOf(const std::string& countryCode) {
  const std::string locale = "und_" + countryCode;
  UErrorCode status = U_ZERO_ERROR;
  char16_t code[4] = {};
  if (ucurr_forLocale(locale.c_str(), code, 4, &status) != 3 || U_FAILURE(status)) return std::nullopt;
  char16_t country[200];
  const int32_t length = uloc_getDisplayCountry(locale.c_str(), english, country, 200, &status);
  if (U_FAILURE(status)) return std::nullopt;
  return CountryCurrency{.country = utf8(icu::UnicodeString(country, length)),
                         .name = currencyName(code, UCURR_LONG_NAME),
                         .symbol = currencyName(code, UCURR_NARROW_SYMBOL_NAME)};
}

}  // namespace

std::vector<CountryCurrency> currenciesOfTheWorld() {
  std::vector<CountryCurrency> result;
  for (const char* const* code = uloc_getISOCountries(); *code != nullptr; ++code)
    if (auto currency = currencyOf(*code)) result.push_back(std::move(*currency));
  std::sort(result.begin(), result.end(),
            [](const CountryCurrency& left, const CountryCurrency& right) { return left.country < right.country; });
  return result;
}

}  // namespace velmo::schema
