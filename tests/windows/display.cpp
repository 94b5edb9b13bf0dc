#include "windows/display.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>
#include <vector>

namespace velmo::test {
namespace {

// A program that ends with this one, and says nothing.
pid_t started(std::vector<std::string> words) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const pid_t child = ::fork();
  if (child != 0) return child;
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  const int nowhere = ::open("/dev/null", O_RDWR);
  ::dup2(nowhere, STDOUT_FILENO);
  ::dup2(nowhere, STDERR_FILENO);
  ::execvp(arguments[0], arguments.data());
  ::_exit(127);
}

void end(pid_t program) {
  if (program <= 0) return;
  ::kill(program, SIGTERM);
  ::waitpid(program, nullptr, 0);
}

}  // namespace

Display::Display() {
  int told[2];
  if (::pipe(told) != 0) throw std::runtime_error("no pipe");
  server_ = started({"Xvfb", "-displayfd", std::to_string(told[1]), "-screen", "0", "1024x768x24", "-nolisten", "tcp"});
  ::close(told[1]);
  std::string number;
  for (char byte = 0; ::read(told[0], &byte, 1) == 1 && byte != '\n';) number += byte;
  ::close(told[0]);
  if (number.empty()) throw std::runtime_error("Xvfb does not start");
  ::setenv("DISPLAY", (":" + number).c_str(), 1);
  windowManager_ = started({"openbox", "--sm-disable"});
}

Display::~Display() {
  end(windowManager_);
  end(server_);
}

}  // namespace velmo::test
