#pragma once

#include "frame/posting/document_values.h"
#include "printing/report.h"
#include "session/workplace.h"

class QWidget;

namespace velmo::documents {

// The print-out `ProdAssembly`: what went in and what came out, each line in the columns of its side, and the costs as
// they stand on the screen.
printing::Report productionPrint(const session::LoginContext& context, const frame::DocumentValues& onScreen,
                                 const store::Recordset& lines, const text::DateTime& today);

// Shows the print-out of the lines in LoginContext::PrintRS, and lets go of them when it closes.
void showProductionPrint(session::Workplace& workplace, const frame::DocumentValues& onScreen, QWidget* screen);

}  // namespace velmo::documents
