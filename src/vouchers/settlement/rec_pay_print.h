#pragma once

#include <cstdint>

#include "printing/report.h"
#include "session/workplace.h"
#include "vouchers/settlement/settlement_posting.h"

class QWidget;

namespace velmo::vouchers {

// The receipt or payment note of the row or hierarchy that recPayStatement() or, of petty lines, recPayPettyShape()
// reads, as the layouts `RecPay` and `RecPayPetty` show it.
printing::Report recPayPrint(const session::LoginContext& context, const SettlementKind& kind, SettlementMode mode,
                             const store::Recordset& note, text::DateTime today);

// Reads the note of a saved settlement into LoginContext::PrintRS and shows it in the preview, which lets go of it when
// it closes. Shows nothing when the document is gone. Throws store::StoreError.
void showRecPay(session::Workplace& workplace, const SettlementKind& kind, SettlementMode mode, std::int64_t tranNo,
                QWidget* screen);

}  // namespace velmo::vouchers
