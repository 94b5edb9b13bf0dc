#include "shell/window/menu_tree.h"

#include <stdexcept>
#include <string>

#include "schema/document_kinds.h"

namespace velmo::shell {
namespace {

constexpr MenuGuard right(int id) {
  return {.right = id};
}
constexpr MenuGuard administrator(std::string_view refusal) {
  return {.refusal = refusal};
}

// Opens the screen of a kind of documents under the right that it has.
constexpr MenuEntry documents(int index, std::string_view caption, std::string_view screen) {
  return {index, caption, MenuCommand::OpenScreen, screen, right(schema::documentForm(screen).openRight)};
}

// clang-format off
constexpr MenuEntry general[] = {
    {10, "&Welcome Screen", MenuCommand::ShowWelcome},
    {20, "&My Company", MenuCommand::OpenDialog, "CompanyInfo", administrator("You do not have access to edit business details.")},
    {25, "My L&ogo", MenuCommand::OpenDialog, "LogoSetting", administrator("You do not have access to edit logo.")},
    {40},
    {50, "&User Logins", MenuCommand::OpenDialog, "UserLogins", administrator("You do not have access to edit user logins.")},
    {60, "User Ri&ghts", MenuCommand::OpenDialog, "UserRights", administrator("You do not have access to edit user rights.")},
    {70, "&Passwords", MenuCommand::OpenDialog, "Password"},
    {75, "&Ask before dropping what is not saved", MenuCommand::AskBeforeDropping},
    {80},
    {90, "&Financial Years", MenuCommand::OpenDialog, "FinancialYears", administrator("You do not have access to edit financial years.")},
    {95, "Clear &Transactions", MenuCommand::OpenDialog, "ClearTransactions", administrator("You do not have access to clear transactions.")},
    {100, "&Currency", MenuCommand::OpenDialog, "CurrencySettings", administrator("You do not have access to edit currency settings.")},
    {110},
    {120, "&Back-Up Utility", MenuCommand::StartBackUp},
    {130},
    {140, "E&xit", MenuCommand::Exit},
};

constexpr MenuEntry maintain[] = {
    {10, "&Chart of Accounts", MenuCommand::OpenDialog, "ModifyAccounts", right(12)},
    {12, "Customers", MenuCommand::OpenDialog, "ModifyCustomers", right(12)},
    {14, "Vendors / Suppliers", MenuCommand::OpenDialog, "ModifySuppliers", right(12)},
    {16, "Bank Accounts", MenuCommand::OpenDialog, "ModifyBanks", right(12)},
    documents(20, "&Accounts Opening Balances", "OpeningBalancesAcc"),
    {30},
    {40, "Chart of &Inventory", MenuCommand::OpenDialog, "ModifyInventory", right(22)},
    documents(50, "Inventory &Opening Balances", "OpeningBalancesInv"),
    {55, "Inventory Brands", MenuCommand::OpenDialog, "InvBrands", right(25)},
    {60, "Inventory &Locations", MenuCommand::OpenDialog, "InvLocations", right(26)},
    {70, "Items &Price Settings", MenuCommand::OpenDialog, "InvPrices", right(28)},
    {80, "Items &Re-Order Levels", MenuCommand::OpenDialog, "InvReorderSettings", right(32)},
    {90, "Items Cost &Valuation Method", MenuCommand::OpenDialog, "InvValuation", right(34)},
    {94},
    {96, "Chart of Services", MenuCommand::OpenDialog, "ModifyServices", right(22)},
    {100},
    {104, "Inventory Movement Settings", MenuCommand::OpenDialog, "InventorySettings", right(38)},
    {110},
    {120, "Customer Regions", MenuCommand::OpenDialog, "Regions", right(41)},
    {130, "Business Sectors", MenuCommand::OpenDialog, "Sectors", right(42)},
    {140, "&Employees", MenuCommand::OpenDialog, "Employees", right(43)},
    {150, "&Jobs", MenuCommand::OpenDialog, "Jobs", right(44)},
};

constexpr MenuEntry purchases[] = {
    documents(10, "Purchase &Orders", "PurchaseOrders"),
    {20},
    documents(25, "Inwards &Gate Passes", "GatePassesIn"),
    {28},
    documents(35, "Purchases", "PurchaseBillsSimple"),
    documents(40, "Purchase &Returns / Debit Notes", "PurchaseReturns"),
    {50},
    documents(60, "Ca&sh Payments", "CashPayments"),
    documents(70, "&Bank Payments", "BankPayments"),
};

constexpr MenuEntry sales[] = {
    documents(10, "&Quotations", "Quotations"),
    documents(20, "Sale &Orders", "SaleOrders"),
    {30},
    documents(40, "Delivery &Challans", "DeliveryChallans"),
    documents(45, "Outwards &Gate Passes", "GatePassesOut"),
    documents(55, "S&ale Invoices", "SaleInvoicesSimple"),
    documents(57, "&Point of Sale Invoices", "SaleInvoicesPOS"),
    documents(60, "Sale &Returns / Credit Notes", "SaleReturns"),
    {70},
    documents(80, "Ca&sh Receipts", "CashReceipts"),
    documents(90, "&Bank Receipts", "BankReceipts"),
};

constexpr MenuEntry adjustments[] = {
    documents(10, "&General Journal", "GeneralJournal"),
    {20},
    documents(30, "Bill of Materials", "BillofMaterial"),
    documents(40, "Production", "Production"),
    documents(45, "Inventory &Transfers", "InventoryTransfers"),
    {50},
    documents(60, "&Add Inventory Adjustments", "AddInventory"),
    documents(70, "&Reduce Inventory Adjustments", "ReduceInventory"),
    {80, "&Count Sheet", MenuCommand::OpenScreen, "CountSheet", right(142)},
};

constexpr MenuEntry reports[] = {
    {10, "&Journal Report", MenuCommand::OpenScreen, "DailyJournal", right(180)},
    {20, "Prin&t Vouchers", MenuCommand::OpenDialog, "PrintVouchers", right(184)},
    {30},
    {35, "Product Serials Tracking", MenuCommand::OpenDialog, "ProductSerial", right(186)},
    {40, "I&tems Below Re-Order Level", MenuCommand::OpenScreen, "InvBelowReorder", right(188)},
    {45},
    {50, "Purchase Orders Tracking", MenuCommand::OpenScreen, "PurchaseOrdersTracking", right(190)},
    {52, "Sale Orders Tracking", MenuCommand::OpenScreen, "SaleOrdersTracking", right(191)},
    {55},
    {60, "&Purchase Reports", MenuCommand::OpenSubmenu, "PurReports"},
    {90},
    {100, "Sale Rep&ort", MenuCommand::OpenSubmenu, "SalReports"},
    {140},
    {145, "Profitablity Reports", MenuCommand::OpenSubmenu, "ProfitRep"},
    {148},
    {150, "&View Inventory &Ledgers", MenuCommand::OpenScreen, "InventoryLedgers", right(232)},
    {160, "Print Inventory &Ledgers", MenuCommand::OpenDialog, "PrintBins", right(232)},
    {170, "Inventory &Balances", MenuCommand::OpenScreen, "InventoryBalances", right(236)},
    {178},
    {180, "Jobs Ledgers", MenuCommand::OpenScreen, "JobLedgers", right(230)},
    {182},
    {190, "View Accounts Le&dgers", MenuCommand::OpenScreen, "AccLedgers", right(240)},
    {200, "Pr&int Accounts Ledger", MenuCommand::OpenDialog, "PrintLedgers", right(240)},
    {210, "Cash && Bank Balances", MenuCommand::OpenScreen, "CashBalances", right(242)},
    {220, "Customers' Balances", MenuCommand::OpenScreen, "CustomerBalances", right(244)},
    {230, "Vendors' Balances", MenuCommand::OpenScreen, "VendorBalances", right(246)},
    {240, "Trial Balan&ce", MenuCommand::OpenScreen, "AccBalances", right(248)},
    {250},
    {260, "Inco&me Statement", MenuCommand::OpenDialog, "IncomeStatement", right(252)},
    {270, "Balance Sh&eet", MenuCommand::OpenDialog, "BalanceSheet", right(254)},
};

constexpr MenuEntry purchaseReports[] = {
    {10, "Purchase Summary", MenuCommand::OpenScreen, "PurchaseReport", right(192)},
    {20, "Purchase Register", MenuCommand::OpenScreen, "PurchaseReportRegister", right(192)},
    {30, "Party Purchase Summary", MenuCommand::OpenScreen, "PurchaseReportParty", right(192)},
    {40, "Payments Report", MenuCommand::OpenScreen, "PaymentReport", right(193)},
    {50, "Purchase Activity Report - Invoice Wise", MenuCommand::OpenScreen, "PurchaseActivityReportInvoice", right(198)},
    {60, "Purchase Activity Report - Party Wise", MenuCommand::OpenScreen, "PurchaseActivityReportParty", right(199)},
    {70, "Items Purchase Summary", MenuCommand::OpenScreen, "PurchaseReportItem", right(192)},
    {80, "Items Purc&hase Analysis", MenuCommand::OpenScreen, "InventoryPurchAnalysis", right(196)},
    {90, "Accounts Payable A&ging", MenuCommand::OpenScreen, "AgingCreditors", right(200)},
};

constexpr MenuEntry saleReports[] = {
    {10, "Sale Summary", MenuCommand::OpenScreen, "SaleReport", right(212)},
    {20, "Sale Register", MenuCommand::OpenScreen, "SaleReportRegister", right(212)},
    {30, "Party Sale Summary", MenuCommand::OpenScreen, "SaleReportParty", right(212)},
    {40, "Recovery / Receipts Report", MenuCommand::OpenScreen, "ReceiptReport", right(213)},
    {50, "Sale Activity Report - Invoice Wise", MenuCommand::OpenScreen, "SaleActivityReportInvoice", right(214)},
    {60, "Sale Activity Report - Party Wise", MenuCommand::OpenScreen, "SaleActivityReportParty", right(214)},
    {70, "Items Sale Summary", MenuCommand::OpenScreen, "SaleReportItem", right(212)},
    {80, "Items Sale Anal&ysis", MenuCommand::OpenScreen, "InventorySaleAnalysis", right(216)},
    {90, "Services Analysis", MenuCommand::OpenScreen, "ServicesAnalysis", right(216)},
    {100, "Accounts Recei&vable Aging", MenuCommand::OpenScreen, "AgingDebtors", right(220)},
};

constexpr MenuEntry profitReports[] = {
    {10, "Invoice-&Wise Profit / (Loss)", MenuCommand::OpenScreen, "InvoiceProfit", right(224)},
    {20, "Item-&Wise Profit / (Loss)", MenuCommand::OpenScreen, "ItemSaleProfit", right(224)},
    {30, "Party-&Wise Profit / (Loss)", MenuCommand::OpenScreen, "PartyProfit", right(224)},
};

constexpr MenuEntry help[] = {
    {10, "&About Velmo Point of Sale", MenuCommand::OpenDialog, "About"},
};
// clang-format on

constexpr MenuBranch bar[] = {
    {"General", "&Administration", general},
    {"Main", "&Maintain", maintain},
    {"PurchaseMod", "&Purchases", purchases},
    {"SaleMod", "&Sales", sales},
    {"AdjustmentMod", "Ad&justments", adjustments},
    {"Report", "&Reports", reports},
    {"Help", "A&bout", help},
};

constexpr MenuBranch submenus[] = {
    {"PurReports", {}, purchaseReports},
    {"SalReports", {}, saleReports},
    {"ProfitRep", {}, profitReports},
};

}  // namespace

std::span<const MenuBranch> menuBar() {
  return bar;
}

const MenuBranch& submenu(std::string_view name) {
  for (const MenuBranch& branch : submenus)
    if (branch.name == name) return branch;
  throw std::logic_error("no submenu named " + std::string(name));
}

}  // namespace velmo::shell
