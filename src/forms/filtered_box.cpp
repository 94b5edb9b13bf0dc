#include "forms/filtered_box.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>

namespace velmo::forms {

FilteredBox::FilteredBox(QWidget* parent) : QLineEdit(parent) {
  setAcceptDrops(false);
}

QString FilteredBox::textBesideSelection() const {
  QString rest = text();
  if (hasSelectedText()) rest.remove(selectionStart(), selectionLength());
  return rest;
}

void FilteredBox::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Paste)) {
    pasteFiltered();
    return;
  }
  const bool isText = !event->text().isEmpty() && event->text().at(0).isPrint() &&
                      !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
  if (isText && !isReadOnly())
    for (const QChar typed : event->text())
      if (!accepts(typed)) return;
  QLineEdit::keyPressEvent(event);
}

void FilteredBox::inputMethodEvent(QInputMethodEvent* event) {
  for (const QChar typed : event->commitString())
    if (!accepts(typed)) return;
  QLineEdit::inputMethodEvent(event);
}

void FilteredBox::contextMenuEvent(QContextMenuEvent* event) {
  QMenu* menu = createStandardContextMenu();
  menu->setAttribute(Qt::WA_DeleteOnClose);
  if (auto* paste = menu->findChild<QAction*>(QStringLiteral("edit-paste"))) {
    paste->disconnect(SIGNAL(triggered(bool)));
    connect(paste, &QAction::triggered, this, &FilteredBox::pasteFiltered);
  }
  menu->popup(event->globalPos());
}

// The middle button would paste past the filter.
void FilteredBox::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::MiddleButton) return;
  QLineEdit::mouseReleaseEvent(event);
  if (std::exchange(selectAllOnRelease_, false) && !hasSelectedText()) selectAll();
}

void FilteredBox::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  if (event->reason() == Qt::MouseFocusReason)
    selectAllOnRelease_ = true;
  else if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
    selectAll();
}

void FilteredBox::pasteFiltered() {
  if (isReadOnly()) return;
  const QString taken = pasteable(QGuiApplication::clipboard()->text().trimmed());
  if (!taken.isEmpty()) insert(taken);
}

}  // namespace velmo::forms
