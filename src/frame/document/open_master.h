#pragma once

#include "frame/document/document_type.h"
#include "session/workplace.h"

class QPushButton;

namespace velmo::frame {

class CommandBar;

// Makes the button open a master screen under its right, and come and go with the commands of the document. It stays
// disabled when the program has no such screen.
void addMasterCommand(CommandBar& commands, QPushButton& button, const MasterCommand& command,
                      session::Workplace& workplace);

// The command `CI`, which opens the list of items to add one.
void addNewItemCommand(CommandBar& commands, session::Workplace& workplace);

}  // namespace velmo::frame
