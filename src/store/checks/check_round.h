#pragma once

#include <atomic>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include "store/checks/finding.h"
#include "store/connection/connection.h"

struct sqlite3;

namespace velmo::store {

// Lets another thread end what a connection is doing. To be made and to go while the connection is open and idle.
class Halt {
 public:
  explicit Halt(Connection& connection);
  ~Halt();
  Halt(const Halt&) = delete;
  Halt& operator=(const Halt&) = delete;

  // The statement that runs fails, and so does every later one.
  void demand() noexcept;
  bool isDemanded() const noexcept { return demanded_; }

 private:
  sqlite3* database_;
  std::atomic<bool> demanded_ = false;
};

// Checks that are worked through one after the other, on a snapshot of their own and on any one thread. The log of the
// file is not folded in completely while the round lives.
class CheckRound {
 public:
  CheckRound(Connection snapshot, std::vector<IdleCheck> checks);

  // What they found; nothing when the round was stopped. Damage ends it: what is read behind it is worth nothing.
  // Throws StoreError.
  std::optional<std::vector<Finding>> run();
  // From any thread; run() comes back soon.
  void stop() noexcept { halt_.demand(); }

  Connection& snapshot() { return snapshot_; }

 private:
  Connection snapshot_;
  Halt halt_;
  std::vector<IdleCheck> checks_;
};

}  // namespace velmo::store
