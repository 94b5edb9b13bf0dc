#include "frame/status_line.h"

#include <QCoreApplication>
#include <QStatusTipEvent>
#include <QWidget>

namespace velmo::frame {

void tellInStatusLine(QWidget& from, const QString& sentence) {
  QStatusTipEvent tip(sentence);
  QCoreApplication::sendEvent(&from, &tip);
}

}  // namespace velmo::frame
