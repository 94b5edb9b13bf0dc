#pragma once

#include <memory>
#include <string>

#include "printing/pieces.h"

namespace velmo::vouchers {

// What a voucher run shows beside its rows.
struct VoucherSheet {
  printing::Letterhead letterhead = {};
  std::string currencyCode = {};
  int tranType = 0;
  text::DateTime today = {};
};

// "SALE VOUCHER" for 32, and so on. A type without vouchers throws std::logic_error.
std::string voucherTitle(int tranType);

// The layout `Voucher2` over rows of `ParentCmd` with the chapter `ChildCmd`.
printing::Report voucher2Report(const VoucherSheet& sheet, std::shared_ptr<const printing::ReportData> vouchers);

}  // namespace velmo::vouchers
