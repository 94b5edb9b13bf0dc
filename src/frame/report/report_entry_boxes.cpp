#include "frame/report/report_entry_boxes.h"

#include <QGridLayout>
#include <QLineEdit>

#include "forms/caption.h"
#include "forms/figure_fit.h"
#include "forms/look.h"
#include "frame/report/report_model.h"

namespace velmo::frame {

ReportEntryGroup::ReportEntryGroup(const ReportEntryBoxes& boxes, QWidget* parent)
    : QWidget(parent), columns_(boxes.boxes) {
  auto* grid = new QGridLayout(this);
  forms::setGrid(*grid, 0);
  for (int i = 0; i < static_cast<int>(columns_.size()); ++i) {
    const forms::TableColumn& column = columns_[static_cast<std::size_t>(i)];
    auto* box = new QLineEdit(this);
    box->setObjectName(forms::shownText(boxes.name + "_" + std::to_string(i)));
    box->setReadOnly(true);
    box->setFocusPolicy(Qt::NoFocus);
    box->setFixedWidth(box->fontMetrics().averageCharWidth() * (column.width + 3));
    if (column.alignment == forms::ColumnAlignment::Right) {
      box->setAlignment(Qt::AlignRight);
      box->setFont(forms::figureFont());
      forms::keepFigureWhole(*box);
    }
    const int place = i % boxes.columns * 2;
    grid->addWidget(forms::captionFor(*box, forms::shownText(column.caption)), i / boxes.columns, place);
    grid->addWidget(box, i / boxes.columns, place + 1);
    boxes_.push_back(box);
  }
  grid->setColumnStretch(boxes.columns * 2, 1);
}

void ReportEntryGroup::show(const store::Recordset& rows, std::int64_t row) {
  for (std::size_t i = 0; i < boxes_.size(); ++i) {
    const int field = row < 0 ? -1 : rows.fieldIndex(columns_[i].field);
    boxes_[i]->setText(field < 0 ? QString() : forms::shownValue(rows.valueAt(row, field), columns_[i]));
    boxes_[i]->setCursorPosition(0);
  }
}

}  // namespace velmo::frame
