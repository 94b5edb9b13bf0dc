#include "forms/file_dialogs.h"

#include <QApplication>
#include <QFileDialog>

namespace velmo::forms {

std::string FileDialogs::openFile(const std::string& title, const std::string& filter, const std::string& folder) {
  return QFileDialog::getOpenFileName(QApplication::activeWindow(), QString::fromStdString(title),
                                      QString::fromStdString(folder), QString::fromStdString(filter))
      .toStdString();
}

std::string FileDialogs::saveFile(const std::string& title, const std::string& filter,
                                  const std::string& proposedName) {
  return QFileDialog::getSaveFileName(QApplication::activeWindow(), QString::fromStdString(title),
                                      QString::fromStdString(proposedName), QString::fromStdString(filter))
      .toStdString();
}

}  // namespace velmo::forms
