#pragma once

#include <QWidget>
#include <cstdint>
#include <vector>

#include "frame/report/report_type.h"

class QLineEdit;

namespace velmo::frame {

// The boxes that say more of what is chosen in a list.
class ReportEntryGroup : public QWidget {
 public:
  ReportEntryGroup(const ReportEntryBoxes& boxes, QWidget* parent);

  // What a row of the list's statement says; nothing when it is -1.
  void show(const store::Recordset& rows, std::int64_t row);

 private:
  std::vector<forms::TableColumn> columns_;
  std::vector<QLineEdit*> boxes_;
};

}  // namespace velmo::frame
