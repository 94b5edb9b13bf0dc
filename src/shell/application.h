#pragma once

#include <QApplication>

#include "forms/file_dialogs.h"
#include "forms/message_prompts.h"
#include "session/clock.h"

namespace velmo::shell {

// Name, version and icon of the program, as the desktop and `About` show them. It has no display name, which the
// desktop would put behind the title of every window and message.
void introduceProgram(QApplication& application);

// The program from its start to its end: look, company file, login, main window.
class Application : public QApplication {
 public:
  Application(int& argc, char** argv);

  // Returns the exit code: 0 after an ordinary end, 1 when the company file cannot be used.
  int run();

  // A failure of the store that no screen expected is told to the user, and the program goes on.
  bool notify(QObject* receiver, QEvent* event) override;

 private:
  session::SystemClock clock_;
  forms::MessagePrompts prompts_;
  forms::FileDialogs files_;
  bool tellingFailure_ = false;
};

}  // namespace velmo::shell
