#pragma once

#include <QApplication>
#include <QTimer>
#include <chrono>
#include <functional>
#include <optional>
#include <string>

namespace velmo::bench {

// A stretch in which nobody's key would have been heard.
struct Stall {
  double milliseconds = 0;  // without the disk's
  double processor = 0;     // milliseconds of them that the thread worked, on a machine that others share
  double disk = 0;          // milliseconds in which the disk made writes durable
  std::string what;         // its longest event
};

// How long the program needs between one look for keys and the next, nested loops included. Its event loop must be the
// one without GLib, which says when it looks (see useOwnLoop()).
class StallApplication : public QApplication {
 public:
  // Before the application is made.
  static void useOwnLoop() { qputenv("QT_NO_GLIB", "1"); }

  StallApplication(int& argc, char** argv);
  bool notify(QObject* receiver, QEvent* event) override;

  // All from here on counts anew.
  void reset();
  // The longest of those in which the disk counts for nothing.
  const Stall& longest() const { return longest_; }

  // Watches for the first time that something within the widget of that name is painted.
  void watchFor(const QString& name);
  bool isPainted() const { return paintedAt_.has_value(); }

  // Does the action from within the loop, waits until nothing more happens for a moment (with `isDone`, not before it
  // holds) and comes back, having closed whatever dialog the action opened. Milliseconds until the last of it, or until
  // the first painting of what is watched for.
  double perform(const std::function<void()>& action, const std::function<bool()>& isDone = {});

 private:
  using Clock = std::chrono::steady_clock;

  bool isForeign(const QObject* receiver) const { return receiver != &calm_; }
  void looksForKeys();
  void isBusyFrom(Clock::time_point moment);
  template <typename Name>
  void handled(Clock::time_point began, const Name& event);

  QTimer calm_;
  int depth_ = 0;
  bool waits_ = false;  // the loop has nothing to do
  std::optional<Clock::time_point> busySince_;
  double diskBefore_ = 0;
  double processorBefore_ = 0;
  double longestEvent_ = 0;
  std::string event_;  // the longest of the present stretch
  Stall longest_;
  Clock::time_point lastWork_;
  QString watched_;
  bool painting_ = false;
  std::optional<Clock::time_point> paintedAt_;
};

StallApplication& stallApplication();

}  // namespace velmo::bench
