#pragma once

#include <functional>
#include <string>

#include "session/workplace.h"
#include "store/upkeep/back_up.h"

namespace velmo::shell {

// "KORD Back-Up (Date 22-11-26) (Time 02-07-09 pm)"
std::string proposedBackUpName(const text::DateTime& now);

// Asks for a file, saves a verified copy of the company's file under that name while the program goes on, and tells
// how it ended. Nothing happens when no file is named.
void saveDirectBackUp(session::Workplace& workplace, const std::function<void(store::BackUpStage)>& progress);

}  // namespace velmo::shell
