#pragma once

#include "documents/trade/trade_kind.h"

namespace velmo::documents {

// The cashier's form of the sale invoice, in the same series of numbers: the screen `SaleInvoicesPOS`.
const frame::DocumentType& saleInvoicePosType();
const TradeKind& saleInvoicePosKind();

}  // namespace velmo::documents
