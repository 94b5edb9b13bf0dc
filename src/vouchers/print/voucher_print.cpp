#include "vouchers/print/voucher_print.h"

#include "printing/recordset_data.h"
#include "vouchers/print/voucher_sheet.h"

namespace velmo::vouchers {

namespace {

printing::Report print(VoucherLayout layout, const session::LoginContext& context, const store::Recordset& vouchers,
                       int tranType, text::DateTime today) {
  const VoucherSheet sheet{.letterhead = printing::letterheadOf(context),
                           .currencyCode = context.ccode,
                           .tranType = tranType,
                           .today = today};
  return voucherReport(layout, sheet, std::make_shared<printing::RecordsetData>(vouchers));
}

}  // namespace

printing::Report voucher1Print(const session::LoginContext& context, const store::Recordset& vouchers, int tranType,
                               text::DateTime today) {
  return print(VoucherLayout::Voucher1, context, vouchers, tranType, today);
}

printing::Report voucher2Print(const session::LoginContext& context, const store::Recordset& vouchers, int tranType,
                               text::DateTime today) {
  return print(VoucherLayout::Voucher2, context, vouchers, tranType, today);
}

printing::Report voucherPrint(const session::LoginContext& context, const store::Recordset& vouchers, int tranType,
                              text::DateTime today) {
  return print(voucherLayout(tranType), context, vouchers, tranType, today);
}

}  // namespace velmo::vouchers
