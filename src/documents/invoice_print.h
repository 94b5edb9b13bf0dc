#pragma once

#include "printing/report.h"
#include "session/login_context.h"
#include "store/recordset.h"

namespace velmo::documents {

enum class InvoiceKind { Sale, Service };
enum class DocumentState { Valid, Cancelled };

// What the screen tells a print-out beyond the stored document.
struct PrintRequest {
  InvoiceKind kind = InvoiceKind::Sale;
  DocumentState state = DocumentState::Valid;
  text::DateTime today = {};
};

// The layout `Invoice` of a sale invoice: A4, with a discount column. LoginContext::sif 11 leaves the head to the
// user's own letterhead and begins LoginContext::sitm Twips below the paper's edge. `document` stands on the row of
// Transactions, `lines` are its rows of StockFlow.
printing::Report invoicePrint(const session::LoginContext& context, const store::Recordset& document,
                              const store::Recordset& lines, const PrintRequest& request);

}  // namespace velmo::documents
