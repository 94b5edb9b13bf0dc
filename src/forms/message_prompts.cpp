#include "forms/message_prompts.h"

#include <QApplication>
#include <QMessageBox>

namespace velmo::forms {

session::Answer MessagePrompts::ask(const session::Prompt& prompt) {
  QMessageBox box(QApplication::activeWindow());
  box.setWindowTitle(QString::fromStdString(prompt.title));
  box.setTextFormat(Qt::PlainText);
  box.setText(QString::fromStdString(prompt.text));
  switch (prompt.buttons) {
    case session::Buttons::Ok:
      box.setIcon(QMessageBox::Information);
      box.setStandardButtons(QMessageBox::Ok);
      break;
    case session::Buttons::YesNo:
      box.setIcon(QMessageBox::Question);
      box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
      box.setDefaultButton(QMessageBox::Yes);
      box.setEscapeButton(QMessageBox::No);
      break;
    case session::Buttons::YesNoCancel:
      box.setIcon(QMessageBox::Question);
      box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
      box.setDefaultButton(QMessageBox::Yes);
      box.setEscapeButton(QMessageBox::Cancel);
      break;
  }
  switch (box.exec()) {
    case QMessageBox::Yes:
      return session::Answer::Yes;
    case QMessageBox::No:
      return session::Answer::No;
    case QMessageBox::Cancel:
      return session::Answer::Cancel;
    default:
      return session::Answer::Ok;
  }
}

}  // namespace velmo::forms
