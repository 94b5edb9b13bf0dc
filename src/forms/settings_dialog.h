#pragma once

#include <QDialog>

#include "session/workplace.h"

class QLabel;
class QVBoxLayout;

namespace velmo::forms {

// A modal dialog that edits settings of the company: a heading, what is set, `SaveBttn` (Enter, Ctrl+S) and
// `CancelBttn` (Esc). It closes when save() says so; a failure of the store is told and keeps it open.
class SettingsDialog : public QDialog {
  Q_OBJECT

 public:
  // The primary button, where a dialog names it otherwise.
  struct SaveCommand {
    const char* name = "SaveBttn";
    const char* caption = "&Save";
    const char* hint = "Saves the settings and closes (Ctrl+S)";
  };

  SettingsDialog(session::Workplace& workplace, const QString& title, QWidget* parent);

 protected:
  // Writes the settings to the company's file and to the login context; false when they were refused.
  virtual bool save() = 0;

  QVBoxLayout& body() { return *body_; }
  // The commands stand last, so that Tab comes to them last. To be called when the body is complete.
  void addCommands(const SaveCommand& command);
  void addCommands() { addCommands({}); }
  bool refuse(const std::string& text);  // tells it under "Cannot Save"; false

  session::Workplace& workplace_;

 private:
  void trySave();

  QVBoxLayout* body_;
};

// A heading and the company's name under it, which is named `companyLabel`.
void addDialogHeading(QVBoxLayout& column, const QString& heading, const std::string& companyName,
                      const char* companyLabel);

}  // namespace velmo::forms
