#pragma once

#include <span>

#include "shell/catalogue/screen_catalogue.h"

class QWidget;

namespace velmo::shell {

// The ID of the help text for somebody whose keyboard is in `focus`: the one whose heading quotes the message box that
// stands there, otherwise that of the screen which holds it or from which it was opened. Throws StoreError.
int helpTopicFor(const QWidget& focus, store::Connection& company, std::span<const ScreenEntry> catalogue);

}  // namespace velmo::shell
