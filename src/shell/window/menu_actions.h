#pragma once

#include <functional>

#include "shell/window/menu_tree.h"

class QMenuBar;

namespace velmo::shell {

// Builds the menus of the tree. An entry whose screen the program does not have stands there disabled. Actions are
// named after menu and index ("SaleMod_55").
void fillMenuBar(QMenuBar& bar, const std::function<bool(std::string_view screen)>& hasScreen,
                 const std::function<void(const MenuEntry&)>& chosen);

}  // namespace velmo::shell
