#pragma once

namespace velmo::attack {

// What happens to the process at one of its writes.
enum class Fault {
  Kill,   // it ends there; of what it was writing the first half is written
  Full,   // the disk takes nothing more
  Broken  // the disk reports an error, once
};

// The exit status of a process that was killed.
inline constexpr int killedStatus = 9;

// A file system under SQLite that counts the writes, syncs, truncations and deletions of this process, and lets one of
// them fail. For processes of their own: it stays.
class FailingDisk {
 public:
  // Under every file that is opened from now on.
  static void install();
  // The fault comes at the `operation`-th from now, counted from 1; 0 for none.
  static void arm(long operation, Fault fault);
  static long operations();  // since arm()
};

}  // namespace velmo::attack
