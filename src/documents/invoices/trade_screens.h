#pragma once

#include "frame/document/print_outs.h"
#include "session/workplace.h"

class QWidget;

namespace velmo::documents {

// The screens of the counter, of returns and of purchases, on a blank document, or on LoginContext::OpenTranNo when
// OpenTranFlag is set.
QWidget* makeSaleInvoicesPOS(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts = {});
QWidget* makeSaleReturns(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts = {});
QWidget* makePurchaseBillsSimple(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts = {});
QWidget* makePurchaseReturns(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts = {});

}  // namespace velmo::documents
