#pragma once

#include <QString>
#include <QWidget>
#include <filesystem>
#include <memory>
#include <string>

#include "session/prompts.h"
#include "shell/main_shell.h"

namespace velmo::tour {

// Answers the program's questions on the way and keeps what was said; questions are answered with yes.
class TravelPrompts : public session::Prompts {
 public:
  session::Answer ask(const session::Prompt& prompt) override;
};

// Files that print-outs are saved to go into the tour's folder, under their proposed names.
class TravelFiles : public session::FileChooser {
 public:
  explicit TravelFiles(std::filesystem::path folder) : folder_(std::move(folder)) {}
  std::string openFile(const std::string&, const std::string&, const std::string&) override { return {}; }
  std::string saveFile(const std::string&, const std::string&, const std::string& proposedName) override {
    return (folder_ / proposedName).string();
  }

 private:
  std::filesystem::path folder_;
};

// Drives the real screens with real key presses and takes pictures of them.
class Guide {
 public:
  Guide(std::filesystem::path pictures, std::string suffix);

  void picture(QWidget& widget, const std::string& name);
  // What is typed goes to the widget that has the focus.
  void type(const QString& text);
  void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  void rest(int milliseconds = 0);  // lets timers and repaints happen
  void focus(QWidget& widget);

  // The control with this name below the widget. Throws when it is not there: the tour no longer fits the screen.
  template <typename Control>
  Control& control(QWidget& screen, const char* name) {
    if (auto* found = screen.findChild<Control*>(QString::fromLatin1(name))) return *found;
    throw std::logic_error(std::string("no control ") + name);
  }

 private:
  std::filesystem::path pictures_;
  std::string suffix_;  // of the pictures' names: the look they were taken in
};

// The day's work at the sale invoice: a sale on credit, its print-outs, finding it again.
void visitSaleInvoices(Guide& guide, shell::Parent& shell);

}  // namespace velmo::tour
