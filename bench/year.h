#pragma once

#include "figures.h"
#include "open_shell.h"
#include "stall_clock.h"

// The real program on the shop's year, its event loop looked at throughout.
namespace velmo::bench {

inline constexpr double longestStall = 50;        // milliseconds, whatever is done
inline constexpr double longestTypingStall = 16;  // while somebody types or scans

// A copy of the shop and the shell on it.
class Year {
 public:
  Year() : copy_(enter()), shell_(std::make_unique<OpenShell>()) {
    stallApplication().perform([] {}, {});
    // What the first screen of a process pays stands in EveryScreen alone.
    shell_->open("SaleInvoicesSimple");
    stallApplication().perform([] {}, {});
    shell_->closeScreens();
  }

  OpenShell& shell() { return *shell_; }

  // Does it from within the event loop, tells the longest stall under the name, and comes back when nothing more
  // happens; with milliseconds until then.
  double tellStall(const std::string& name, const std::function<void()>& action, double goal = longestStall,
                   const std::function<bool()>& isDone = {}) {
    StallApplication& application = stallApplication();
    application.reset();
    const double took = application.perform(action, isDone);
    const Stall& stall = application.longest();
    tell({.group = "The longest stall of the event loop",
          .name = name,
          .value = stall.milliseconds,
          .goal = goal,
          .remark = remarkOn(stall, took)});
    return took;
  }

 private:
  static CompanyCopy enter() {
    enterShop();
    return {};
  }
  static std::string remarkOn(const Stall& stall, double took) {
    char words[160];
    std::snprintf(words, sizeof words, "worked %.1f; all of it took %.0f; sync %.1f", stall.processor, took,
                  stall.disk);
    return words + (stall.milliseconds > 10 ? "; " + stall.what : std::string());
  }

  CompanyCopy copy_;
  std::unique_ptr<OpenShell> shell_;
};

inline void sendKey(int key, const QString& text = {}) {
  QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
  QApplication::sendEvent(QApplication::focusWidget(), &down);
}

inline void sendText(const std::string& text) {
  for (const QChar character : QString::fromStdString(text)) sendKey(character.toUpper().unicode(), QString(character));
}

}  // namespace velmo::bench
