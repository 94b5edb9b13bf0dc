#pragma once

#include <functional>
#include <optional>

#include "documents/print/print_source.h"
#include "frame/posting/document_values.h"
#include "printing/report.h"
#include "session/workplace.h"

class QWidget;

namespace velmo::documents {

using MakePrint = std::function<std::optional<printing::Report>(const PrintSource&)>;

// Prints the slip of LoginContext::PrintRS on the printer that the counter has chosen; without one, or when it does not
// print, the slip is shown.
void printSlip(session::Workplace& workplace, const frame::DocumentValues& onScreen, QWidget* screen,
               const MakePrint& make);

// Shows the print-out of LoginContext::PrintRS with its lines, and lets go of the rows when it closes. Nothing is shown
// when there is no report.
void showPrint(session::Workplace& workplace, const frame::DocumentValues& onScreen, QWidget* screen,
               const MakePrint& make);

}  // namespace velmo::documents
