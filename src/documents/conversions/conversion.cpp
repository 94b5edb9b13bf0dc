#include "documents/conversions/conversion.h"

#include "schema/document_kinds.h"

namespace velmo::documents {

namespace {

using namespace schema::tran_type;

constexpr ConvertedPosting invoicePosting{
    {frame::salesIncome, "Sales"}, PartySide::Debited, frame::AgingSide::Receivable};
constexpr ConvertedPosting billPosting{
    {frame::purchasesExpense, "Purchases"}, PartySide::Credited, frame::AgingSide::Payable};
// The books have it so: the open item of a bill that was made from a gate pass stands among the receivables until the
// bill is saved, and stays there beside the one among the payables.
constexpr ConvertedPosting billPostingOfPass{
    {frame::purchasesExpense, "Purchases"}, PartySide::Credited, frame::AgingSide::Receivable};

constexpr std::string_view invoiceCancelled =
    "This sale invoice is cancelled. A cancelled sale invoice cannot be converted.";
constexpr std::string_view quotationCancelled =
    "This quotation is cancelled. A cancelled quotation cannot be converted.";
constexpr std::string_view saleOrderCancelled =
    "This sale order is cancelled. A cancelled sale order cannot be converted.";
constexpr std::string_view challanCancelled =
    "This delivery challan is cancelled. A cancelled delivery challan cannot be converted.";
constexpr std::string_view passCancelled =
    "This gate pass is cancelled. A cancelled delivery challan cannot be converted.";
constexpr std::string_view purchaseOrderCancelled =
    "This purchase order is cancelled. A cancelled purchase order cannot be converted.";

constexpr FilledColumn supplyTime{"Text6", presentTime};
constexpr FilledColumn firstReference{"D1", "D1"};
constexpr FilledColumn firstDay{"D1Date", "D1Date"};
constexpr FilledColumn secondReference{"D2", "D2"};
constexpr FilledColumn secondDay{"D2Date", "D2Date"};
constexpr FilledColumn orderDay{"D1Date", "TranDate"};
constexpr FilledColumn ownNumber{"D2", "DocNo"};
constexpr FilledColumn ownDay{"D2Date", "TranDate"};

constexpr FilledColumn timeAlone[] = {supplyTime};
constexpr FilledColumn ofOrder[] = {firstReference, orderDay};
constexpr FilledColumn ofOrderWithTime[] = {firstReference, orderDay, supplyTime};
constexpr FilledColumn ofChallan[] = {firstReference, firstDay, ownNumber, ownDay};
constexpr FilledColumn ofChallanWithTransport[] = {firstReference,     firstDay,           ownNumber,         ownDay,
                                                   {"Text6", "Text6"}, {"Text7", "Text7"}, {"Text8", "Text8"}};
constexpr FilledColumn bothReferences[] = {firstReference, firstDay, secondReference, secondDay};
constexpr FilledColumn bothWithTime[] = {firstReference, firstDay, secondReference, secondDay, supplyTime};
constexpr FilledColumn firstWithTime[] = {firstReference, firstDay, supplyTime};
constexpr FilledColumn ownWithTime[] = {ownNumber, ownDay, supplyTime};
constexpr FilledColumn own[] = {ownNumber, ownDay};
constexpr FilledColumn second[] = {secondReference, secondDay};

constexpr Conversion all[] = {
    {.from = Quotation,
     .to = SaleOrder,
     .command = "ConvertBttn",
     .caption = "Convert Order",
     .refusal = quotationCancelled,
     .trace = {"Text9", "Order No. "}},
    {.from = Quotation,
     .to = DeliveryChallan,
     .command = "ConvertBttn2",
     .caption = "Convert D.C.",
     .refusal = quotationCancelled,
     .trace = {"Text10", "D.C. No. "},
     .columns = timeAlone},
    {.from = Quotation,
     .to = SaleInvoice,
     .command = "ConvertBttn4",
     .caption = "Convert Invoice",
     .refusal = quotationCancelled,
     .trace = {"Text11", "Invoice No. "},
     .posting = &invoicePosting},
    {.from = SaleOrder,
     .to = DeliveryChallan,
     .command = "ConvertBttn2",
     .caption = "Convert D.C.",
     .refusal = saleOrderCancelled,
     .trace = {"Text9", "D.C. No. "},
     .columns = ofOrderWithTime},
    {.from = SaleOrder,
     .to = SaleInvoice,
     .command = "ConvertBttn4",
     .caption = "Convert Invoice",
     .refusal = saleOrderCancelled,
     .trace = {"Text10", "Invoice No. "},
     .columns = ofOrder,
     .posting = &invoicePosting},
    {.from = DeliveryChallan,
     .to = SaleInvoice,
     .command = "ConvertBttn4",
     .caption = "Convert Invoice",
     .refusal = challanCancelled,
     .trace = {"Text10", "Invoice No. "},
     .columns = ofChallan,
     .posting = &invoicePosting},
    {.from = DeliveryChallan,
     .to = OutwardGatePass,
     .command = "ConvertBttn5",
     .caption = "Convert O.G.P.",
     .refusal = challanCancelled,
     .trace = {"Text9", "O.G.P. No. "},
     .columns = ofChallanWithTransport},
    {.from = OutwardGatePass,
     .to = SaleInvoice,
     .command = "ConvertBttn4",
     .caption = "Convert Invoice",
     .refusal = passCancelled,
     .trace = {"Text9", "Invoice No. "},
     .columns = bothReferences,
     .posting = &invoicePosting},
    {.from = SaleInvoice,
     .to = DeliveryChallan,
     .command = "ConvertBttn2",
     .caption = "Convert D.C.",
     .refusal = invoiceCancelled,
     .trace = {"D2", "", "D2Date"},
     .columns = firstWithTime,
     .total = TotalOf::WholeDocument,
     .words = TotalOf::WholeDocument},
    {.from = SaleInvoice,
     .to = OutwardGatePass,
     .command = "ConvertBttn3",
     .caption = "Convert O.G.P.",
     .refusal = invoiceCancelled,
     .trace = {"Text10", "O.G.P. No. "},
     .columns = bothWithTime,
     .words = TotalOf::WholeDocument},  // the words stay those of the invoice
    {.from = PurchaseOrder,
     .to = InwardGatePass,
     .command = "ConvertBttn2",
     .caption = "Convert I.G.P.",
     .refusal = purchaseOrderCancelled,
     .trace = {"Text9", "I.G.P. No. "},
     .quantity = "StockIn",
     .columns = ownWithTime},
    {.from = PurchaseOrder,
     .to = PurchaseBill,
     .command = "ConvertBttn3",
     .caption = "Convert Purchase",
     .refusal = purchaseOrderCancelled,
     .trace = {"Text10", "Purchase No. "},
     .quantity = "StockIn",
     .columns = own,
     .posting = &billPosting},
    {.from = InwardGatePass,
     .to = PurchaseBill,
     .command = "ConvertBttn4",
     .caption = "Convert Purchase",
     .refusal = passCancelled,
     .trace = {"Text9", "Purchase No. "},
     .quantity = "StockIn",
     .columns = second,
     .posting = &billPostingOfPass},
};

}  // namespace

std::span<const Conversion> conversions() {
  return all;
}

}  // namespace velmo::documents
