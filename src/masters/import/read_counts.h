#pragma once

#include <map>
#include <string>

#include "session/workplace.h"

class QWidget;

namespace velmo::masters {

// Lets the user bring counted quantities in from a file of codes and quantities, through the import's dry run; the
// counts by item code, none when he gave it up.
std::map<std::string, double> readCounts(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::masters
