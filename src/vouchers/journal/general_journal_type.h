#pragma once

#include "frame/document/document_type.h"
#include "frame/document/print_outs.h"

class QWidget;

namespace velmo::vouchers {

// Journal vouchers. Their print-out is the ledger voucher.
frame::DocumentType generalJournalType();

// Throws StoreError when the vouchers cannot be read.
QWidget* makeGeneralJournal(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts);

}  // namespace velmo::vouchers
