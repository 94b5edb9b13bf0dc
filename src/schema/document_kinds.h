#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

// The kinds of documents and the screens that write them: what is known of each, said once.
namespace velmo::schema {

// The kinds by the number in TranType of `Transactions`, `AgingDr` and `AgingCr`.
namespace tran_type {
inline constexpr int OpeningBalance = 11;
inline constexpr int InwardGatePass = 20;
inline constexpr int SalesTaxPurchase = 21;  // written by no screen, read by reports
inline constexpr int PurchaseBill = 22;
inline constexpr int PurchaseReturn = 25;
inline constexpr int BankPayment = 28;
inline constexpr int CashPayment = 29;
inline constexpr int OutwardGatePass = 30;
inline constexpr int SalesTaxInvoice = 31;  // likewise
inline constexpr int SaleInvoice = 32;
inline constexpr int SaleReturn = 35;
inline constexpr int BankReceipt = 38;
inline constexpr int CashReceipt = 39;
inline constexpr int JournalVoucher = 41;
inline constexpr int Production = 42;
inline constexpr int InventoryTransfer = 43;
inline constexpr int InventoryAdded = 45;
inline constexpr int InventoryReduced = 47;
inline constexpr int ClosingInventory = 51;
inline constexpr int Quotation = 91;
inline constexpr int PurchaseOrder = 92;
inline constexpr int SaleOrder = 93;
inline constexpr int DeliveryChallan = 94;
inline constexpr int BillOfMaterial = 95;
}  // namespace tran_type

// Whether a kind posts ledger lines; those that do promise that debits and credits are equal.
enum class Ledger { Posted, None };

// What decides whether a document moves stock. The settings are those of the company, see session/stock_movement.
enum class StockRule {
  NoGoods,  // it has none
  Always,
  Never,
  InwardPassSetting,
  BillSetting,
  OutwardPassSetting,
  ChallanSetting,
  InvoiceSetting
};

struct DocumentKind {
  int tranType;
  std::string_view name;       // "Sale Invoice No. 17" in ledgers
  std::string_view shortName;  // "SI 17"
  Ledger ledger;
  StockRule stock;
};

// All kinds, by number.
std::span<const DocumentKind> documentKinds();
// Throws std::logic_error for a number that is no kind's.
const DocumentKind& documentKind(int tranType);

// The reports from whose rows a screen is opened: those that list ledger lines, those that list goods.
enum class LedFrom { NoReport, Ledgers, Goods, Both };

// A screen that writes documents of a kind. A right of 0 is not asked for.
struct DocumentForm {
  std::string_view screen;
  int tranType;
  std::string_view findScreen;  // "" where it has none
  int openRight;                // the screen itself: menu, links, and what is converted to its documents
  int browseRight;              // Previous and Next
  int viewRight;                // a document that was found, or that a row of a report stands for
  LedFrom ledFrom = LedFrom::Both;
};

// clang-format off
inline constexpr DocumentForm documentForms[] = {
    {"OpeningBalancesAcc", tran_type::OpeningBalance, "", 14, 0, 14, LedFrom::Ledgers},
    {"OpeningBalancesInv", tran_type::OpeningBalance, "", 24, 0, 24, LedFrom::Goods},
    {"GatePassesIn", tran_type::InwardGatePass, "FindIGP", 152, 154, 154},
    {"PurchaseBillsSimple", tran_type::PurchaseBill, "FindPurchasesSimple", 57, 58, 59},
    {"PurchaseReturns", tran_type::PurchaseReturn, "FindPReturns", 60, 62, 62},
    {"BankPayments", tran_type::BankPayment, "FindBankPayments", 64, 66, 66},
    {"CashPayments", tran_type::CashPayment, "FindCashPayments", 68, 70, 70},
    {"GatePassesOut", tran_type::OutwardGatePass, "FindOGP", 156, 158, 158},
    {"SaleInvoicesSimple", tran_type::SaleInvoice, "FindSalesSimple", 93, 94, 94},
    {"SaleInvoicesPOS", tran_type::SaleInvoice, "FindSalesPOS", 95, 97, 97, LedFrom::NoReport},
    {"SaleReturns", tran_type::SaleReturn, "FindSReturns", 98, 100, 100},
    {"BankReceipts", tran_type::BankReceipt, "FindBankReceipts", 102, 104, 104},
    {"CashReceipts", tran_type::CashReceipt, "FindCashReceipts", 106, 108, 108},
    {"GeneralJournal", tran_type::JournalVoucher, "FindGJV", 122, 124, 124},
    {"Production", tran_type::Production, "FindProduction", 132, 134, 134},
    {"InventoryTransfers", tran_type::InventoryTransfer, "FindTransfers", 126, 128, 128},
    {"AddInventory", tran_type::InventoryAdded, "FindAddAdjustments", 142, 144, 144},
    {"ReduceInventory", tran_type::InventoryReduced, "FindReduceAdjustments", 142, 144, 144},
    {"Quotations", tran_type::Quotation, "FindQuotations", 82, 84, 84, LedFrom::NoReport},
    {"PurchaseOrders", tran_type::PurchaseOrder, "FindPO", 52, 54, 54, LedFrom::NoReport},
    {"SaleOrders", tran_type::SaleOrder, "FindSO", 86, 88, 88, LedFrom::NoReport},
    {"DeliveryChallans", tran_type::DeliveryChallan, "FindDC", 90, 92, 92},
    {"BillofMaterial", tran_type::BillOfMaterial, "FindBillMaterial", 129, 0, 129, LedFrom::NoReport},
};
// clang-format on

// The form whose screen has the name; one that is not there does not compile, or throws std::logic_error.
constexpr const DocumentForm& documentForm(std::string_view screen) {
  for (const DocumentForm& form : documentForms)
    if (form.screen == screen) return form;
  throw std::logic_error("no form of documents has this screen");
}

// The form that a row of a report opens for its document, nullptr when it opens none.
const DocumentForm* formFromReport(int tranType, LedFrom reports);

}  // namespace velmo::schema
