#include "frame/posting/day_text.h"

#include "store/sql/parse/literals.h"
#include "store/values/value.h"
#include "text/format.h"

namespace velmo::frame {

std::string dayText(const text::DateTime& day) {
  return text::formatDate(day, "dd-mm-yyyy");
}

std::string formerDayText(const text::DateTime& day) {
  return store::textOf(day.date());
}

std::optional<text::DateTime> dayFrom(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  const std::size_t first = text.find_first_of("-/");
  if (first == std::string_view::npos) return std::nullopt;
  const std::size_t second = text.find(text[first], first + 1);
  if (second == std::string_view::npos) return std::nullopt;
  std::string monthFirst(text);
  if (first <= 2 && text[first] == '-')
    monthFirst = std::string(text.substr(first + 1, second - first)) + std::string(text.substr(0, first)) +
                 std::string(text.substr(second));
  const auto day = store::sql::dateFromLiteral(monthFirst);
  return day ? std::optional(day->date()) : std::nullopt;
}

}  // namespace velmo::frame
