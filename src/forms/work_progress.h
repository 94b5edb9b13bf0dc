#pragma once

#include <QElapsedTimer>
#include <cstdint>
#include <memory>

class QProgressDialog;
class QWidget;

namespace velmo::forms {

// Shows that long work goes on, from half a second after it began, or at once where it is known to be long, and lets
// the user stop it. The windows repaint while it reports and is shown; nothing in them can be used or closed then.
class WorkProgress {
 public:
  enum class Shows { WhenItTakesLong, AtOnce };

  // Without a total the bar only moves.
  WorkProgress(QWidget* parent, const QString& words, std::int64_t total = 0, Shows shows = Shows::WhenItTakesLong);
  ~WorkProgress();
  WorkProgress(const WorkProgress&) = delete;
  WorkProgress& operator=(const WorkProgress&) = delete;

  // To be called often; cheap. False when the user wants the work stopped.
  bool report(std::int64_t done);

 private:
  QElapsedTimer sinceStart_;
  QElapsedTimer sincePaint_;
  std::int64_t total_;
  int patience_;  // milliseconds
  std::unique_ptr<QProgressDialog> dialog_;
};

}  // namespace velmo::forms
