#pragma once

#include <QWidget>
#include <filesystem>
#include <memory>

#include "masters/import/import_kind.h"
#include "session/workplace.h"
#include "spreadsheet/sheet_reader.h"

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QTableView;

namespace velmo::masters {

class SheetPreview;

// The first step of an import: the file, which of its sheets, how its text is to be read, and its first rows.
class ImportFilePage : public QWidget {
  Q_OBJECT

 public:
  ImportFilePage(const ImportDescriptor& kind, session::Workplace& workplace, QWidget* parent);
  ~ImportFilePage() override;

  // What was read; nothing as long as there is no file that can be.
  const std::shared_ptr<const spreadsheet::Sheet>& sheet() const { return sheet_; }
  void chooseFile();

 private:
  QWidget* makeChoices();
  QWidget* makeFoot();
  void open(const std::filesystem::path& file);
  void read();
  void show(std::shared_ptr<const spreadsheet::Sheet> sheet);
  void saveEmptyList();

  const ImportDescriptor& kind_;
  session::Workplace& workplace_;
  std::filesystem::path file_;
  std::shared_ptr<const spreadsheet::Sheet> sheet_;
  QLineEdit* name_;
  QWidget* choices_;
  QComboBox* sheets_;
  QComboBox* encodings_;
  QComboBox* separators_;
  QLabel* found_;
  SheetPreview* preview_;
  QTableView* grid_;
};

}  // namespace velmo::masters
