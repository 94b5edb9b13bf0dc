#pragma once

#include "frame/document/find_type.h"

namespace velmo::documents {

// Looks for quotations, orders, challans and gate passes of the year.
frame::FindType findQuotations();
frame::FindType findSO();
frame::FindType findDC();
frame::FindType findOGP();
frame::FindType findPO();
frame::FindType findIGP();

}  // namespace velmo::documents
