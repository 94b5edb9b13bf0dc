#pragma once

#include "frame/document/find_type.h"

namespace velmo::vouchers {

// Looks for journal vouchers of the year: `FindGJV`.
frame::FindType findJournals();

}  // namespace velmo::vouchers
