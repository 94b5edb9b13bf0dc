#pragma once

#include <string>
#include <vector>

#include "frame/master/master_type.h"

// The choices of `PrintBttn` on the dialogs of accounts.
namespace velmo::masters {

std::vector<frame::MasterPrint> chartOfAccountsPrints();
// The accounts of one type, under a caption.
std::vector<frame::MasterPrint> accountsOfTypePrints(int type, const std::string& caption);

}  // namespace velmo::masters
