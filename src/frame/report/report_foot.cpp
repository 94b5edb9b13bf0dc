#include "frame/report/report_foot.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "forms/caption.h"
#include "forms/figure_fit.h"
#include "forms/look.h"
#include "frame/report/report_model.h"
#include "text/format.h"

namespace velmo::frame {
namespace {

void addTo(QHBoxLayout& row, QWidget& widget, bool shown) {
  row.addWidget(&widget);
  if (shown) return;
  QSizePolicy policy = widget.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget.setSizePolicy(policy);
  widget.hide();
}

}  // namespace

FigureBoxes addFigures(const std::vector<ReportFigure>& figures, QHBoxLayout& row, FigureCaptions captions) {
  FigureBoxes boxes;
  QFont font = forms::figureFont();
  font.setWeight(QFont::DemiBold);
  for (const ReportFigure& figure : figures) {
    auto* box = new QLineEdit;
    box->setObjectName(forms::shownText(figure.name));
    box->setAccessibleName(forms::shownText(figure.caption.empty() ? figure.name : figure.caption));
    box->setReadOnly(true);
    box->setFocusPolicy(Qt::NoFocus);
    box->setAlignment(Qt::AlignRight);
    box->setFont(font);
    box->setFixedWidth(box->fontMetrics().averageCharWidth() * figure.width);
    forms::keepFigureWhole(*box);
    const bool isFirst = &figure == &figures.front();
    if (!figure.caption.empty() && (captions == FigureCaptions::Shown || !isFirst)) {
      auto* label = new QLabel(forms::shownText(figure.caption));
      forms::makeCaption(*label);
      addTo(row, *label, captions == FigureCaptions::Shown);
    }
    addTo(row, *box, !figure.name.empty());
    if (!figure.name.empty()) boxes[figure.name] = box;
  }
  return boxes;
}

std::string sumText(const ReportFigure& figure, const ReportModel& rows) {
  return text::formatNumber(rows.sum(figure.sum), figure.format);
}

ReportFoot::ReportFoot(const ReportType& type) : message_(new QLabel) {
  if (!type.totalsFrame.empty()) setObjectName(forms::shownText(type.totalsFrame));
  message_->setObjectName("MessageLbl");
  forms::makeCaption(*message_);
  auto* column = new QVBoxLayout(this);
  forms::setGrid(*column, 0, forms::spacing::Tight);
  auto* row = new QHBoxLayout;
  forms::setGrid(*row, 0);
  column->addLayout(row);
  row->addWidget(message_, 1);
  if (!type.totalsLabel.empty()) {
    auto* label = new QLabel(forms::shownText(type.totalsLabel));
    label->setObjectName("TtlLbl");
    row->addWidget(label);
  }
  boxes_.merge(addFigures(type.totals, *row));
  for (const ReportGrid& grid : type.grids) {
    if (grid.totals.empty()) continue;
    auto* frame = new QWidget(this);
    frame->setObjectName(forms::shownText(grid.totalsFrame));
    auto* figures = new QHBoxLayout(frame);
    forms::setGrid(*figures, 0);
    boxes_.merge(addFigures(grid.totals, *figures));
    row->addWidget(frame);
    frames_[grid.name] = frame;
    if (grid.further.frame.empty()) continue;
    addFurtherTotals(grid.further, *column);
    further_[grid.name] = findChild<QWidget*>(forms::shownText(grid.further.frame));
  }
  if (!type.grids.empty()) showTotalsOf(type.grids.front().name);
}

// As wide as the totals above, so that each figure stands under its own; the line's caption takes the room of the
// first.
void ReportFoot::addFurtherTotals(const ReportFurtherTotals& further, QVBoxLayout& column) {
  auto* frame = new QWidget(this);
  frame->setObjectName(forms::shownText(further.frame));
  auto* row = new QHBoxLayout(frame);
  forms::setGrid(*row, 0);
  row->addStretch(1);
  row->addWidget(new QLabel(forms::shownText(further.caption)));
  boxes_.merge(addFigures(further.figures, *row, FigureCaptions::RoomOnly));
  column.addWidget(frame);
}

void ReportFoot::showMessage(const QString& text) {
  message_->setText(text);
}

void ReportFoot::showTotalsOf(const std::string& grid) {
  grid_ = grid;
  showFrames();
}

void ReportFoot::showFurtherTotals(const std::string& grid, bool shown) {
  if (shown)
    furtherShown_.insert(grid);
  else
    furtherShown_.erase(grid);
  showFrames();
}

void ReportFoot::showFrames() {
  for (const auto& [name, frame] : frames_) frame->setVisible(name == grid_);
  for (const auto& [name, frame] : further_) frame->setVisible(name == grid_ && furtherShown_.contains(name));
}

}  // namespace velmo::frame
