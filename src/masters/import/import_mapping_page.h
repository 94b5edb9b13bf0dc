#pragma once

#include <QComboBox>
#include <QWidget>
#include <memory>

#include "masters/import/import_mapping.h"
#include "masters/import/import_plan.h"

class QCheckBox;
class QGridLayout;
class QLabel;
class QSpinBox;

namespace velmo::masters {

// The second step of an import: which column of the file is which field, and what stands in where the file has nothing.
class ImportMappingPage : public QWidget {
  Q_OBJECT

 public:
  ImportMappingPage(const ImportDescriptor& kind, QWidget* parent);

  // Shows another file with the columns as they are guessed; what the books hold is offered in place of empty cells.
  void show(std::shared_ptr<const spreadsheet::Sheet> sheet, const ImportBooks& books);
  const std::shared_ptr<const spreadsheet::Sheet>& sheet() const { return sheet_; }

  ImportMapping mapping() const;
  ImportOptions options() const;
  // The first field that has to be given and is not; the focus goes there.
  const ImportField* missing();
  void focusFirst() { lines_.front().column->setFocus(Qt::OtherFocusReason); }

 private:
  struct Line {
    QComboBox* column;
    QComboBox* otherwise;
    QLabel* sample;
  };

  QWidget* makeHead();
  QWidget* makeLines();
  QWidget* makeOptions();
  void addLine(QGridLayout& grid, const ImportField& field);
  void headingRowChosen();
  void offer(const ImportBooks& books);
  void showMapping(const ImportMapping& mapping);
  void showSample(const Line& line);

  const ImportDescriptor& kind_;
  std::shared_ptr<const spreadsheet::Sheet> sheet_;
  QSpinBox* headingRow_;
  QComboBox* decimalSign_;
  std::vector<Line> lines_;
  QCheckBox* makeMissing_;
  QCheckBox* allowSameNames_;
};

}  // namespace velmo::masters
