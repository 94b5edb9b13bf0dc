#pragma once

#include <sys/types.h>

#include <string>

namespace velmo::test {

// A screen of 1024 x 768 of its own with a window manager, and DISPLAY set to it, while it lives. Throws
// std::runtime_error when there is none to be had.
class Display {
 public:
  Display();
  ~Display();
  Display(const Display&) = delete;
  Display& operator=(const Display&) = delete;

 private:
  pid_t server_ = 0;
  pid_t windowManager_ = 0;
};

}  // namespace velmo::test
