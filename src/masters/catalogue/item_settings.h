#pragma once

#include "session/workplace.h"

class QWidget;

namespace velmo::masters {

// Prices, re-order levels and costing methods of many items at once: all, those of a category or of a brand.
QWidget* makeInvPrices(session::Workplace& workplace, QWidget* parent);
QWidget* makeInvReorderSettings(session::Workplace& workplace, QWidget* parent);
QWidget* makeInvValuation(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::masters
