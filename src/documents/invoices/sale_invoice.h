#pragma once

#include "frame/document/print_outs.h"
#include "session/workplace.h"

class QWidget;

namespace velmo::documents {

// The screen `SaleInvoicesSimple` on a blank document, or on LoginContext::OpenTranNo when OpenTranFlag is set.
QWidget* makeSaleInvoicesSimple(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts = {});

}  // namespace velmo::documents
