#include "store/checks/check_round.h"

#include <sqlite3.h>

#include <algorithm>

namespace velmo::store {
namespace {

constexpr int stepsBetweenLooks = 10'000;  // of the database's machine, well below a millisecond

bool isDamage(const Finding& finding) {
  return finding.kind == Finding::Kind::Damage;
}

}  // namespace

// An interrupt ends what runs, and only that; the handler ends what begins after it.
Halt::Halt(Connection& connection) : database_(connection.handle()) {
  const auto isDemanded = [](void* self) { return static_cast<Halt*>(self)->isDemanded() ? 1 : 0; };
  sqlite3_progress_handler(database_, stepsBetweenLooks, isDemanded, this);
}

Halt::~Halt() {
  sqlite3_progress_handler(database_, 0, nullptr, nullptr);
}

void Halt::demand() noexcept {
  demanded_ = true;
  sqlite3_interrupt(database_);
}

CheckRound::CheckRound(Connection snapshot, std::vector<IdleCheck> checks)
    : snapshot_(std::move(snapshot)), halt_(snapshot_), checks_(std::move(checks)) {}

std::optional<std::vector<Finding>> CheckRound::run() {
  std::vector<Finding> all;
  for (const IdleCheck& check : checks_) {
    if (halt_.isDemanded()) return std::nullopt;
    try {
      std::vector<Finding> found = check.look(snapshot_);
      std::ranges::move(found, std::back_inserter(all));
    } catch (const StoreError& failure) {
      if (halt_.isDemanded()) return std::nullopt;
      if (failure.kind() != ErrorKind::Damaged) throw;
      all.push_back({.kind = Finding::Kind::Damage, .words = check.name});
    }
    if (std::ranges::any_of(all, isDamage)) break;
  }
  return all;
}

}  // namespace velmo::store
