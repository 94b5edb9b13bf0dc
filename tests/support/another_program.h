#pragma once

#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>

namespace velmo::test {

// A process beside the test. It prepares itself, waits for its start, works, and ends without letting go of anything:
// what it has open goes as with a program that is killed.
class AnotherProgram {
 public:
  // When the constructor returns the other program has prepared itself and keeps what `prepare` returned.
  template <typename Prepare>
  explicit AnotherProgram(Prepare prepare, const std::function<void()>& work = {}) {
    int ready[2];
    if (::pipe(ready) != 0 || ::pipe(start_) != 0) throw std::runtime_error("no pipe");
    child_ = ::fork();
    if (child_ == 0) {
      ::close(start_[1]);
      try {
        [[maybe_unused]] const auto kept = prepare();
        char byte = 'r';
        if (::write(ready[1], &byte, 1) == 1 && ::read(start_[0], &byte, 1) == 1) {
          if (work) work();
          ::_exit(0);
        }
      } catch (const std::exception& failure) {
        std::fprintf(stderr, "the other program failed: %s\n", failure.what());
      }
      ::_exit(1);
    }
    ::close(ready[1]);
    ::close(start_[0]);
    char byte = 0;
    ready_ = ::read(ready[0], &byte, 1) == 1;
    ::close(ready[0]);
  }
  ~AnotherProgram() {
    if (child_ > 0) ended();
  }
  AnotherProgram(const AnotherProgram&) = delete;
  AnotherProgram& operator=(const AnotherProgram&) = delete;

  bool isReady() const { return ready_; }
  void start() {
    if (start_[1] < 0) return;
    ready_ = ready_ && ::write(start_[1], "s", 1) == 1;
    ::close(std::exchange(start_[1], -1));
  }
  // Waits for its end; whether it did all its work.
  bool ended() {
    start();
    int status = 0;
    ::waitpid(std::exchange(child_, 0), &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }

 private:
  int start_[2] = {-1, -1};
  pid_t child_ = 0;
  bool ready_ = false;
};

// The first value that any SQLite finds; the failure otherwise.
inline std::string answer(const std::filesystem::path& file, const char* sql) {
  sqlite3* database = nullptr;
  sqlite3_stmt* statement = nullptr;
  int code = sqlite3_open_v2(file.c_str(), &database, SQLITE_OPEN_READWRITE, nullptr);
  if (code == SQLITE_OK) code = sqlite3_prepare_v2(database, sql, -1, &statement, nullptr);
  if (code == SQLITE_OK) code = sqlite3_step(statement);
  std::string found = sqlite3_errmsg(database);
  if (code == SQLITE_ROW) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
    found = text == nullptr ? "null" : text;
  }
  sqlite3_finalize(statement);
  sqlite3_close(database);
  return found;
}

}  // namespace velmo::test
