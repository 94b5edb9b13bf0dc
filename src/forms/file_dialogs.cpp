#include "forms/file_dialogs.h"

#include <QAbstractFileIconProvider>
#include <QApplication>
#include <QFileDialog>
#include <QStyle>

namespace velmo::forms {
namespace {

// Tells files and folders apart by their names alone. Other providers, and the dialogs of desktops, open the files of
// the folder to see what is in them; for the company's file, which is open, that gives up the locks on it.
class NameIcons : public QAbstractFileIconProvider {
 public:
  QIcon icon(IconType type) const override { return standard(type == File ? QStyle::SP_FileIcon : QStyle::SP_DirIcon); }
  QIcon icon(const QFileInfo& file) const override {
    return standard(file.isDir() ? QStyle::SP_DirIcon : QStyle::SP_FileIcon);
  }
  QString type(const QFileInfo& file) const override {
    if (file.isDir()) return QFileDialog::tr("Folder");
    return file.suffix().isEmpty() ? QFileDialog::tr("File")
                                   : file.suffix().toUpper() + QLatin1Char(' ') + QFileDialog::tr("File");
  }

 private:
  static QIcon standard(QStyle::StandardPixmap icon) { return QApplication::style()->standardIcon(icon); }
};

std::string ask(const std::string& title, const std::string& filter, const std::string& place,
                const std::function<void(QFileDialog&)>& prepare) {
  NameIcons icons;
  // Begun in a folder without files: until the icons are its own it would look into those of the folder it was in last.
  QFileDialog dialog(QApplication::activeWindow(), QString::fromStdString(title), QStringLiteral("/"));
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setOption(QFileDialog::DontUseCustomDirectoryIcons);
  dialog.setIconProvider(&icons);
  dialog.setNameFilters(QString::fromStdString(filter).split(QStringLiteral(";;")));
  const QFileInfo start(QString::fromStdString(place));
  if (start.isDir()) {
    dialog.setDirectory(start.absoluteFilePath());
  } else {
    dialog.setDirectory(start.absolutePath());
    dialog.selectFile(start.fileName());
  }
  prepare(dialog);
  dialog.resize(dialog.sizeHint().expandedTo({820, 480}));  // the four columns of the list in full
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  return dialog.selectedFiles().first().toStdString();
}

}  // namespace

std::string FileDialogs::openFile(const std::string& title, const std::string& filter, const std::string& folder) {
  return ask(title, filter, folder, [](QFileDialog& dialog) {
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
  });
}

std::string FileDialogs::saveFile(const std::string& title, const std::string& filter,
                                  const std::string& proposedName) {
  return ask(title, filter, proposedName, [](QFileDialog& dialog) {
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
  });
}

}  // namespace velmo::forms
