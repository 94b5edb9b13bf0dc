#pragma once

#include "session/workplace.h"

class QWidget;

namespace velmo::shell {

// The country of the business, and the name and symbol of its currency.
QWidget* makeCurrencySettings(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::shell
