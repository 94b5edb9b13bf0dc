#include "shell/catalogue/screen_catalogue.h"

#include "documents/count/count_screen.h"
#include "documents/invoices/sale_invoice.h"
#include "documents/invoices/trade_screens.h"
#include "documents/orders/order_screens.h"
#include "documents/production/production_screens.h"
#include "documents/stock/stock_screens.h"
#include "masters/accounts/modify_accounts.h"
#include "masters/accounts/modify_parties.h"
#include "masters/catalogue/inv_below_reorder.h"
#include "masters/catalogue/inventory_settings.h"
#include "masters/catalogue/item_settings.h"
#include "masters/catalogue/modify_inventory.h"
#include "masters/catalogue/modify_services.h"
#include "masters/catalogue/search_item.h"
#include "masters/import/read_counts.h"
#include "masters/lists/simple_lists.h"
#include "masters/people/employees.h"
#include "masters/people/jobs.h"
#include "masters/people/password.h"
#include "masters/people/user_logins.h"
#include "masters/people/user_rights.h"
#include "reports/balances/acc_balances.h"
#include "reports/balances/narrow_balances.h"
#include "reports/ledgers/acc_ledgers.h"
#include "reports/ledgers/daily_journal.h"
#include "reports/ledgers/job_ledgers.h"
#include "reports/ledgers/print_ledgers.h"
#include "reports/ledgers/print_vouchers.h"
#include "reports/ledgers/unbalanced_documents.h"
#include "reports/serials/product_serial.h"
#include "shell/catalogue/about.h"
#include "shell/catalogue/document_voucher.h"
#include "shell/catalogue/help_form.h"
#include "shell/settings/company_info.h"
#include "shell/settings/currency_settings.h"
#include "shell/settings/logo_setting.h"
#include "shell/settings/print_settings.h"
#include "shell/welcome/navigation.h"
#include "vouchers/journal/general_journal_type.h"
#include "vouchers/print/voucher_print.h"
#include "vouchers/settlement/settlement_types.h"

