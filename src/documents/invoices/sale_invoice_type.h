#pragma once

#include "frame/document/document_type.h"

namespace velmo::documents {

inline constexpr int saleInvoiceTranType = 32;

// The sale invoice without the print-outs, which need widgets.
const frame::DocumentType& saleInvoiceType();

}  // namespace velmo::documents
