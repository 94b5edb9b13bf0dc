#include "attack/report_pipe.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <stdexcept>

namespace velmo::attack {
namespace {

constexpr int roomInPipe = 1 << 20;  // bytes, so that nobody waits for the one who reads

}  // namespace

ReportPipe::ReportPipe() {
  if (::pipe(ends_) != 0) throw std::runtime_error("no pipe");
  ::fcntl(ends_[1], F_SETPIPE_SZ, roomInPipe);
  ::fcntl(ends_[0], F_SETFL, O_NONBLOCK);
}

ReportPipe::~ReportPipe() {
  for (const int end : ends_) ::close(end);
}

void ReportPipe::tell(const Report& report) const {
  if (::write(ends_[1], &report, sizeof report) != sizeof report) throw std::runtime_error("no report");
}

std::vector<Report> ReportPipe::reports() const {
  std::vector<Report> all;
  for (Report report; ::read(ends_[0], &report, sizeof report) == sizeof report;) all.push_back(report);
  return all;
}

bool ReportPipe::waitForReport(int patience) const {
  pollfd ready{ends_[0], POLLIN, 0};
  return ::poll(&ready, 1, patience) > 0;
}

}  // namespace velmo::attack
