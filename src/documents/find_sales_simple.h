#pragma once

#include "frame/find_type.h"

namespace velmo::documents {

frame::FindType findSalesSimple();

}  // namespace velmo::documents
