#include "shell/screen_catalogue.h"

#include "documents/sale_invoice.h"
#include "shell/about.h"
#include "shell/company_info.h"
#include "shell/currency_settings.h"
#include "shell/document_voucher.h"
#include "shell/help_form.h"
#include "shell/logo_setting.h"
#include "shell/navigation.h"
#include "shell/print_settings.h"

namespace velmo::shell {
namespace {

QWidget* makeSaleInvoicesSimple(session::Workplace& workplace, QWidget* parent) {
  return documents::makeSaleInvoicesSimple(workplace, parent, {.voucher = showDocumentVoucher});
}

constexpr ScreenEntry screens[] = {
    {"Navigation", ScreenKind::ChildWindow, makeNavigation},
    {"SaleInvoicesSimple", ScreenKind::ChildWindow, makeSaleInvoicesSimple},
    {"CompanyInfo", ScreenKind::Dialog, makeCompanyInfo},
    {"LogoSetting", ScreenKind::Dialog, makeLogoSetting},
    {"CurrencySettings", ScreenKind::Dialog, makeCurrencySettings},
    {"InvoiceSettings", ScreenKind::Dialog, makeInvoiceSettings},
    {"POSettings", ScreenKind::Dialog, makePOSettings},
    {"QuoteSettings", ScreenKind::Dialog, makeQuoteSettings},
    {"DCSettings", ScreenKind::Dialog, makeDCSettings},
    {"HelpForm", ScreenKind::Dialog, makeHelpForm},
    {"About", ScreenKind::Dialog, makeAbout},
};

}  // namespace

std::span<const ScreenEntry> screenCatalogue() {
  return screens;
}

}  // namespace velmo::shell
