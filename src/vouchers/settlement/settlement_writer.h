#pragma once

#include <string>
#include <tl/expected.hpp>

#include "frame/document/document_type.h"
#include "frame/posting/document_writer.h"
#include "session/login_context.h"
#include "vouchers/settlement/settlement_posting.h"

namespace velmo::vouchers {

inline constexpr std::int64_t settlementRows = 50;  // of the sheet of settled invoices

// The rows of a document in its sheets.
enum class RowsAs {
  Written,  // its own, which the next save changes
  New       // rows that read the same and belong to no document
};

// Reads the invoices that a document settles (0: a new one) in their order and fills the sheet up to settlementRows.
void openSettlement(const SettlementKind& kind, store::Connection& connection, store::Recordset& invoices,
                    std::int64_t tranNo, RowsAs rowsAs = RowsAs::Written);
// Reads its petty lines, those on the side away from the cash or bank account, and fills the sheet up.
void openPettyLines(const SettlementKind& kind, store::Connection& connection, store::Recordset& lines,
                    std::int64_t tranNo, RowsAs rowsAs = RowsAs::Written);

// Header and, when invoices are settled, ledger lines of a receipt or payment, or the sentence that tells why it cannot
// be posted.
tl::expected<frame::DocumentWrite, std::string> composeSettlement(const frame::DocumentType& type,
                                                                  const SettlementKind& kind,
                                                                  const frame::DocumentValues& values,
                                                                  const SettlementValues& settlement,
                                                                  const session::LoginContext& context,
                                                                  const text::DateTime& now, frame::HeaderWrite mode);

// Writes the batch of settled invoices: rows without an invoice go, the others become the document's.
void writeSettlement(const SettlementKind& kind, store::Recordset& invoices, const frame::DocumentValues& values,
                     std::int64_t tranNo, int fyid);

// Writes the batch of petty lines and their one counter entry on the cash or bank account; settled invoices that the
// document had are given up.
void writePetty(const SettlementKind& kind, store::Connection& connection, store::Recordset& lines,
                store::Recordset& invoices, const frame::DocumentValues& values, const SettlementValues& settlement,
                std::int64_t tranNo);

}  // namespace velmo::vouchers
