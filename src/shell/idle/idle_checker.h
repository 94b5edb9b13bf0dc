#pragma once

#include <QObject>
#include <memory>
#include <thread>
#include <vector>

#include "shell/idle/damage_notice.h"

namespace velmo::shell {

// Works through checks of the company's file on a thread of its own, with connections of its own, so that no key waits.
class IdleChecker : public QObject {
  Q_OBJECT

 public:
  struct Result {
    bool isThrough = false;  // otherwise the file could not be read, or what was off could not be set right
    std::vector<store::Finding> findings;
    KeptCopy copy;  // of a damaged file
  };

  explicit IdleChecker(QObject* parent);
  ~IdleChecker() override;

  // `books` is what the screens work with, and `connectionString` its file. Throws store::StoreError.
  void start(const store::Connection& books, const std::string& connectionString, std::vector<store::IdleCheck> checks,
             const text::DateTime& now);
  bool isRunning() const { return work_ != nullptr; }
  // Comes back soon, and nothing of the round is left then: no thread, no connection, no signal.
  void stop();

 Q_SIGNALS:
  void damageFound();  // at once; the copy takes a while
  void finished(const velmo::shell::IdleChecker::Result& result);

 private:
  struct Work;
  void runOnThread(Work& work, int round);
  void end(const Result& result);

  std::unique_ptr<Work> work_;
  std::thread thread_;
  int round_ = 0;  // what an earlier one still has to say is not heard
};

}  // namespace velmo::shell
