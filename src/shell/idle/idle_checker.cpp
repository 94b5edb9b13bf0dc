#include "shell/idle/idle_checker.h"

#include <algorithm>
#include <functional>
#include <optional>

#include "schema/company_schema.h"
#include "store/checks/check_round.h"
#include "store/upkeep/database_file.h"

namespace velmo::shell {
namespace {

bool has(const std::vector<store::Finding>& findings, store::Finding::Kind kind) {
  return std::ranges::any_of(findings, [kind](const store::Finding& finding) { return finding.kind == kind; });
}

store::Connection opened(const std::string& connectionString) {
  store::Connection connection(schema::companyCatalog(), schema::schemaVersion);
  connection.open(connectionString);
  return connection;
}

}  // namespace

// Made and let go on the screen's thread; in between the other one works with it.
struct IdleChecker::Work {
  Work(store::Connection snapshot, std::vector<store::IdleCheck> checks, store::Connection writing,
       const text::DateTime& moment)
      : round(std::move(snapshot), std::move(checks)), mending(std::move(writing)), halt(mending), now(moment) {}
  void stop() noexcept {
    round.stop();
    halt.demand();
  }

  store::CheckRound round;
  store::Connection mending;  // writes totals
  store::Halt halt;
  text::DateTime now;
};

IdleChecker::IdleChecker(QObject* parent) : QObject(parent) {}

IdleChecker::~IdleChecker() {
  stop();
}

void IdleChecker::start(const store::Connection& books, const std::string& connectionString,
                        std::vector<store::IdleCheck> checks, const text::DateTime& now) {
  stop();
  work_ = std::make_unique<Work>(books.snapshot(), std::move(checks), opened(connectionString), now);
  thread_ = std::thread([this, round = ++round_] { runOnThread(*work_, round); });
}

void IdleChecker::stop() {
  if (!work_) return;
  ++round_;
  work_->stop();
  thread_.join();
  work_.reset();
}

// A copy of a damaged file is finished even when the program is closed.
void IdleChecker::runOnThread(Work& work, int round) {
  Result result;
  const auto onScreen = [this, round](const std::function<void()>& action) {
    const auto unlessStopped = [this, round, action] {
      if (round == round_) action();
    };
    QMetaObject::invokeMethod(this, unlessStopped, Qt::QueuedConnection);
  };
  try {
    std::optional<std::vector<store::Finding>> found = work.round.run();
    if (!found) return;
    result.findings = std::move(*found);
    if (has(result.findings, store::Finding::Kind::Damage)) {
      onScreen([this] { Q_EMIT damageFound(); });
      result.copy = keepCopy(work.round.snapshot(), work.now);
    } else if (has(result.findings, store::Finding::Kind::Total)) {
      store::mendKeptTotals(work.mending, store::TotalsCheck::All);
    }
    result.isThrough = true;
  } catch (const store::StoreError&) {
    result.isThrough = false;  // another program holds the file, or the disk is full: there will be another round
  }
  onScreen([this, result] { end(result); });
}

void IdleChecker::end(const Result& result) {
  thread_.join();
  work_.reset();
  Q_EMIT finished(result);
}

}  // namespace velmo::shell
