#pragma once

#include <QApplication>
#include <QMessageBox>
#include <functional>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace velmo::test {

// Somebody at the keyboard of the running program, in a thread beside the program's own: keys go through the display
// to whatever has the focus, and what the screen shows is looked at between two events.
class Person {
 public:
  static constexpr int typing = 60;  // milliseconds between two keys of a person

  // "ctrl+s", "alt+s", "Return", "F3": in turn, as on the keyboard.
  void press(std::initializer_list<const char*> keys);
  void press(const char* key) { press({key}); }
  // Letters, digits, " -./" and '\n' for Enter; `gap` in milliseconds.
  void type(const std::string& text, int gap = typing);
  // What a scanner types: the code and Enter. The keys are handed to the program with their times as the display would
  // hand them, since a machine that has much else to do cannot keep a scanner's.
  void scan(const std::string& code, int gap = 5);

  // Runs in the program between two events, and gives what it gives.
  template <typename Look>
  std::invoke_result_t<Look> look(Look look) {
    using Seen = std::invoke_result_t<Look>;
    if constexpr (std::is_void_v<Seen>) {
      QMetaObject::invokeMethod(qApp, look, Qt::BlockingQueuedConnection);
    } else {
      Seen seen{};
      QMetaObject::invokeMethod(
          qApp, [&] { seen = look(); }, Qt::BlockingQueuedConnection);
      return seen;
    }
  }
  // Looks until it is so, for ten seconds; throws std::runtime_error with the words otherwise.
  void waitUntil(const char* words, const std::function<bool()>& isSo);
  // As long as it takes for a key to be heard and answered, where nothing is to be seen of that.
  void settle(int milliseconds = 300);

  // From a company that just opened with its login on the screen to the main window.
  void logIn();
  void openScreen(const char* name);  // as the menu does
  void openDialog(const char* name);
  std::string focus();        // the name of the control that has it
  std::string messageText();  // of the box that stands in front; empty without one
  void waitForMessage() {
    waitUntil("a message box", [] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) != nullptr; });
  }
  // The first value of a row that the company's file gives.
  std::string inFile(const char* statement, int row = 0);

  // A control of the active window, by its name; throws std::runtime_error when it has none. In the program only.
  template <typename Control = QWidget>
  static Control& control(const char* name) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (!window->isVisible()) continue;
      if (auto* itself = qobject_cast<Control*>(window); itself && itself->objectName() == QLatin1String(name))
        return *itself;
      for (Control* found : window->findChildren<Control*>(QLatin1String(name)))
        if (found->isVisible()) return *found;
    }
    throw std::runtime_error(std::string("no control ") + name);
  }

 private:
  unsigned long scannedAt_ = 1'000'000;  // of the last key of a scanner, in milliseconds
};

// Makes the demonstration company in a folder of its own, starts the program on it and lets the person work; ends it
// when the work is done. What the person misses fails the test.
void withTheProgram(const std::function<void(Person&)>& work);

}  // namespace velmo::test
