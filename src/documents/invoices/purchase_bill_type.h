#pragma once

#include "documents/trade/trade_kind.h"

namespace velmo::documents {

// A vendor's bill: the screen `PurchaseBillsSimple`.
const frame::DocumentType& purchaseBillType();
const TradeKind& purchaseBillKind();

}  // namespace velmo::documents
