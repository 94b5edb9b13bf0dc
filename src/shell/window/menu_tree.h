#pragma once

#include <span>
#include <string_view>

namespace velmo::shell {

enum class MenuCommand {
  OpenScreen,
  OpenDialog,
  OpenSubmenu,
  Separator,
  ShowWelcome,
  AskBeforeDropping,
  StartBackUp,
  Exit
};

// Who may use an entry: everyone, the administrator (others are told the sentence), or users with a right.
struct MenuGuard {
  int right = 0;
  std::string_view refusal = {};
};

struct MenuEntry {
  int index;
  std::string_view caption = {};  // with its access key
  MenuCommand command = MenuCommand::Separator;
  std::string_view target = {};  // name of the screen or of the submenu
  MenuGuard guard = {};
};

struct MenuBranch {
  std::string_view name;
  std::string_view caption;
  std::span<const MenuEntry> entries;
};

// The branches of the menu bar, in their order.
std::span<const MenuBranch> menuBar();
// A submenu by its name.
const MenuBranch& submenu(std::string_view name);

}  // namespace velmo::shell
