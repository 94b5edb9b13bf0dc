#pragma once

#include <string>

#include "session/workplace.h"

class QWidget;

namespace velmo::masters {

// The items whose code holds LoginContext::SearchText, with their prices and what is in stock: a list to look at.
QWidget* makeSearchItem(session::Workplace& workplace, QWidget* parent);

// Its statement. The typed text is part of a pattern: % and _ in it are wildcards.
std::string stockByItem(int fyid, const std::string& typed);

}  // namespace velmo::masters
