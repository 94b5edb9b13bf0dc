#pragma once

#include "session/workplace.h"

class QWidget;

namespace velmo::shell {

// The picture at the head of every print-out: the file "mylogo.jpg" in the program's folder.
QWidget* makeLogoSetting(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::shell