namespace velmo::shell {
namespace {

QWidget* makePrintVouchers(session::Workplace& workplace, QWidget* parent) {
  return reports::makePrintVouchers(workplace, parent,
                                    {.voucher1 = vouchers::voucher1Print, .voucher2 = vouchers::voucher2Print});
}

QWidget* makeCountSheet(session::Workplace& workplace, QWidget* parent) {
  return new documents::CountScreen(workplace, masters::readCounts, parent);
}

constexpr ScreenEntry screens[] = {
    {"Navigation", ScreenKind::ChildWindow, makeNavigation, HelpTopic::FirstSteps},
    {"SaleInvoicesSimple", ScreenKind::ChildWindow, documents::makeSaleInvoicesSimple},
    {"SaleInvoicesPOS", ScreenKind::ChildWindow, documents::makeSaleInvoicesPOS},
    {"SaleReturns", ScreenKind::ChildWindow, documents::makeSaleReturns},
    {"PurchaseBillsSimple", ScreenKind::ChildWindow, documents::makePurchaseBillsSimple},
    {"PurchaseReturns", ScreenKind::ChildWindow, documents::makePurchaseReturns},
    {"Quotations", ScreenKind::ChildWindow, documents::makeQuotations},
    {"SaleOrders", ScreenKind::ChildWindow, documents::makeSaleOrders},
    {"DeliveryChallans", ScreenKind::ChildWindow, documents::makeDeliveryChallans},
    {"GatePassesOut", ScreenKind::ChildWindow, documents::makeGatePassesOut},
    {"PurchaseOrders", ScreenKind::ChildWindow, documents::makePurchaseOrders},
    {"GatePassesIn", ScreenKind::ChildWindow, documents::makeGatePassesIn},
    {"BillofMaterial", ScreenKind::ChildWindow, documents::makeBillofMaterial},
    {"Production", ScreenKind::ChildWindow, documents::makeProduction},
    {"AddInventory", ScreenKind::ChildWindow, documents::makeAddInventory},
    {"ReduceInventory", ScreenKind::ChildWindow, documents::makeReduceInventory},
    {"InventoryTransfers", ScreenKind::ChildWindow, documents::makeInventoryTransfers},
    {"CountSheet", ScreenKind::ChildWindow, makeCountSheet},
    {"CashReceipts", ScreenKind::ChildWindow, vouchers::makeCashReceipts},
    {"BankReceipts", ScreenKind::ChildWindow, vouchers::makeBankReceipts},
    {"CashPayments", ScreenKind::ChildWindow, vouchers::makeCashPayments},
    {"BankPayments", ScreenKind::ChildWindow, vouchers::makeBankPayments},
    {"GeneralJournal", ScreenKind::ChildWindow, vouchers::makeGeneralJournal},
    {"ModifyAccounts", ScreenKind::Dialog, masters::makeModifyAccounts},
    {"ModifyCustomers", ScreenKind::Dialog, masters::makeModifyCustomers},
    {"ModifySuppliers", ScreenKind::Dialog, masters::makeModifySuppliers},
    {"ModifyBanks", ScreenKind::Dialog, masters::makeModifyBanks},
    {"ModifyInventory", ScreenKind::Dialog, masters::makeModifyInventory},
    {"ModifyServices", ScreenKind::Dialog, masters::makeModifyServices},
    {"Regions", ScreenKind::Dialog, masters::makeRegions},
    {"Sectors", ScreenKind::Dialog, masters::makeSectors},
    {"Employees", ScreenKind::Dialog, masters::makeEmployees},
    {"InvBrands", ScreenKind::Dialog, masters::makeInvBrands},
    {"InvLocations", ScreenKind::Dialog, masters::makeInvLocations},
    {"InvPrices", ScreenKind::Dialog, masters::makeInvPrices},
    {"InvReorderSettings", ScreenKind::Dialog, masters::makeInvReorderSettings},
    {"InvValuation", ScreenKind::Dialog, masters::makeInvValuation},
    {"InvBelowReorder", ScreenKind::ChildWindow, masters::makeInvBelowReorder, HelpTopic::PaperWidth},
    {"SearchItem", ScreenKind::Dialog, masters::makeSearchItem},
    {"Password", ScreenKind::Dialog, masters::makePassword, HelpTopic::FirstSteps},
    {"UserLogins", ScreenKind::Dialog, masters::makeUserLogins, HelpTopic::FirstSteps},
    {"UserRights", ScreenKind::Dialog, masters::makeUserRights, HelpTopic::FirstSteps},
    {"InventorySettings", ScreenKind::Dialog, masters::makeInventorySettings, HelpTopic::FirstSteps},
    {"Jobs", ScreenKind::Dialog, masters::makeJobs},
    {"DailyJournal", ScreenKind::ChildWindow, reports::makeDailyJournal, HelpTopic::PaperWidth},
    {"AccLedgers", ScreenKind::ChildWindow, reports::makeAccLedgers, HelpTopic::PaperWidth},
    {"PrintLedgers", ScreenKind::Dialog, reports::makePrintLedgers, HelpTopic::PaperWidth},
    {"PrintVouchers", ScreenKind::Dialog, makePrintVouchers, HelpTopic::PaperWidth},
    {"AccBalances", ScreenKind::ChildWindow, reports::makeAccBalances, HelpTopic::PaperWidth},
    {"CustomerBalances", ScreenKind::ChildWindow, reports::makeCustomerBalances, HelpTopic::PaperWidth},
    {"VendorBalances", ScreenKind::ChildWindow, reports::makeVendorBalances, HelpTopic::PaperWidth},
    {"CashBalances", ScreenKind::ChildWindow, reports::makeCashBalances, HelpTopic::PaperWidth},
    {"JobLedgers", ScreenKind::ChildWindow, reports::makeJobLedgers, HelpTopic::PaperWidth},
    {"UnbalancedDocuments", ScreenKind::ChildWindow, reports::makeUnbalancedDocuments, HelpTopic::PaperWidth},
    {"ProductSerial", ScreenKind::Dialog, reports::makeProductSerial},
    {"CompanyInfo", ScreenKind::Dialog, makeCompanyInfo, HelpTopic::FirstSteps},
    {"LogoSetting", ScreenKind::Dialog, makeLogoSetting, HelpTopic::FirstSteps},
    {"CurrencySettings", ScreenKind::Dialog, makeCurrencySettings, HelpTopic::FirstSteps},
    {"InvoiceSettings", ScreenKind::Dialog, makeInvoiceSettings, HelpTopic::PaperWidth},
    {"POSettings", ScreenKind::Dialog, makePOSettings, HelpTopic::PaperWidth},
    {"QuoteSettings", ScreenKind::Dialog, makeQuoteSettings, HelpTopic::PaperWidth},
    {"DCSettings", ScreenKind::Dialog, makeDCSettings, HelpTopic::PaperWidth},
    {"HelpForm", ScreenKind::Dialog, makeHelpForm},
    {"About", ScreenKind::Dialog, makeAbout, HelpTopic::BackUp},
};

}  // namespace

QWidget* ScreenEntry::make(session::Workplace& workplace, QWidget* parent) const {
  if (const auto* document = std::get_if<MakeDocument>(&maker))
    return (*document)(workplace, parent, {.voucher = showDocumentVoucher});
  return std::get<Make>(maker)(workplace, parent);
}

std::span<const ScreenEntry> screenCatalogue() {
  return screens;
}

}  // namespace velmo::shell
