#pragma once

#include "frame/document/document_type.h"

namespace velmo::documents {

// The cashier's form of the sale invoice, in the same series of numbers: the screen `SaleInvoicesPOS`.
const frame::DocumentType& saleInvoicePosType();

}  // namespace velmo::documents
