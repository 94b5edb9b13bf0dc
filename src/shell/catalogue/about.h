#pragma once

#include "session/workplace.h"

class QWidget;

namespace velmo::shell {

// The dialog that names the program, its version and where the company's data lies, and saves back-ups of it.
QWidget* makeAbout(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::shell
