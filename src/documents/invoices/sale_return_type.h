#pragma once

#include "documents/trade/trade_kind.h"

namespace velmo::documents {

// Goods that a customer brings back, or a rate that is adjusted: the screen `SaleReturns`.
const frame::DocumentType& saleReturnType();
const TradeKind& saleReturnKind();

}  // namespace velmo::documents
