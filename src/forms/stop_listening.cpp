#include "forms/stop_listening.h"

#include <QWidget>

namespace velmo::forms {

void stopListening(QWidget& widget) {
  const QList<QObject*> within = widget.findChildren<QObject*>();
  for (QObject* each : within) each->disconnect(&widget);
}

}  // namespace velmo::forms
