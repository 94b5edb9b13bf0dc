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

enum class VoucherLayout {
  Voucher1,  // with the description of each line
  Voucher2
};

// In which the vouchers of a type of document are printed. A type without vouchers throws std::logic_error.
VoucherLayout voucherLayout(int tranType);

// "SALE VOUCHER" for 32, and so on. A type without vouchers throws std::logic_error.
std::string voucherTitle(int tranType);

// A layout over rows of `ParentCmd` with the chapter `ChildCmd`.
printing::Report voucherReport(VoucherLayout layout, const VoucherSheet& sheet,
                               std::shared_ptr<const printing::ReportData> vouchers);

}  // namespace velmo::vouchers
