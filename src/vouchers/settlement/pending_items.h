#pragma once

#include "store/recordset/recordset.h"
#include "vouchers/settlement/settlement_kind.h"

// The open invoices of a customer, or bills of a vendor: what was invoiced in a year less all that was settled, of
// documents that are not cancelled, oldest first.
namespace velmo::vouchers {

// Each open item with TrAmounts and BalAmt, in money.
std::string pendingStatement(const SettlementKind& kind, std::int64_t partyCode, int fyid);

// The same with the sums of all that was written against it: Returns, Payments, WHTaxs, AdvAdjs, Discounts and
// TotPayments.
std::string pendingListStatement(const SettlementKind& kind, std::int64_t partyCode, int fyid);

// The current row of either.
PendingItem pendingItem(const SettlementKind& kind, const store::Recordset& pending);

}  // namespace velmo::vouchers
