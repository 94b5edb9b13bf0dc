#include "attack/process.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <exception>
#include <stdexcept>
#include <utility>

namespace velmo::attack {

Process::Process(const std::function<void()>& run) {
  std::fflush(nullptr);
  process_ = ::fork();
  if (process_ < 0) throw std::runtime_error("no process");
  if (process_ > 0) return;
  try {
    run();
    ::_exit(0);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    ::_exit(1);
  }
}

Process::~Process() {
  if (process_ == 0) return;
  send(SIGKILL);
  status();
}

void Process::send(int signal) const {
  ::kill(process_, signal);
}

int Process::status() {
  int status = 0;
  ::waitpid(std::exchange(process_, 0), &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

}  // namespace velmo::attack
