#include "session/clock.h"

#include <ctime>

namespace velmo::session {

text::DateTime SystemClock::now() const {
  const std::time_t seconds = std::time(nullptr);
  std::tm local{};
  localtime_r(&seconds, &local);
  return text::DateTime::fromCalendar(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                                      local.tm_min, std::min(local.tm_sec, 59));
}

}  // namespace velmo::session
