#include "frame/picking/drop_place.h"

#include <algorithm>

namespace velmo::frame {

QRect placeBelow(const QWidget& anchor, const QRect& rectangle, const QWidget& screen, QSize wanted, int step) {
  const QPoint topLeft = screen.mapFromGlobal(anchor.mapToGlobal(rectangle.topLeft()));
  const int below = topLeft.y() + rectangle.height();
  const int roomBelow = screen.height() - below;
  const int roomAbove = topLeft.y();
  const int width = std::min(wanted.width(), screen.width());
  const bool above = roomBelow < wanted.height() && roomAbove > roomBelow;
  const int missing = std::max(0, wanted.height() - std::max(above ? roomAbove : roomBelow, 0));
  const int height = std::max(0, wanted.height() - (missing + step - 1) / step * step);
  const int x = std::clamp(topLeft.x(), 0, std::max(0, screen.width() - width));
  return QRect(x, above ? topLeft.y() - height : below, width, height);
}

bool isPassingFocusLoss(const QFocusEvent& event) {
  return event.reason() == Qt::ActiveWindowFocusReason || event.reason() == Qt::PopupFocusReason ||
         event.reason() == Qt::MenuBarFocusReason;
}

}  // namespace velmo::frame
