#pragma once

#include <vector>

#include "frame/master/master_type.h"

// The choices of `PrintBttn` on the dialogs of the catalogue.
namespace velmo::masters {

std::vector<frame::MasterPrint> inventoryPrints();
std::vector<frame::MasterPrint> servicePrints();
std::vector<frame::MasterPrint> brandPrints();

}  // namespace velmo::masters
