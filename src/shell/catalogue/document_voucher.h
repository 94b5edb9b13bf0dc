#pragma once

#include <cstdint>

#include "session/workplace.h"

class QWidget;

namespace velmo::shell {

// Shows the ledger voucher of a saved document in the preview. Throws store::StoreError.
void showDocumentVoucher(session::Workplace& workplace, std::int64_t tranNo, QWidget* parent);

}  // namespace velmo::shell
