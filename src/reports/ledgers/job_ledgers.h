#pragma once

#include <QWidget>

#include "session/workplace.h"

namespace velmo::reports {

// `JobLedgers`: a job, and the lines that documents for it put into the ledgers.
QWidget* makeJobLedgers(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::reports
