#pragma once

#include <malloc.h>

#include <fstream>
#include <stdexcept>
#include <string>

namespace velmo::bench {

// "VmRSS" is what the process has in memory now, "VmHWM" the most that it had; in megabytes of 2^20 bytes.
inline double memory(const std::string& what) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;)
    if (double kilobytes = 0; word == what + ":" && status >> kilobytes) return kilobytes / 1024;
  throw std::runtime_error("no " + what);
}

// What the process took at most since the object was made, beyond what it had then.
class PeakMemory {
 public:
  PeakMemory() {
    malloc_trim(0);                                 // what earlier work left over
    std::ofstream("/proc/self/clear_refs") << "5";  // the high water mark begins anew
    before_ = memory("VmRSS");
  }
  double grown() const { return memory("VmHWM") - before_; }
  double kept() const { return memory("VmRSS") - before_; }

 private:
  double before_ = 0;
};

}  // namespace velmo::bench
