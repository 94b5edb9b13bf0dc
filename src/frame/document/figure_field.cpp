#include "frame/document/figure_field.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include "forms/figure_fit.h"
#include "forms/look.h"
#include "forms/number_box.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::frame {

namespace {

// What stands in a box between two key presses of one number: not yet a figure, but on its way to one.
bool beginsNumber(const QString& text) {
  return text == "-" || text == "." || text == "-.";
}

}  // namespace

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
  forms::keepFigureWhole(*figure);
  addCaptioned(grid, row, column, *figure, caption);
  return figure;
}

void showTyped(forms::NumberBox& box, const std::string& counted) {
  const auto asMoney = [](double amount) { return text::formatNumber(amount, "0.00"); };
  const QString shown = QString::fromStdString(counted);
  const bool counts = box.isNumber() && asMoney(box.amount()) == asMoney(text::amountFrom(counted));
  if (box.text() == shown || (box.hasFocus() && (counts || beginsNumber(box.text())))) return;
  box.setText(shown);
  if (box.hasFocus()) box.selectAll();
}

void finishTyping(forms::NumberBox& box, const std::string& counted) {
  const forms::NumberBoxOptions& options = box.options();
  const bool inEdit = box.hasFocus() && !options.editFormat.empty();
  const QString text =
      QString::fromStdString(text::formatText(counted, inEdit ? options.editFormat : options.restFormat));
  if (box.text() != text) box.setText(text);
}

}  // namespace velmo::frame
