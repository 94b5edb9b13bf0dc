#include "vouchers/voucher2_print.h"

#include "printing/recordset_data.h"
#include "vouchers/voucher_sheet.h"

namespace velmo::vouchers {

printing::Report voucher2Print(const session::LoginContext& context, const store::Recordset& vouchers, int tranType,
                               text::DateTime today) {
  const VoucherSheet sheet{.letterhead = printing::letterheadOf(context),
                           .currencyCode = context.ccode,
                           .tranType = tranType,
                           .today = today};
  return voucher2Report(sheet, std::make_shared<printing::RecordsetData>(vouchers));
}

}  // namespace velmo::vouchers
