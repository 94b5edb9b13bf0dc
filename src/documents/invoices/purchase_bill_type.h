#pragma once

#include "frame/document/document_type.h"

namespace velmo::documents {

inline constexpr int purchaseBillTranType = 22;

// A vendor's bill: the screen `PurchaseBillsSimple`.
const frame::DocumentType& purchaseBillType();

}  // namespace velmo::documents
