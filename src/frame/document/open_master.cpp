#include "frame/document/open_master.h"

#include <QPushButton>

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

}  // namespace velmo::frame
