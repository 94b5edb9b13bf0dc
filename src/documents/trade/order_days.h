#pragma once

#include "frame/document/document_type.h"

namespace velmo::documents {

// A customer's order reference in D1 brings the date of the sale order that has it.
frame::DateLookup saleOrderDay();
// The number of a purchase order in D2 brings its date.
frame::DateLookup purchaseOrderDay();

}  // namespace velmo::documents
