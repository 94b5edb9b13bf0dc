#pragma once

#include "documents/trade/trade_kind.h"

namespace velmo::documents {

// The sale invoice without the print-outs, which need widgets.
const frame::DocumentType& saleInvoiceType();
const TradeKind& saleInvoiceKind();

}  // namespace velmo::documents
