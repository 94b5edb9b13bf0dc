#include "frame/report_foot.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

#include "forms/look.h"
#include "frame/own_fields.h"

namespace velmo::frame {

ReportFoot::ReportFoot(const ReportType& type) : message_(new QLabel) {
  if (!type.totalsFrame.empty()) setObjectName(shownText(type.totalsFrame));
  message_->setObjectName("MessageLbl");
  forms::makeCaption(*message_);
  auto* row = new QHBoxLayout(this);
  forms::setGrid(*row, 0);
  row->addWidget(message_, 1);
  if (!type.totalsLabel.empty()) {
    auto* label = new QLabel(shownText(type.totalsLabel));
    label->setObjectName("TtlLbl");
    row->addWidget(label);
  }
  addFigures(type.totals, *row);
  for (const ReportGrid& grid : type.grids) {
    if (grid.totals.empty()) continue;
    auto* frame = new QWidget(this);
    frame->setObjectName(shownText(grid.totalsFrame));
    auto* figures = new QHBoxLayout(frame);
    forms::setGrid(*figures, 0);
    addFigures(grid.totals, *figures);
    row->addWidget(frame);
    frames_[grid.name] = frame;
  }
  if (!type.grids.empty()) showTotalsOf(type.grids.front().name);
}

void ReportFoot::addFigures(const std::vector<ReportFigure>& figures, QHBoxLayout& row) {
  QFont font = forms::figureFont();
  font.setWeight(QFont::DemiBold);
  for (const ReportFigure& figure : figures) {
    auto* box = new QLineEdit;
    box->setObjectName(shownText(figure.name));
    box->setAccessibleName(shownText(figure.caption.empty() ? figure.name : figure.caption));
    box->setReadOnly(true);
    box->setFocusPolicy(Qt::NoFocus);
    box->setAlignment(Qt::AlignRight);
    box->setFont(font);
    box->setFixedWidth(box->fontMetrics().averageCharWidth() * figure.width);
    if (!figure.caption.empty()) {
      auto* label = new QLabel(shownText(figure.caption));
      forms::makeCaption(*label);
      row.addWidget(label);
    }
    row.addWidget(box);
    boxes_[figure.name] = box;
  }
}

void ReportFoot::showMessage(const QString& text) {
  message_->setText(text);
}

void ReportFoot::showTotalsOf(const std::string& grid) {
  for (const auto& [name, frame] : frames_) frame->setVisible(name == grid);
}

}  // namespace velmo::frame
