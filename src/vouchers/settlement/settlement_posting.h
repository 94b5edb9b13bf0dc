#pragma once

#include <string>
#include <tl/expected.hpp>
#include <vector>

#include "frame/posting/document_values.h"
#include "frame/posting/header_row.h"
#include "frame/posting/posting_table.h"
#include "vouchers/settlement/settlement_kind.h"
#include "vouchers/settlement/settlement_sheet.h"

namespace velmo::vouchers {

enum class SettlementMode {
  Party,  // invoices of a party are settled
  Petty   // any accounts, line by line
};

// The figures of a settlement as they are shown, which are its working values.
struct SettlementTotals {
  std::string AdvTxt = "0.00";
  std::string AdvTtl = "0.00";
  std::string Amt = "0.00";
  std::string WHTax = "0.00";
  std::string AdvAdj = "0.00";
  std::string Disc = "0.00";
  std::string Amt2Party = "0.00";
};

// From the sums over the invoices and the prepayment as typed.
SettlementTotals settlementTotals(const SettlementSums& sums, std::string_view advance);

// What a settlement screen holds beside DocumentValues, whose PartyCodeTxt and PartyNameTxt are the party and whose
// ACodeTxt and Acc are the cash or bank account.
struct SettlementValues {
  SettlementMode mode = SettlementMode::Party;
  SettlementTotals totals;
  std::string TAmt = "0.00";  // of the petty lines
  std::string invoices;       // settled, each followed by ", "
};

// The columns of `Transactions` that are a settlement's own.
void writeSettlementHeader(const SettlementKind& kind, const frame::DocumentValues& values,
                           const SettlementValues& settlement, frame::HeaderRow& row);

// The ledger lines of a settlement of invoices, or the sentence that tells why it cannot be posted.
tl::expected<std::vector<frame::LedgerLine>, std::string> settlementLines(const SettlementKind& kind,
                                                                          const frame::DocumentValues& values,
                                                                          const SettlementValues& settlement);

}  // namespace velmo::vouchers
