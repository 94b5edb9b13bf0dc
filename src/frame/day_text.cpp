#include "frame/day_text.h"

#include "store/sql/literals.h"
#include "store/value.h"

namespace velmo::frame {

std::string dayText(const text::DateTime& day) {
  return store::textOf(day.date());
}

std::optional<text::DateTime> dayFrom(std::string_view text) {
  if (const auto iso = text::DateTime::fromIso(text)) return iso;
  return store::sql::dateFromLiteral(text);
}

}  // namespace velmo::frame
