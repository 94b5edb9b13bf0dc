#pragma once

#include "session/workplace.h"

class QWidget;

namespace velmo::masters {

// The chart of accounts: types, sub types, accounts.
QWidget* makeModifyAccounts(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::masters
