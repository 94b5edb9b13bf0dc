#pragma once

#include "session/workplace.h"

class QWidget;

namespace velmo::masters {

// The people whom documents and customers refer to.
QWidget* makeEmployees(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::masters
