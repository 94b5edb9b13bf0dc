#pragma once

#include "frame/document/document_type.h"

namespace velmo::documents {

inline constexpr int saleReturnTranType = 35;

// Goods that a customer brings back, or a rate that is adjusted: the screen `SaleReturns`.
const frame::DocumentType& saleReturnType();

}  // namespace velmo::documents
