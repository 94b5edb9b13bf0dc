#pragma once

#include "frame/document/document_type.h"

namespace velmo::documents {

inline constexpr int purchaseReturnTranType = 25;

// Goods that go back to a vendor, or a rate that is adjusted: the screen `PurchaseReturns`.
const frame::DocumentType& purchaseReturnType();

}  // namespace velmo::documents
