#pragma once

#include <vector>

#include "store/upkeep/upgrade.h"

namespace velmo::schema {

// What brings the files of earlier versions of the program to schemaVersion.
std::vector<store::UpgradeStep> upgrades();

}  // namespace velmo::schema
