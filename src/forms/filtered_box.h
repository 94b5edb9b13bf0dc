#pragma once

#include <QLineEdit>

namespace velmo::forms {

// A line that decides key by key what may be typed. Moving, deleting and shortcuts always pass; text that comes in one
// piece (pasted, dropped) is taken whole or not at all.
class FilteredBox : public QLineEdit {
  Q_OBJECT

 public:
  explicit FilteredBox(QWidget* parent);

 protected:
  // Whether the character may be typed at the cursor, in place of the selection.
  virtual bool accepts(QChar typed) const = 0;
  // What a pasted text stands for in this box; empty to refuse it.
  virtual QString pasteable(const QString& pasted) const = 0;

  QString textBesideSelection() const;

  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  void pasteFiltered();

  bool selectAllOnRelease_ = false;
};

}  // namespace velmo::forms
