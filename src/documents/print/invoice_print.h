#pragma once

#include <optional>

#include "printing/report.h"
#include "session/login_context.h"
#include "store/recordset/recordset.h"

namespace velmo::documents {

enum class InvoiceKind { Sale, Service, SaleReturn, Purchase, PurchaseReturn };
enum class DocumentState { Valid, Cancelled };

// What the screen tells a print-out beyond the stored document.
struct PrintRequest {
  InvoiceKind kind = InvoiceKind::Sale;
  DocumentState state = DocumentState::Valid;
  text::DateTime today = {};
};

// The layouts of a sale invoice, numbered as LoginContext::sif counts them.
enum class InvoiceLayout { Invoice = 1, Invoice0 = 2, Invoice01 = 3, Invoice02 = 4, Invoice6 = 6, Invoice7 = 7 };

// The layout that a value of LoginContext::sif chooses; none for a value that prints nothing.
std::optional<InvoiceLayout> invoiceLayout(int sif);

// A sale invoice in a layout. Where LoginContext::sif is ten above the layout, the head is left to the user's own
// letterhead and the page begins LoginContext::sitm Twips below the paper's edge. `document` stands on the row of
// Transactions, `lines` are its rows of StockFlow.
printing::Report invoicePrint(InvoiceLayout layout, const session::LoginContext& context,
                              const store::Recordset& document, const store::Recordset& lines,
                              const PrintRequest& request);

// In the layout of LoginContext::sif; nothing when it chooses none.
std::optional<printing::Report> invoicePrint(const session::LoginContext& context, const store::Recordset& document,
                                             const store::Recordset& lines, const PrintRequest& request);

// The print-outs `SReturn`, `PurchaseBill` and `PReturn`, by the kind of the request, on A4 under the company's head.
printing::Report tradePrint(const session::LoginContext& context, const store::Recordset& document,
                            const store::Recordset& lines, const PrintRequest& request);

}  // namespace velmo::documents
