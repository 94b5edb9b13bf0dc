#include "forms/link_button.h"

#include <QKeyEvent>
#include <QPainter>

#include "forms/look.h"

namespace velmo::forms {
namespace {

constexpr int padding = forms::spacing::Tight;
constexpr int wrapping = Qt::TextWordWrap | Qt::AlignLeft | Qt::AlignTop;

}  // namespace

LinkButton::LinkButton(const QString& sentence, QWidget* parent) : QAbstractButton(parent) {
  setText(sentence);
  setAccessibleName(sentence);
  setCursor(Qt::PointingHandCursor);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

int LinkButton::heightForWidth(int width) const {
  const QRect text = fontMetrics().boundingRect(QRect(0, 0, width - 2 * padding, 10000), wrapping, this->text());
  return text.height() + 2 * padding;
}

QSize LinkButton::sizeHint() const {
  const int wide = std::min(fontMetrics().horizontalAdvance(text()) + 2 * padding + 1, 480);
  return {wide, heightForWidth(wide)};
}

QSize LinkButton::minimumSizeHint() const {
  return {200, fontMetrics().height() + 2 * padding};
}

void LinkButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor ink = isEnabled() ? forms::colours().accent : palette().color(QPalette::Disabled, QPalette::Text);
  if (hasFocus()) {
    painter.setPen(QPen(ink, 2));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 4, 4);
  }
  QFont font = this->font();
  font.setUnderline(underMouse() && isEnabled());
  painter.setFont(font);
  painter.setPen(ink);
  painter.drawText(rect().adjusted(padding, padding, -padding, -padding), wrapping, text());
}

void LinkButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    click();
  else
    QAbstractButton::keyPressEvent(event);
}

}  // namespace velmo::forms
