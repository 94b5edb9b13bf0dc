#pragma once

#include "session/workplace.h"

class QWidget;

namespace velmo::reports {

// The ledger of one account. With LoginContext::OpenLedgerFlag set it shows LoginContext::OpenLedgerAccCode at once.
QWidget* makeAccLedgers(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::reports
