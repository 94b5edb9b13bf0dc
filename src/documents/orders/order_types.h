#pragma once

#include "frame/document/document_type.h"

// The papers between an offer and the gate. None of them posts ledger lines.
namespace velmo::documents {

const frame::DocumentType& quotationType();        // the screen `Quotations`
const frame::DocumentType& saleOrderType();        // `SaleOrders`
const frame::DocumentType& deliveryChallanType();  // `DeliveryChallans`
const frame::DocumentType& outwardPassType();      // `GatePassesOut`
const frame::DocumentType& purchaseOrderType();    // `PurchaseOrders`
const frame::DocumentType& inwardPassType();       // `GatePassesIn`

}  // namespace velmo::documents
