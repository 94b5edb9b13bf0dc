#include "documents/production/cost_panel.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>

#include "forms/look.h"
#include "forms/number_box.h"
#include "frame/document/figure_field.h"

namespace velmo::documents {

namespace {

constexpr int totalWidth = frame::figureWidth + 32;  // pixels; twelve digits in the larger figures of a total

}  // namespace

CostPanel::CostPanel(const std::vector<CostBox>& boxes, int rows) {
  forms::makeCard(*this);
  auto* grid = new QGridLayout(this);
  forms::setGrid(*grid, forms::spacing::Normal);
  grid->setVerticalSpacing(forms::spacing::Tight);
  for (int i = 0; i < static_cast<int>(boxes.size()); ++i)
    addBox(boxes[static_cast<std::size_t>(i)], i % rows, i / rows * 2);
  words_ = new QLabel;
  words_->setObjectName("AmtWords");
  words_->setAccessibleName(tr("Amount in words"));
  words_->setWordWrap(true);
  words_->setTextFormat(Qt::PlainText);
  words_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  words_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  words_->setMinimumHeight(2 * words_->fontMetrics().lineSpacing());  // lest the lines above jump as amounts grow
  grid->addWidget(words_, rows, 0, 1, -1);
}

QLineEdit* CostPanel::addBox(const CostBox& box, int row, int column) {
  auto& grid = static_cast<QGridLayout&>(*layout());
  if (box.kind != CostKind::Typed) {
    QLineEdit* figure = frame::addFigure(grid, row, column, box.name, tr(box.caption));
    if (box.kind == CostKind::Total) forms::makeTotal(*figure);
    figure->setFixedWidth(totalWidth);
    return computed_[box.name] = figure;
  }
  auto* amount = new forms::NumberBox(nullptr, {.editFormat = "#0.00", .restFormat = "#0.00; (#0.00)"});
  amount->setObjectName(box.name);
  amount->setFixedWidth(totalWidth);
  frame::addCaptioned(grid, row, column, *amount, tr(box.caption));
  typed_[box.name] = amount;
  if (!first_) first_ = amount;
  const auto tell = [this] {
    if (!showing_) Q_EMIT changed();
  };
  connect(amount, &QLineEdit::textChanged, this, tell);
  connect(amount, &forms::NumberBox::left, this, tell);
  return amount;
}

Costs CostPanel::typed() const {
  Costs texts;
  for (const auto& [name, box] : typed_) texts[name] = box->text().toStdString();
  return texts;
}

void CostPanel::setTyped(const Costs& typed) {
  const QScopedValueRollback guard(showing_, true);
  for (const auto& [name, text] : typed) typed_.at(name)->setText(QString::fromStdString(text));
}

void CostPanel::show(const Costs& costs) {
  const QScopedValueRollback guard(showing_, true);
  shown_ = costs;
  for (const auto& [name, box] : typed_) frame::showTyped(*box, costs.at(name));
  for (const auto& [name, box] : computed_) {
    box->setText(QString::fromStdString(costs.at(name)));
    box->setCursorPosition(0);
  }
  words_->setText(QString::fromStdString(costs.at("AmtWords")));
}

void CostPanel::finishTyping() {
  const QScopedValueRollback guard(showing_, true);
  for (const auto& [name, box] : typed_) frame::finishTyping(*box, shown_.at(name));
}

QWidget* CostPanel::firstBox() const {
  return first_;
}

}  // namespace velmo::documents
