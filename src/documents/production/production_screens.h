#pragma once

#include "frame/document/print_outs.h"
#include "session/workplace.h"

class QWidget;

namespace velmo::documents {

// The screens of recipes and of what is made from them, on a blank document, or on LoginContext::OpenTranNo when
// OpenTranFlag is set.
QWidget* makeBillofMaterial(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts = {});
QWidget* makeProduction(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts = {});

}  // namespace velmo::documents
