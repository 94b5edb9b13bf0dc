#pragma once

#include <memory>

#include "frame/report/report_period.h"
#include "frame/report/report_rows.h"
#include "printing/report.h"

namespace velmo::reports {

// The layout `GJ`: the lines of a day book.
printing::Report journalPrint(const session::LoginContext& context, const frame::ReportPeriod& period,
                              std::shared_ptr<frame::ReportRows> lines, text::DateTime today);

}  // namespace velmo::reports
