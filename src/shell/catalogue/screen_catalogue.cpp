#include "shell/catalogue/screen_catalogue.h"

#include "documents/invoices/sale_invoice.h"
#include "documents/invoices/trade_screens.h"
#include "documents/orders/order_screens.h"
#include "masters/accounts/modify_accounts.h"
#include "masters/accounts/modify_parties.h"
#include "masters/catalogue/inv_below_reorder.h"
#include "masters/catalogue/inventory_settings.h"
#include "masters/catalogue/item_settings.h"
#include "masters/catalogue/modify_inventory.h"
#include "masters/catalogue/modify_services.h"
#include "masters/catalogue/search_item.h"
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

QWidget* makeSaleInvoicesSimple(session::Workplace& workplace, QWidget* parent) {
  return documents::makeSaleInvoicesSimple(workplace, parent, {.voucher = showDocumentVoucher});
}

QWidget* makeSaleInvoicesPOS(session::Workplace& workplace, QWidget* parent) {
  return documents::makeSaleInvoicesPOS(workplace, parent, {.voucher = showDocumentVoucher});
}

QWidget* makeSaleReturns(session::Workplace& workplace, QWidget* parent) {
  return documents::makeSaleReturns(workplace, parent, {.voucher = showDocumentVoucher});
}

QWidget* makePurchaseBillsSimple(session::Workplace& workplace, QWidget* parent) {
  return documents::makePurchaseBillsSimple(workplace, parent, {.voucher = showDocumentVoucher});
}

QWidget* makePurchaseReturns(session::Workplace& workplace, QWidget* parent) {
  return documents::makePurchaseReturns(workplace, parent, {.voucher = showDocumentVoucher});
}

QWidget* makeQuotations(session::Workplace& workplace, QWidget* parent) {
  return documents::makeQuotations(workplace, parent);
}

QWidget* makeSaleOrders(session::Workplace& workplace, QWidget* parent) {
  return documents::makeSaleOrders(workplace, parent);
}

QWidget* makeDeliveryChallans(session::Workplace& workplace, QWidget* parent) {
  return documents::makeDeliveryChallans(workplace, parent);
}

QWidget* makeGatePassesOut(session::Workplace& workplace, QWidget* parent) {
  return documents::makeGatePassesOut(workplace, parent);
}

QWidget* makePurchaseOrders(session::Workplace& workplace, QWidget* parent) {
  return documents::makePurchaseOrders(workplace, parent);
}

QWidget* makeGatePassesIn(session::Workplace& workplace, QWidget* parent) {
  return documents::makeGatePassesIn(workplace, parent);
}

QWidget* makeCashReceipts(session::Workplace& workplace, QWidget* parent) {
  return vouchers::makeCashReceipts(workplace, parent, {.voucher = showDocumentVoucher});
}

QWidget* makeBankReceipts(session::Workplace& workplace, QWidget* parent) {
  return vouchers::makeBankReceipts(workplace, parent, {.voucher = showDocumentVoucher});
}

QWidget* makeCashPayments(session::Workplace& workplace, QWidget* parent) {
  return vouchers::makeCashPayments(workplace, parent, {.voucher = showDocumentVoucher});
}

QWidget* makeBankPayments(session::Workplace& workplace, QWidget* parent) {
  return vouchers::makeBankPayments(workplace, parent, {.voucher = showDocumentVoucher});
}

QWidget* makeGeneralJournal(session::Workplace& workplace, QWidget* parent) {
  return vouchers::makeGeneralJournal(workplace, parent, {.voucher = showDocumentVoucher});
}

QWidget* makePrintVouchers(session::Workplace& workplace, QWidget* parent) {
  return reports::makePrintVouchers(workplace, parent,
                                    {.voucher1 = vouchers::voucher1Print, .voucher2 = vouchers::voucher2Print});
}

constexpr ScreenEntry screens[] = {
    {"Navigation", ScreenKind::ChildWindow, makeNavigation, HelpTopic::FirstSteps},
    {"SaleInvoicesSimple", ScreenKind::ChildWindow, makeSaleInvoicesSimple},
    {"SaleInvoicesPOS", ScreenKind::ChildWindow, makeSaleInvoicesPOS},
    {"SaleReturns", ScreenKind::ChildWindow, makeSaleReturns},
    {"PurchaseBillsSimple", ScreenKind::ChildWindow, makePurchaseBillsSimple},
    {"PurchaseReturns", ScreenKind::ChildWindow, makePurchaseReturns},
    {"Quotations", ScreenKind::ChildWindow, makeQuotations},
    {"SaleOrders", ScreenKind::ChildWindow, makeSaleOrders},
    {"DeliveryChallans", ScreenKind::ChildWindow, makeDeliveryChallans},
    {"GatePassesOut", ScreenKind::ChildWindow, makeGatePassesOut},
    {"PurchaseOrders", ScreenKind::ChildWindow, makePurchaseOrders},
    {"GatePassesIn", ScreenKind::ChildWindow, makeGatePassesIn},
    {"CashReceipts", ScreenKind::ChildWindow, makeCashReceipts},
    {"BankReceipts", ScreenKind::ChildWindow, makeBankReceipts},
    {"CashPayments", ScreenKind::ChildWindow, makeCashPayments},
    {"BankPayments", ScreenKind::ChildWindow, makeBankPayments},
    {"GeneralJournal", ScreenKind::ChildWindow, makeGeneralJournal},
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

std::span<const ScreenEntry> screenCatalogue() {
  return screens;
}

}  // namespace velmo::shell
