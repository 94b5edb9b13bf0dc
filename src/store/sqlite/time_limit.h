#pragma once

#include <sqlite3.h>

#include <chrono>

namespace velmo::store {

// Interrupts what a connection reads when a time has passed, while this object lives.
class TimeLimit {
 public:
  TimeLimit(sqlite3* database, std::chrono::milliseconds limit)
      : database_(database), end_(std::chrono::steady_clock::now() + limit) {
    constexpr int steps = 1000;  // of the database's machine, between two looks at the clock
    sqlite3_progress_handler(
        database, steps, [](void* self) { return static_cast<TimeLimit*>(self)->hasPassed() ? 1 : 0; }, this);
  }
  ~TimeLimit() { sqlite3_progress_handler(database_, 0, nullptr, nullptr); }
  TimeLimit(const TimeLimit&) = delete;
  TimeLimit& operator=(const TimeLimit&) = delete;

  bool hasPassed() const { return std::chrono::steady_clock::now() > end_; }

 private:
  sqlite3* database_;
  std::chrono::steady_clock::time_point end_;
};

}  // namespace velmo::store
