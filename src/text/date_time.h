#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velmo::text {

// A day of the calendar and a second of that day. Day 0 is 1899-12-30, so that differences and sums of dates are
// plain day numbers; years 100 to 9999 are valid.
struct DateTime {
  std::int32_t day = 0;
  std::int32_t second = 0;  // 0 to 86399

  static DateTime fromCalendar(int year, int month, int dayOfMonth, int hour = 0, int minute = 0, int second = 0);
  // Whole days before the point, the time of day behind it, to the nearest second.
  static DateTime fromSerial(double days);
  // ISO text: "2026-11-22" or "2026-11-22 14:07:09"; nothing when the text is not a date of the calendar.
  static std::optional<DateTime> fromIso(std::string_view text);

  double serial() const;
  // "2026-11-22", with " 14:07:09" behind it when there is a time of day.
  std::string iso() const;
  DateTime date() const { return {day, 0}; }
  DateTime addDays(int days) const { return {day + days, second}; }

  struct Calendar {
    int year, month, dayOfMonth, hour, minute, second;
  };
  Calendar calendar() const;

  auto operator<=>(const DateTime&) const = default;
};

}  // namespace velmo::text
