#include "schema/document_kinds.h"

#include <algorithm>

namespace velmo::schema {
namespace {

using namespace tran_type;
using enum StockRule;

constexpr Ledger Posted = Ledger::Posted;
constexpr Ledger Unposted = Ledger::None;

// A return follows the setting of the purchase bill, whatever it takes back.
constexpr DocumentKind kinds[] = {
    {OpeningBalance, "Opening Balance", "OB", Posted, Always},
    {InwardGatePass, "Inward Gate Pass", "IGP", Unposted, InwardPassSetting},
    {SalesTaxPurchase, "Purchase Bill (Sales Tax)", "PST", Posted, BillSetting},
    {PurchaseBill, "Purchase Bill", "PB", Posted, BillSetting},
    {PurchaseReturn, "Purchase Return", "PR", Posted, BillSetting},
    {BankPayment, "Bank Payment", "BP", Posted, NoGoods},
    {CashPayment, "Cash Payment", "CP", Posted, NoGoods},
    {OutwardGatePass, "Outward Gate Pass", "OGP", Unposted, OutwardPassSetting},
    {SalesTaxInvoice, "Sales Tax Invoice", "STI", Posted, InvoiceSetting},
    {SaleInvoice, "Sale Invoice", "SI", Posted, InvoiceSetting},
    {SaleReturn, "Sale Return", "SR", Posted, BillSetting},
    {BankReceipt, "Bank Receipt", "BR", Posted, NoGoods},
    {CashReceipt, "Cash Receipt", "CR", Posted, NoGoods},
    {JournalVoucher, "Journal Voucher", "JV", Posted, NoGoods},
    {Production, "Production", "PN", Posted, Always},
    {InventoryTransfer, "Inventory Transfer", "IT", Unposted, Always},
    {InventoryAdded, "Inventory Added", "IA", Posted, Always},
    {InventoryReduced, "Inventory Reduced", "IR", Posted, Always},
    {ClosingInventory, "Closing Inventory", "CI", Posted, NoGoods},
    {Quotation, "Quotation", "QT", Unposted, Never},
    {PurchaseOrder, "Purchase Order", "PO", Unposted, Never},
    {SaleOrder, "Sale Order", "SO", Unposted, Never},
    {DeliveryChallan, "Delivery Challan", "DC", Unposted, ChallanSetting},
    {BillOfMaterial, "Bill of Material", "BM", Unposted, Never},
};

}  // namespace

std::span<const DocumentKind> documentKinds() {
  return kinds;
}

const DocumentKind& documentKind(int tranType) {
  const auto* found = std::ranges::find(kinds, tranType, &DocumentKind::tranType);
  if (found == std::end(kinds)) throw std::logic_error("no kind of documents has number " + std::to_string(tranType));
  return *found;
}

const DocumentForm* formFromReport(int tranType, LedFrom reports) {
  const auto* found = std::ranges::find_if(documentForms, [&](const DocumentForm& form) {
    return form.tranType == tranType && (form.ledFrom == reports || form.ledFrom == LedFrom::Both);
  });
  return found == std::end(documentForms) ? nullptr : found;
}

}  // namespace velmo::schema
