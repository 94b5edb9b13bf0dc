#pragma once

#include <QWidget>

#include "session/workplace.h"

namespace velmo::reports {

// Through which documents of the year the serial number of a product went. A modal dialog: it closes when it leads to a
// document, and shows what it showed then when it is opened again.
QWidget* makeProductSerial(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::reports
