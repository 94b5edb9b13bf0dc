#pragma once

#include "frame/document/find_type.h"
#include "vouchers/settlement/settlement_kind.h"

namespace velmo::vouchers {

// Looks for receipts or payments of the year: `FindCashReceipts` and its three siblings.
frame::FindType findSettlements(const SettlementKind& kind);

}  // namespace velmo::vouchers
