#pragma once

#include "session/workplace.h"

class QWidget;

namespace velmo::masters {

// The services, under the sub categories of the category 'Service'.
QWidget* makeModifyServices(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::masters
