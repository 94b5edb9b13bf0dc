#pragma once

#include <QAbstractButton>

namespace velmo::forms {

// A button that reads as a sentence: wrapped over as many lines as it needs, underlined when pointed at or focused.
class LinkButton : public QAbstractButton {
 public:
  LinkButton(const QString& sentence, QWidget* parent);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace velmo::forms
