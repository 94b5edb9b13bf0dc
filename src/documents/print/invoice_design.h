#pragma once

#include "documents/print/invoice_sheet.h"

// The layouts of a sale invoice, one file each. `lines` have the fields serial, itemcode, itemname, stockout, unit,
// rate, grossamt, discamt and itemvalue.
namespace velmo::documents {

using InvoiceLines = std::shared_ptr<const printing::ReportData>;

printing::Report designInvoice(const InvoiceSheet& sheet, const InvoiceLines& lines);
printing::Report designInvoice0(const InvoiceSheet& sheet, const InvoiceLines& lines);
printing::Report designInvoice01(const InvoiceSheet& sheet, const InvoiceLines& lines);
printing::Report designInvoice02(const InvoiceSheet& sheet, const InvoiceLines& lines);
printing::Report designInvoice6(const InvoiceSheet& sheet, const InvoiceLines& lines);
printing::Report designInvoice7(const InvoiceSheet& sheet, const InvoiceLines& lines);

}  // namespace velmo::documents
