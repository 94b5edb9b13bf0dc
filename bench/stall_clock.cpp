#include "stall_clock.h"

#include <QAbstractEventDispatcher>
#include <QDialog>
#include <QEvent>
#include <QEventLoop>
#include <QMetaEnum>
#include <QTimer>
#include <QWidget>
#include <ctime>

#include "disk_clock.h"

namespace velmo::bench {
namespace {

using std::chrono::duration;

constexpr double calmFor = 60;  // milliseconds without an event
constexpr double longestWait = 300e3;

template <typename Time>
double milliseconds(Time time) {
  return duration<double, std::milli>(time).count();
}

double processorTime() {
  timespec time = {};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) * 1e-6;
}

struct EventName {
  const char* receiver;
  QString name;
  QEvent::Type type;

  std::string text() const {
    const char* key = QMetaEnum::fromType<QEvent::Type>().valueToKey(type);
    return std::string(key ? key : "event") + " of " + receiver +
           (name.isEmpty() ? std::string() : " " + name.toStdString());
  }
};

bool isWithin(const QObject* receiver, const QString& name) {
  for (; receiver; receiver = receiver->parent())
    if (receiver->objectName() == name) return true;
  return false;
}

}  // namespace

StallApplication::StallApplication(int& argc, char** argv) : QApplication(argc, argv) {
  auto* dispatcher = QAbstractEventDispatcher::instance();
  // Awake, it handles what is waiting; then it asks the system, which is where keys come from.
  connect(dispatcher, &QAbstractEventDispatcher::awake, this, [this] {
    looksForKeys();
    waits_ = false;
    if (depth_ > 0) isBusyFrom(Clock::now());
  });
  connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, [this] {
    looksForKeys();
    waits_ = true;
  });
}

void StallApplication::isBusyFrom(Clock::time_point moment) {
  busySince_ = moment;
  diskBefore_ = diskSeconds() * 1e3;
  processorBefore_ = processorTime();
}

void StallApplication::looksForKeys() {
  const Clock::time_point now = Clock::now();
  if (painting_ && !paintedAt_) paintedAt_ = now;
  if (!busySince_) return;
  const double disk = diskSeconds() * 1e3 - diskBefore_;
  const double busy = milliseconds(now - *busySince_) - disk;
  if (busy > longest_.milliseconds) longest_ = {busy, processorTime() - processorBefore_, disk, event_};
  busySince_.reset();
  longestEvent_ = 0;
  event_.clear();
}

template <typename Name>
void StallApplication::handled(Clock::time_point began, const Name& event) {
  lastWork_ = Clock::now();
  const double took = milliseconds(lastWork_ - began);
  if (took < longestEvent_ || took < 1) return;
  longestEvent_ = took;
  event_ = event.text();
}

bool StallApplication::notify(QObject* receiver, QEvent* event) {
  if (!isForeign(receiver)) return QApplication::notify(receiver, event);
  const Clock::time_point began = Clock::now();
  if (!busySince_) isBusyFrom(began);
  const QEvent::Type type = event->type();
  // Whoever receives it may be gone afterwards.
  const EventName name{receiver->metaObject()->className(), receiver->objectName(), type};
  const bool watches = type == QEvent::Paint && !watched_.isEmpty() && !painting_ && isWithin(receiver, watched_);
  ++depth_;
  const bool result = QApplication::notify(receiver, event);
  --depth_;
  if (watches) painting_ = true;
  handled(began, name);
  return result;
}

void StallApplication::reset() {
  longest_ = {};
}

void StallApplication::watchFor(const QString& name) {
  watched_ = name;
  painting_ = false;
  paintedAt_.reset();
}

double StallApplication::perform(const std::function<void()>& action, const std::function<bool()>& isDone) {
  QEventLoop loop;
  Clock::time_point began, ended;
  bool isOver = false;
  QTimer::singleShot(0, this, [&] {
    began = lastWork_ = Clock::now();
    action();
  });
  calm_.setInterval(10);
  lastWork_ = Clock::now() + std::chrono::hours(1);  // the action comes first
  const auto look = connect(&calm_, &QTimer::timeout, this, [&] {
    const Clock::time_point now = Clock::now();
    if (!waits_) return;  // somebody looks for keys in the midst of work
    if (isDone && !isDone() && milliseconds(now - began) < longestWait) return;
    if (milliseconds(now - lastWork_) < calmFor) return;
    if (!isOver) ended = lastWork_;
    isOver = true;
    loop.quit();
    if (QWidget* modal = activeModalWidget()) {
      lastWork_ = now;
      if (auto* dialog = qobject_cast<QDialog*>(modal))
        dialog->reject();
      else
        modal->close();
    }
  });
  calm_.start();
  loop.exec();
  calm_.stop();
  disconnect(look);
  return milliseconds((paintedAt_ ? *paintedAt_ : ended) - began);
}

StallApplication& stallApplication() {
  return *static_cast<StallApplication*>(QCoreApplication::instance());
}

}  // namespace velmo::bench
