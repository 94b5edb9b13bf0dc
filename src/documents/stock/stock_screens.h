#pragma once

#include "frame/document/print_outs.h"
#include "session/workplace.h"

class QWidget;

namespace velmo::documents {

// The screens of adjustments and transfers of stock, on a blank document, or on LoginContext::OpenTranNo when
// OpenTranFlag is set.
QWidget* makeAddInventory(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts = {});
QWidget* makeReduceInventory(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts = {});
QWidget* makeInventoryTransfers(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts = {});

}  // namespace velmo::documents
