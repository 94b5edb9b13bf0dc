#include <array>
#include <cstdio>

#include "text/format.h"

namespace velmo::text {
namespace {

constexpr std::array<std::string_view, 12> months = {"January",   "February", "March",    "April",
                                                     "May",       "June",     "July",     "August",
                                                     "September", "October",  "November", "December"};
constexpr std::array<std::string_view, 7> weekdays = {"Saturday",  "Sunday",   "Monday", "Tuesday",
                                                      "Wednesday", "Thursday", "Friday"};

char lower(char character) {
  return character >= 'A' && character <= 'Z' ? static_cast<char>(character + 32) : character;
}

std::string padded(int number, std::size_t width) {
  std::string text = std::to_string(number);
  return text.size() < width ? std::string(width - text.size(), '0') + text : text;
}

class DateWriter {
 public:
  DateWriter(const DateTime& value, std::string_view pattern)
      : pattern_(pattern), value_(value), parts_(value.calendar()), twelveHours_(findTwelveHours()) {}

  std::string write() {
    while (at_ < pattern_.size()) {
      const std::string_view half = dayHalfAt(at_);
      if (!half.empty()) {
        writeDayHalf(half);
      } else if (const char letter = lower(pattern_[at_]);
                 std::string_view("dmyhns").find(letter) != std::string::npos) {
        writeField(letter, runLength(letter));
      } else if (letter == '"') {
        ++at_;
      } else {
        if (letter == '\\' && at_ + 1 < pattern_.size()) ++at_;
        text_ += pattern_[at_++];
      }
    }
    return text_;
  }

 private:
  std::string_view dayHalfAt(std::size_t at) const {
    constexpr std::string_view mark = "am/pm";
    if (pattern_.size() - at < mark.size()) return {};
    for (std::size_t index = 0; index < mark.size(); ++index)
      if (lower(pattern_[at + index]) != mark[index]) return {};
    return pattern_.substr(at, mark.size());
  }

  bool findTwelveHours() const {
    for (std::size_t at = 0; at < pattern_.size(); ++at)
      if (!dayHalfAt(at).empty()) return true;
    return false;
  }

  void writeDayHalf(std::string_view mark) {
    text_ += mark.substr(parts_.hour < 12 ? 0 : 3, 2);
    at_ += mark.size();
  }

  std::size_t runLength(char letter) {
    const std::size_t start = at_;
    while (at_ < pattern_.size() && lower(pattern_[at_]) == letter) ++at_;
    return at_ - start;
  }

  void writeField(char letter, std::size_t count) {
    const bool minutes = letter == 'n' || (letter == 'm' && count <= 2 && afterHour_);
    afterHour_ = letter == 'h';
    if (minutes)
      text_ += padded(parts_.minute, count);
    else if (letter == 'd')
      writeDay(count);
    else if (letter == 'm')
      writeMonth(count);
    else if (letter == 'y')
      writeYear(count);
    else if (letter == 'h')
      text_ += padded(twelveHours_ ? (parts_.hour + 11) % 12 + 1 : parts_.hour, count);
    else
      text_ += padded(parts_.second, count);
  }

  void writeDay(std::size_t count) {
    const std::string_view weekday = weekdays[static_cast<std::size_t>(((value_.day % 7) + 7) % 7)];
    if (count <= 2)
      text_ += padded(parts_.dayOfMonth, count);
    else
      text_ += count == 3 ? weekday.substr(0, 3) : weekday;
  }

  void writeMonth(std::size_t count) {
    const std::string_view month = months[static_cast<std::size_t>(parts_.month - 1)];
    if (count <= 2)
      text_ += padded(parts_.month, count);
    else
      text_ += count == 3 ? month.substr(0, 3) : month;
  }

  void writeYear(std::size_t count) {
    if (count == 1)
      text_ += std::to_string(value_.day - DateTime::fromCalendar(parts_.year, 1, 1).day + 1);
    else
      text_ += count == 2 ? padded(parts_.year % 100, 2) : padded(parts_.year, 4);
  }

  std::string_view pattern_;
  DateTime value_;
  DateTime::Calendar parts_;
  bool twelveHours_;
  bool afterHour_ = false;  // the last field was an hour: an m is minutes
  std::size_t at_ = 0;
  std::string text_;
};

}  // namespace

std::string formatDate(const DateTime& value, std::string_view pattern) {
  return DateWriter(value, pattern).write();
}

}  // namespace velmo::text
