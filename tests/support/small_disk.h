#pragma once

#include <sys/resource.h>

#include <csignal>

namespace velmo::test {

// Files may not grow beyond a size while it lives: what a full disk looks like to whoever writes.
class SmallDisk {
 public:
  explicit SmallDisk(rlim_t bytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit small{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
  }
  ~SmallDisk() { setrlimit(RLIMIT_FSIZE, &before_); }
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

 private:
  rlimit before_ = {};
};

}  // namespace velmo::test
