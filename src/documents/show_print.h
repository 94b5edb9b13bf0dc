#pragma once

#include <functional>
#include <optional>

#include "documents/invoice_print.h"
#include "frame/document_values.h"
#include "session/workplace.h"

class QWidget;

namespace velmo::documents {

using MakePrint =
    std::function<std::optional<printing::Report>(const session::LoginContext&, const store::Recordset& document,
                                                  const store::Recordset& lines, const PrintRequest&)>;

// Shows the print-out of LoginContext::PrintRS with its lines, and lets go of the rows when it closes. Nothing is shown
// when there is no report.
void showPrint(session::Workplace& workplace, const frame::DocumentValues& onScreen, QWidget* screen, InvoiceKind kind,
               const MakePrint& make);

}  // namespace velmo::documents
