#pragma once

#include <cstdint>
#include <string>

#include "vouchers/settlement/settlement_kind.h"

namespace velmo::vouchers {

// The one row that the receipt or payment note of a settlement of invoices prints: its columns of `Transactions`, with
// ChqNo, ChqDt, ChqBank, WordsAmount in the company's currency, and CStatus, "CANCELLED" or "". The bank of a cheque
// received is the customer's; of a cheque paid it is our bank account, which then is in no column of its own.
std::string recPayStatement(const SettlementKind& kind, const std::string& currencyName, std::int64_t tranNo);

// The hierarchy that the note of petty lines prints: that row as `ParentCmd`, the lines in the chapter `ChildCmd`
// (AccCode, AccName, Desc, Amt); lines without an amount are left out.
std::string recPayPettyShape(const SettlementKind& kind, const std::string& currencyName, std::int64_t tranNo);

}  // namespace velmo::vouchers
