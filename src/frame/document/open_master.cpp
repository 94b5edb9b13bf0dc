#include "frame/document/open_master.h"

#include <QPushButton>

#include "forms/look.h"
#include "frame/document/command_bar.h"

namespace velmo::frame {

void addMasterCommand(CommandBar& commands, QPushButton& button, const MasterCommand& command,
                      session::Workplace& workplace) {
  commands.include(button);
  if (!workplace.screens.hasScreen(command.dialog)) commands.forbid(button);
  QObject::connect(&button, &QPushButton::clicked, &button, [&workplace, command] {
    if (workplace.rights().demand(command.right)) workplace.screens.openDialog(command.dialog);
  });
}

void addNewItemCommand(CommandBar& commands, session::Workplace& workplace) {
  auto* CI = new QPushButton(QObject::tr("New Item"));
  CI->setObjectName("CI");
  CI->setAccessibleName(CI->text());
  CI->setToolTip(QObject::tr("Opens the list of items to add one"));
  forms::makeQuiet(*CI);
  commands.place(*CI);
  addMasterCommand(commands, *CI, {.caption = "New Item", .right = 22, .dialog = "ModifyInventory"}, workplace);
}

}  // namespace velmo::frame
