#pragma once

#include <QObject>
#include <QTimer>
#include <string>

#include "session/workplace.h"
#include "shell/idle/idle_checker.h"

namespace velmo::shell {

class StatusNote;

// What the program does with the company's file while nobody works: it adds to the kept totals what is still to be
// added, in portions too small to be noticed, folds the log into the file, and looks through it once a day and after
// each back-up. It says what came of it in the status bar; damage alone is worth a message.
class IdleWork : public QObject {
  Q_OBJECT

 public:
  // The file is open in the context. `state` is what was seen of it before.
  IdleWork(session::Workplace& workplace, const std::string& connectionString, const schema::FileState& state,
           StatusNote& note, QObject* parent);

  void run();                      // nobody works
  void pause() { steps_.stop(); }  // somebody works again
  void lookAgain();                // in the next idle moment, whatever day it is
  void stop();                     // before the file is closed

 Q_SIGNALS:
  void wantsToRun();  // once more, though nothing is done meanwhile

 private:
  bool mayWork() const;
  void step();
  bool addLines();
  void foldLog();
  void tellLog(const store::StoreError& failure);
  void startRound();
  bool isWholeDue();
  void roundEnded(const IdleChecker::Result& result);
  void keepDay();
  void refuseWriting();
  void foundDamage(const std::vector<store::Finding>& damage, const KeptCopy& copy);
  void tellMended();
  void tellTotals(const IdleChecker::Result& result);
  void tellDocuments(const std::vector<store::Finding>& findings);

  session::Workplace& workplace_;
  const std::string connectionString_;
  StatusNote& note_;
  IdleChecker checker_;
  QTimer steps_;              // of work that is done in small portions
  bool pagesAreDue_;          // the check before the first screen was not through
  bool isDemanded_ = false;   // all checks
  bool isWhole_ = false;      // the round that runs: all checks
  text::DateTime began_;      // the round that runs, or ran last
  text::DateTime lastRound_;  // of all checks that was through
  bool isDayKept_ = true;     // of it, in the settings
};

}  // namespace velmo::shell
