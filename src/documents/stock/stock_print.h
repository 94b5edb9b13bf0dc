#pragma once

#include <string>

#include "documents/stock/stock_kind.h"
#include "frame/posting/document_values.h"
#include "printing/report.h"
#include "session/workplace.h"

class QWidget;

namespace velmo::documents {

// What a stock document calls itself on paper.
struct StockPaper {
  std::string title;  // of the report
  std::string heading;
  std::string quantityField;  // of its lines
  StockMovement movement = StockMovement::OneWay;
};

// The print-outs `AddInvAdjustment`, `RedInvAdjustment` and `InvTransfer`: what stands on the screen above and below
// the lines, on A4 under the company's head.
printing::Report stockPrint(const StockPaper& paper, const session::LoginContext& context,
                            const frame::DocumentValues& onScreen, const store::Recordset& lines,
                            const text::DateTime& today);

// Shows the print-out of the lines in LoginContext::PrintRS, and lets go of them when it closes.
void showStockPrint(session::Workplace& workplace, const StockPaper& paper, const frame::DocumentValues& onScreen,
                    QWidget* screen);

}  // namespace velmo::documents
