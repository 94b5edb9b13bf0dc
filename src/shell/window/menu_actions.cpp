#include "shell/window/menu_actions.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include "forms/caption.h"

namespace velmo::shell {
namespace {

using HasScreen = std::function<bool(std::string_view)>;
using Chosen = std::function<void(const MenuEntry&)>;

void fillMenu(QMenu& menu, const MenuBranch& branch, const HasScreen& hasScreen, const Chosen& chosen) {
  menu.setObjectName(forms::shownText(branch.name));
  for (const MenuEntry& entry : branch.entries) {
    if (entry.command == MenuCommand::Separator) {
      menu.addSeparator();
      continue;
    }
    if (entry.command == MenuCommand::OpenSubmenu) {
      fillMenu(*menu.addMenu(forms::shownText(entry.caption)), submenu(entry.target), hasScreen, chosen);
      continue;
    }
    QAction* action = menu.addAction(forms::shownText(entry.caption));
    action->setObjectName(forms::shownText(branch.name) + QLatin1Char('_') + QString::number(entry.index));
    action->setCheckable(entry.command == MenuCommand::AskBeforeDropping);
    const bool opensScreen = entry.command == MenuCommand::OpenScreen || entry.command == MenuCommand::OpenDialog;
    action->setEnabled(!opensScreen || hasScreen(entry.target));
    QObject::connect(action, &QAction::triggered, &menu, [&entry, chosen] { chosen(entry); });
  }
}

}  // namespace

void fillMenuBar(QMenuBar& bar, const HasScreen& hasScreen, const Chosen& chosen) {
  for (const MenuBranch& branch : menuBar())
    fillMenu(*bar.addMenu(forms::shownText(branch.caption)), branch, hasScreen, chosen);
}

}  // namespace velmo::shell
