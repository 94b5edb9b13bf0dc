#pragma once

#include "session/workplace.h"

class QWidget;

namespace velmo::reports {

// The day book: every line of a period's documents, cancelled ones too.
QWidget* makeDailyJournal(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::reports
