#include "text/date_time.h"

#include <charconv>
#include <chrono>
#include <cmath>

namespace velmo::text {
namespace {

constexpr std::int32_t epochOffset = 25569;  // 1970-01-01 as a day counted from 1899-12-30
constexpr std::int32_t firstDay = -657434;   // 0100-01-01
constexpr std::int32_t lastDay = 2958465;    // 9999-12-31
constexpr int secondsOfDay = 86400;

// The digits at `at` as a number; nothing when one of them is no digit.
std::optional<int> digitsAt(std::string_view text, std::size_t at, std::size_t count) {
  int value = 0;
  for (const char character : text.substr(at, count)) {
    if (character < '0' || character > '9') return std::nullopt;
    value = value * 10 + (character - '0');
  }
  return value;
}

// Of a number that is not negative, with zeros in front of it.
void appendDigits(std::string& text, int number, std::size_t width) {
  const std::size_t begin = text.size();
  text.append(width, '0');
  for (std::size_t at = text.size(); at-- > begin; number /= 10) text[at] = static_cast<char>('0' + number % 10);
}

}  // namespace

DateTime DateTime::fromCalendar(int year, int month, int dayOfMonth, int hour, int minute, int second) {
  using namespace std::chrono;
  const year_month first = std::chrono::year(year) / std::chrono::month(1) + months(month - 1);
  const auto days = sys_days(first / 1).time_since_epoch().count() + dayOfMonth - 1;
  const std::int64_t seconds = (std::int64_t{hour} * 60 + minute) * 60 + second;
  const std::int64_t extraDays = (seconds >= 0 ? seconds : seconds - secondsOfDay + 1) / secondsOfDay;
  return {static_cast<std::int32_t>(days + epochOffset + extraDays),
          static_cast<std::int32_t>(seconds - extraDays * secondsOfDay)};
}

DateTime DateTime::fromSerial(double days) {
  if (std::isnan(days)) return {};
  if (days <= firstDay) return {firstDay, 0};
  if (days >= lastDay + 1.0) return {lastDay, secondsOfDay - 1};
  const double whole = std::trunc(days);
  const auto second = static_cast<std::int32_t>(std::lround(std::fabs(days - whole) * secondsOfDay));
  const auto day = static_cast<std::int32_t>(whole);
  return second == secondsOfDay ? DateTime{day + 1, 0} : DateTime{day, second};
}

std::optional<DateTime> DateTime::fromIso(std::string_view text) {
  const bool withTime = text.size() == 19;
  if ((!withTime && text.size() != 10) || text[4] != '-' || text[7] != '-') return std::nullopt;
  const auto year = digitsAt(text, 0, 4), month = digitsAt(text, 5, 2), day = digitsAt(text, 8, 2);
  if (!year || !month || !day || *year < 100) return std::nullopt;
  const std::chrono::year_month_day calendarDay{std::chrono::year(*year), std::chrono::month(*month),
                                                std::chrono::day(*day)};
  if (!calendarDay.ok()) return std::nullopt;
  if (!withTime) return fromCalendar(*year, *month, *day);
  if (text[10] != ' ' || text[13] != ':' || text[16] != ':') return std::nullopt;
  const auto hour = digitsAt(text, 11, 2), minute = digitsAt(text, 14, 2), second = digitsAt(text, 17, 2);
  if (!hour || !minute || !second || *hour > 23 || *minute > 59 || *second > 59) return std::nullopt;
  return fromCalendar(*year, *month, *day, *hour, *minute, *second);
}

double DateTime::serial() const {
  const double timeOfDay = static_cast<double>(second) / secondsOfDay;
  return day < 0 ? day - timeOfDay : day + timeOfDay;
}

std::string DateTime::iso() const {
  const Calendar parts = calendar();
  std::string iso;
  iso.reserve(19);
  appendDigits(iso, parts.year, 4);
  for (const int part : {parts.month, parts.dayOfMonth}) appendDigits(iso += '-', part, 2);
  if (second == 0) return iso;
  appendDigits(iso += ' ', parts.hour, 2);
  for (const int part : {parts.minute, parts.second}) appendDigits(iso += ':', part, 2);
  return iso;
}

DateTime::Calendar DateTime::calendar() const {
  const std::chrono::year_month_day parts{std::chrono::sys_days(std::chrono::days(day - epochOffset))};
  return {.year = static_cast<int>(parts.year()),
          .month = static_cast<int>(static_cast<unsigned>(parts.month())),
          .dayOfMonth = static_cast<int>(static_cast<unsigned>(parts.day())),
          .hour = second / 3600,
          .minute = second / 60 % 60,
          .second = second % 60};
}

}  // namespace velmo::text
