#pragma once

#include <optional>

#include "documents/print/print_source.h"
#include "printing/report.h"

namespace velmo::documents {

enum class InvoiceKind { Sale, Service, SaleReturn, Purchase, PurchaseReturn };

// The layouts of a sale invoice, numbered as LoginContext::sif counts them.
enum class InvoiceLayout { Invoice = 1, Invoice0 = 2, Invoice01 = 3, Invoice02 = 4, Invoice6 = 6, Invoice7 = 7 };

// The layout that a value of LoginContext::sif chooses; none for a value that prints nothing.
std::optional<InvoiceLayout> invoiceLayout(int sif);

// A sale or service invoice in a layout. Where LoginContext::sif is ten above the layout, the head is left to the
// user's own letterhead and the page begins LoginContext::sitm Twips below the paper's edge.
printing::Report invoicePrint(InvoiceLayout layout, const PrintSource& source, InvoiceKind kind = InvoiceKind::Sale);

// In the layout of LoginContext::sif; nothing when it chooses none.
std::optional<printing::Report> invoicePrint(const PrintSource& source, InvoiceKind kind = InvoiceKind::Sale);

// The print-outs `SReturn`, `PurchaseBill` and `PReturn`, on A4 under the company's head.
printing::Report tradePrint(const PrintSource& source, InvoiceKind kind);

}  // namespace velmo::documents
