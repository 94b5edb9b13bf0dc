#pragma once

#include "frame/document/find_type.h"

namespace velmo::documents {

// Looks for sale invoices, returns, purchases and their returns of the year.
frame::FindType findSalesSimple();
frame::FindType findSalesPOS();
frame::FindType findSReturns();
frame::FindType findPurchasesSimple();
frame::FindType findPReturns();

}  // namespace velmo::documents
