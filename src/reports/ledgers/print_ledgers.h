#pragma once

#include "session/workplace.h"

class QWidget;

namespace velmo::reports {

// Prints the ledgers of many accounts. First it brings the stored balances of the year up to date.
QWidget* makePrintLedgers(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::reports
