#include "shell/screen_catalogue.h"

#include "documents/sale_invoice.h"
#include "shell/about.h"
#include "shell/document_voucher.h"
#include "shell/navigation.h"

namespace velmo::shell {
namespace {

QWidget* makeSaleInvoicesSimple(session::Workplace& workplace, QWidget* parent) {
  return documents::makeSaleInvoicesSimple(workplace, parent, {.voucher = showDocumentVoucher});
}

constexpr ScreenEntry screens[] = {
    {"Navigation", ScreenKind::ChildWindow, makeNavigation},
    {"SaleInvoicesSimple", ScreenKind::ChildWindow, makeSaleInvoicesSimple},
    {"About", ScreenKind::Dialog, makeAbout},
};

}  // namespace

std::span<const ScreenEntry> screenCatalogue() {
  return screens;
}

}  // namespace velmo::shell
