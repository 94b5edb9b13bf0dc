#pragma once

#include "session/workplace.h"

class QWidget;

namespace velmo::masters {

// The job cards that documents may cite, and their print-out.
QWidget* makeJobs(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::masters
