#include "vouchers/print/voucher_print.h"

#include "vouchers/print/voucher_sheet.h"

namespace velmo::vouchers {

namespace {

printing::Report print(VoucherLayout layout, const session::LoginContext& context, Vouchers vouchers, int tranType,
                       text::DateTime today) {
  const VoucherSheet sheet{.letterhead = printing::letterheadOf(context),
                           .currencyCode = context.ccode,
                           .tranType = tranType,
                           .today = today};
  return voucherReport(layout, sheet, std::move(vouchers));
}

}  // namespace

printing::Report voucher1Print(const session::LoginContext& context, Vouchers vouchers, int tranType,
                               text::DateTime today) {
  return print(VoucherLayout::Voucher1, context, std::move(vouchers), tranType, today);
}

printing::Report voucher2Print(const session::LoginContext& context, Vouchers vouchers, int tranType,
                               text::DateTime today) {
  return print(VoucherLayout::Voucher2, context, std::move(vouchers), tranType, today);
}

printing::Report voucherPrint(const session::LoginContext& context, Vouchers vouchers, int tranType,
                              text::DateTime today) {
  return print(voucherLayout(tranType), context, std::move(vouchers), tranType, today);
}

}  // namespace velmo::vouchers
