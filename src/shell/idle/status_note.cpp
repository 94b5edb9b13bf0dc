#include "shell/idle/status_note.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

#include "forms/look.h"

namespace velmo::shell {
namespace {

constexpr int padding = forms::spacing::Tight;

}  // namespace

StatusNote::StatusNote(QWidget* parent) : QAbstractButton(parent) {
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  setFocusPolicy(Qt::NoFocus);
}

void StatusNote::tell(Subject subject, const QString& sentence) {
  if (sentence.isEmpty())
    sentences_.erase(subject);
  else
    sentences_[subject] = sentence;
  QStringList all;
  for (const auto& [each, words] : sentences_) all << words;
  setText(all.join(QStringLiteral("  ")));
  setAccessibleName(text());
  setFocusPolicy(leadsToDocuments() ? Qt::TabFocus : Qt::NoFocus);
  setCursor(leadsToDocuments() ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

QSize StatusNote::sizeHint() const {
  return {fontMetrics().horizontalAdvance(text()) + 2 * padding, fontMetrics().height() + padding};
}

QSize StatusNote::minimumSizeHint() const {
  return {0, fontMetrics().height() + padding};
}

QString StatusNote::shownText() const {
  return fontMetrics().elidedText(text(), Qt::ElideRight, width() - 2 * padding);
}

void StatusNote::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QColor ink = leadsToDocuments() ? forms::colours().accent : forms::colours().warning;
  if (hasFocus()) {
    painter.setPen(QPen(ink, 1));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
  QFont font = this->font();
  font.setUnderline(underMouse() && leadsToDocuments());
  painter.setFont(font);
  painter.setPen(ink);
  painter.drawText(rect().adjusted(padding, 0, -padding, 0), Qt::AlignLeft | Qt::AlignVCenter, shownText());
}

void StatusNote::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    click();
  else
    QAbstractButton::keyPressEvent(event);
}

bool StatusNote::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QAbstractButton::event(event);
  const QString words = shownText() == text() ? QString() : text();
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), words, this);
  return true;
}

}  // namespace velmo::shell
