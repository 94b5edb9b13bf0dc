#pragma once

#include "session/workplace.h"

class QWidget;

namespace velmo::masters {

// The short lists that accounts and items are classified by.
QWidget* makeRegions(session::Workplace& workplace, QWidget* parent);  // regions and their sub regions
QWidget* makeSectors(session::Workplace& workplace, QWidget* parent);
QWidget* makeInvBrands(session::Workplace& workplace, QWidget* parent);
QWidget* makeInvLocations(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::masters
