#pragma once

#include "frame/document/document_type.h"
#include "frame/document/print_outs.h"
#include "vouchers/settlement/settlement_kind.h"

class QWidget;

namespace velmo::vouchers {

// The document of a kind of settlement, without its print-out.
frame::DocumentType settlementType(const SettlementKind& kind);

// The screens of receipts and payments. Each throws StoreError when the documents cannot be read.
QWidget* makeCashReceipts(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts);
QWidget* makeBankReceipts(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts);
QWidget* makeCashPayments(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts);
QWidget* makeBankPayments(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts);

}  // namespace velmo::vouchers
