#pragma once

#include "session/workplace.h"

class QWidget;

namespace velmo::reports {

// Documents of all years whose debits are not their credits though they should be; cancelled ones below, marked.
QWidget* makeUnbalancedDocuments(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::reports
