#include "reports/ledgers/print_vouchers.h"

#include <array>

#include "frame/report/report_screen.h"
#include "reports/ledgers/vouchers_data.h"
#include "schema/document_kinds.h"
#include "text/number.h"

namespace velmo::reports {
namespace {

using frame::ReportOption;
using frame::ReportScreen;
using frame::ReportUse;

using Layout = VoucherLayouts::Layout VoucherLayouts::*;

struct VoucherKind {
  const char* caption;
  int tranType;
  Layout layout;
};

using namespace schema::tran_type;

constexpr std::array kinds{
    VoucherKind{"Purchase Vouchers", PurchaseBill, &VoucherLayouts::voucher2},
    VoucherKind{"Purchase Return Vouchers", PurchaseReturn, &VoucherLayouts::voucher2},
    VoucherKind{"Bank Payment Vouchers", BankPayment, &VoucherLayouts::voucher1},
    VoucherKind{"Cash Payment Vouchers", CashPayment, &VoucherLayouts::voucher1},
    VoucherKind{"Sale Vouchers", SaleInvoice, &VoucherLayouts::voucher2},
    VoucherKind{"Sale Return Vouchers", SaleReturn, &VoucherLayouts::voucher2},
    VoucherKind{"Bank Receipt Vouchers", BankReceipt, &VoucherLayouts::voucher1},
    VoucherKind{"Cash Receipt Vouchers", CashReceipt, &VoucherLayouts::voucher1},
    VoucherKind{"General Journal Vouchers", JournalVoucher, &VoucherLayouts::voucher1},
    VoucherKind{"Production Vouchers", Production, &VoucherLayouts::voucher2},
    VoucherKind{"Add Inventory Adjustment Vouchers", InventoryAdded, &VoucherLayouts::voucher2},
    VoucherKind{"Reduce Inventory Adjustment Vouchers", InventoryReduced, &VoucherLayouts::voucher2}};

enum Selection { allRecords, dateFrom, serialFrom };

bool checkSerials(ReportScreen& screen, ReportUse) {
  if (screen.filters().choice("Selection") != serialFrom) return true;
  const auto from = text::numberFrom(screen.filters().text("SerialFrom"));
  const auto to = text::numberFrom(screen.filters().text("SerialTo"));
  if (!from || !to) return screen.refuse("Invalid Document No.", "The document no. must be a numeric.", "SerialFrom");
  if (*to < *from)
    return screen.refuse("Invalid Document No.",
                         "The starting document no. must be greater than the ending document no.", "SerialFrom");
  return true;
}

std::string filterOf(const ReportScreen& screen, int fyid) {
  const frame::ReportFilters& filters = screen.filters();
  const std::string year = std::to_string(fyid);
  switch (filters.choice("Selection")) {
    case dateFrom: {
      const frame::ReportPeriod period = filters.period("DateFrom", "DateTo");
      return " and (transactions.trandate>=" + store::dateLiteral(period.from) +
             " and transactions.trandate<=" + store::dateLiteral(period.to) + ") and (Transactions.fyid=" + year + ")";
    }
    case serialFrom:
      return " and (transactions.docno>=" + filters.text("SerialFrom") +
             " and transactions.docno<=" + filters.text("SerialTo") + ") and (Transactions.fyid=" + year + ")";
    default:
      return " and (transactions.fyid=" + year + ")";
  }
}

std::optional<printing::Report> printOut(ReportScreen& screen, const VoucherLayouts& layouts) {
  session::LoginContext& context = screen.workplace().context;
  const VoucherKind& kind = kinds[static_cast<std::size_t>(screen.filters().choice("TypeOpt"))];
  const VoucherLayouts::Layout& layout = layouts.*kind.layout;
  if (!layout) {
    screen.refuse("Cannot Print", "The layout of these vouchers is not part of this program.");
    return std::nullopt;
  }
  const auto vouchers = std::make_shared<const VouchersData>(
      context.KORDconn, context.currencyname,
      "trantype= " + std::to_string(kind.tranType) + filterOf(screen, context.FYID));
  if (vouchers->isEmpty()) {
    screen.showMessage(ReportScreen::tr("There are no such vouchers."));
    return std::nullopt;
  }
  context.PrintKind = kind.tranType;
  screen.showMessage({});
  return layout(context, vouchers, kind.tranType, screen.workplace().clock.today());
}

std::vector<std::string> captions() {
  std::vector<std::string> all;
  for (const VoucherKind& kind : kinds) all.emplace_back(kind.caption);
  return all;
}

frame::ReportType vouchersType(const VoucherLayouts& layouts) {
  return {.screen = "PrintVouchers",
          .caption = "Print Vouchers",
          .filters = {{frame::ReportOptions{.name = "TypeOpt", .caption = "Voucher Type", .captions = captions()}},
                      {ReportOption{.name = "Selection_0", .caption = "&All Records", .group = "Selection"}},
                      {ReportOption{.name = "Selection_1",
                                    .caption = "&Date From",
                                    .group = "Selection",
                                    .inputs = {"DateFrom", "DateTo"}},
                       frame::ReportPeriodBoxes{.caption = "", .from = "DateFrom", .to = "DateTo"}},
                      {ReportOption{.name = "Selection_2",
                                    .caption = "&Serial From",
                                    .group = "Selection",
                                    .inputs = {"SerialFrom", "SerialTo"}},
                       frame::ReportDigits{.name = "SerialFrom", .caption = ""},
                       frame::ReportDigits{.name = "SerialTo", .caption = "To"}}},
          .print = {"PreviewBttn", "&Preview", "Shows the vouchers as they will be printed"},
          .check = checkSerials,
          .printOut = [layouts](ReportScreen& screen) { return printOut(screen, layouts); }};
}

}  // namespace

QWidget* makePrintVouchers(session::Workplace& workplace, QWidget* parent, VoucherLayouts layouts) {
  return new frame::ReportDialog(vouchersType(layouts), workplace, parent);
}

}  // namespace velmo::reports
