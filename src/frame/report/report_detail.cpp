#include "frame/report/report_detail.h"

#include <QElapsedTimer>
#include <QLabel>

#include "forms/caption.h"
#include "forms/look.h"
#include "forms/stop_listening.h"
#include "forms/table_view.h"
#include "frame/report/report_model.h"
#include "frame/report/report_screen.h"

namespace velmo::frame {
namespace {

constexpr int rest = 120;        // milliseconds; longer than between two repeats of a key that is held down
constexpr int readingStep = 12;  // milliseconds of reading before the screen may repaint
constexpr int rowsAtOnce = 512;

std::vector<std::string> summed(const std::vector<ReportFigure>& figures) {
  std::vector<std::string> fields;
  for (const ReportFigure& figure : figures) fields.push_back(figure.sum);
  return fields;
}

}  // namespace

ReportDetailPane::ReportDetailPane(const ReportDetail& detail, QWidget* parent)
    : QWidget(parent),
      detail_(detail),
      model_(new ReportModel(detail.columns, summed(detail.totals), this)),
      grid_(new forms::TableView) {
  grid_->setObjectName(forms::shownText(detail.name));
  grid_->setAccessibleName(forms::shownText(detail.caption));
  grid_->setModel(model_);
  grid_->setColumnWidths(detail.columns);
  auto* column = new QVBoxLayout(this);
  forms::setGrid(*column, 0, forms::spacing::Tight);
  column->addWidget(forms::captionFor(*grid_, forms::shownText(detail.caption)));
  column->addWidget(grid_, 1);
  auto* totals = new QWidget(this);
  totals->setObjectName(forms::shownText(detail.totalsFrame));
  auto* row = new QHBoxLayout(totals);
  forms::setGrid(*row, 0);
  row->addStretch(1);
  boxes_ = addFigures(detail.totals, *row);
  column->addWidget(totals);
  pace_.setSingleShot(true);
  connect(&pace_, &QTimer::timeout, this, &ReportDetailPane::due);
}

void ReportDetailPane::leaveRow() {
  if (model_->rows()) model_->setRows(nullptr);
  for (const auto& [name, box] : boxes_) box->setProperty("text", QString());
  pace_.start(rest);
}

void ReportDetailPane::open(ReportScreen& screen) {
  const int row = screen.grid().currentIndex().row();
  const std::string statement = row < 0 ? std::string() : detail_.statement(screen, row);
  if (!statement.empty()) model_->setRows(rowsOf(screen.workplace().context.KORDconn, statement));
}

void ReportDetailPane::proceed(ReportScreen& screen) {
  pace_.stop();
  if (!model_->rows()) open(screen);
  QElapsedTimer clock;
  clock.start();
  while (!model_->isComplete() && clock.elapsed() < readingStep) model_->readOn(rowsAtOnce);
  if (!model_->isComplete()) return pace_.start(0);
  if (!model_->rows()) return;
  for (const ReportFigure& figure : detail_.totals)
    boxes_.at(figure.name)->setProperty("text", forms::shownText(sumText(figure, *model_)));
}

}  // namespace velmo::frame
