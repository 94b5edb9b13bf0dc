#pragma once

#include "frame/document/find_type.h"

namespace velmo::documents {

// The Find screens of stock documents: by number, date, remarks and amount.
frame::FindType findStock(std::string_view title);

}  // namespace velmo::documents
