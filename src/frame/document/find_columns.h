#pragma once

#include <string>
#include <vector>

#include "frame/document/find_type.h"

namespace velmo::frame {

// The columns of a list of found documents: number and day, those of the kind of document, and what every record has:
// its employee, its location where it stands at one, whether it is cancelled, and who added and edited it when.
std::vector<forms::TableColumn> findColumns(const std::vector<forms::TableColumn>& own,
                                            FindLocation location = FindLocation::None,
                                            FindStatus status = FindStatus::Shown);

// A column of amounts.
forms::TableColumn findAmount(const std::string& caption, const std::string& field);

}  // namespace velmo::frame
