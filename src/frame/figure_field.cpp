#include "frame/figure_field.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include "forms/look.h"

namespace velmo::frame {

void addCaptioned(QGridLayout& grid, int row, int column, QWidget& field, const QString& caption) {
  auto* label = new QLabel(caption.trimmed());
  label->setBuddy(&field);
  label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  forms::makeCaption(*label);
  field.setAccessibleName(caption.trimmed());
  grid.addWidget(label, row, column);
  grid.addWidget(&field, row, column + 1);
}

QLineEdit* addFigure(QGridLayout& grid, int row, int column, const char* name, const QString& caption) {
  auto* figure = new QLineEdit;
  figure->setObjectName(name);
  figure->setReadOnly(true);
  figure->setFocusPolicy(Qt::NoFocus);
  figure->setAlignment(Qt::AlignRight);
  figure->setFont(forms::figureFont());
  figure->setFixedWidth(figureWidth);
  addCaptioned(grid, row, column, *figure, caption);
  return figure;
}

}  // namespace velmo::frame
