#include "forms/status_line.h"

#include <QCoreApplication>
#include <QStatusTipEvent>
#include <QWidget>

namespace velmo::forms {

void tellInStatusLine(QWidget& from, const QString& sentence) {
  QStatusTipEvent tip(sentence);
  QCoreApplication::sendEvent(&from, &tip);
}

}  // namespace velmo::forms
