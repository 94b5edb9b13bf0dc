#pragma once

#include <QTimer>
#include <QWidget>

#include "frame/report/report_foot.h"
#include "frame/report/report_type.h"

namespace velmo::forms {
class TableView;
}

namespace velmo::frame {

// The second grid of a report with its totals. What it shows of another row goes at once, and what belongs to the
// present one comes when the keys have rested: a key that is held down costs no statement.
class ReportDetailPane : public QWidget {
  Q_OBJECT

 public:
  ReportDetailPane(const ReportDetail& detail, QWidget* parent);

  forms::TableView& grid() { return *grid_; }
  ReportModel& model() { return *model_; }

  void leaveRow();                     // another row is the current one, or none
  void proceed(ReportScreen& screen);  // at due(); throws StoreError, and is at rest then

 Q_SIGNALS:
  void due();

 private:
  void open(ReportScreen& screen);

  const ReportDetail& detail_;
  ReportModel* model_;
  forms::TableView* grid_;
  FigureBoxes boxes_;
  QTimer pace_;
};

}  // namespace velmo::frame
