#pragma once

#include "session/workplace.h"

class QWidget;

namespace velmo::shell {

// The company's name, address and numbers, as they head every print-out.
QWidget* makeCompanyInfo(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::shell
