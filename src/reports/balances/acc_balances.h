#pragma once

#include <QWidget>

#include "session/workplace.h"

namespace velmo::reports {

// `AccBalances`, the trial balance in six and in two columns. Each showing of it rewrites the year's closing stock.
QWidget* makeAccBalances(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::reports
