#pragma once

#include <sys/types.h>

#include <functional>

namespace velmo::attack {

// A process that runs a function and ends without letting go of anything, as one that is killed.
class Process {
 public:
  explicit Process(const std::function<void()>& run);
  ~Process();  // kills it
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  void send(int signal) const;
  // Waits for its end: its exit status, 0 when the function returned, 1 when it threw, which is told on the standard
  // error; the negative number of the signal that ended it.
  int status();

 private:
  pid_t process_ = 0;
};

}  // namespace velmo::attack
