#include "forms/figure_fit.h"

#include <QEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QStyle>
#include <QStyleOptionFrame>
#include <algorithm>
#include <cmath>

namespace velmo::forms {
namespace {

constexpr double smallest = 0.5;  // of the font's own size

class FigureFit : public QObject {
 public:
  explicit FigureFit(QLineEdit& box) : QObject(&box), box_(box), own_(box.font()) {
    box.installEventFilter(this);
    connect(&box, &QLineEdit::textChanged, this, &FigureFit::fit);
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::FontChange && !fitting_) own_ = box_.font();
    if (event->type() == QEvent::FontChange || event->type() == QEvent::Resize || event->type() == QEvent::Polish)
      fit();
    return false;
  }

 private:
  int room() const {
    constexpr int besideText = 2;  // that a line edit leaves at each side, and a pixel for its cursor
    QStyleOptionFrame option;
    option.initFrom(&box_);
    option.lineWidth = box_.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &box_);
    return box_.style()->subElementRect(QStyle::SE_LineEditContents, &option, &box_).width() - 2 * besideText - 1;
  }

  void fit() {
    if (fitting_) return;
    const QScopedValueRollback guard(fitting_, true);
    const QFont font = box_.alignment() & Qt::AlignRight ? fittedFigureFont(own_, box_.text(), room()) : own_;
    const bool isWide = font != own_;
    if (box_.font().pointSizeF() != font.pointSizeF()) {
      const int around = box_.sizeHint().height() - box_.fontMetrics().height();
      // Boxes beside each other stay as high; a cell in edit is as high as its row.
      if (box_.hasFrame()) box_.setMinimumHeight(QFontMetrics(own_).height() + around);
      box_.setFont(font);
    }
    if (isWide || told_) box_.setToolTip(isWide ? box_.text() : QString());
    told_ = isWide;
  }

  QLineEdit& box_;
  QFont own_;  // what figures that fit are written in
  bool fitting_ = false;
  bool told_ = false;
};

}  // namespace

QFont fittedFigureFont(const QFont& own, const QString& figure, int room) {
  const int needed = QFontMetrics(own).horizontalAdvance(figure);
  QFont font = own;
  if (room <= 0 || needed <= room) return font;
  constexpr double step = 0.25;  // points; what a size is wide is not told by its number alone
  const double least = std::floor(own.pointSizeF() * smallest / step) * step;
  font.setPointSizeF(std::floor(own.pointSizeF() * std::max(smallest, double(room) / needed) / step) * step);
  while (font.pointSizeF() > least && QFontMetrics(font).horizontalAdvance(figure) > room)
    font.setPointSizeF(font.pointSizeF() - step);
  return font;
}

void keepFigureWhole(QLineEdit& box) {
  new FigureFit(box);
}

}  // namespace velmo::forms
