#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <functional>

namespace velmo::test {

// Lets events run until the condition holds, at most so many milliseconds; whether it does.
inline bool waitFor(const std::function<bool()>& condition, int milliseconds = 20000) {
  QElapsedTimer clock;
  clock.start();
  while (!condition() && clock.elapsed() < milliseconds)
    QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 50);
  return condition();
}

}  // namespace velmo::test
