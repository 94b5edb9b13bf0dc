#pragma once

#include "session/workplace.h"

class QWidget;

namespace velmo::shell {

// The help text that LoginContext::HelpTopicID names.
QWidget* makeHelpForm(session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::shell
