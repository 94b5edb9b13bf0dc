#pragma once

#include "frame/document/print_outs.h"
#include "session/workplace.h"

class QWidget;

namespace velmo::documents {

// The screens of quotations, orders, challans and gate passes, on a blank document, or on LoginContext::OpenTranNo when
// OpenTranFlag is set.
QWidget* makeQuotations(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts = {});
QWidget* makeSaleOrders(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts = {});
QWidget* makeDeliveryChallans(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts = {});
QWidget* makeGatePassesOut(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts = {});
QWidget* makePurchaseOrders(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts = {});
QWidget* makeGatePassesIn(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts = {});

}  // namespace velmo::documents
