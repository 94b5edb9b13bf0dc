#pragma once

#include "documents/trade/trade_kind.h"

namespace velmo::documents {

// Goods that go back to a vendor, or a rate that is adjusted: the screen `PurchaseReturns`.
const frame::DocumentType& purchaseReturnType();
const TradeKind& purchaseReturnKind();

}  // namespace velmo::documents
