#pragma once

#include <QWidget>
#include <string>

namespace velmo::shell {

// The coloured half of the login window: the program's mark and name, and whose books these are.
class BrandPanel : public QWidget {
 public:
  BrandPanel(const std::string& companyName, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

// The program's mark: a rising line over a column of coins, in one colour.
void drawMark(QPainter& painter, const QRectF& square, const QColor& colour);
QIcon programIcon();

}  // namespace velmo::shell
