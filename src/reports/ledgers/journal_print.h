#pragma once

#include <memory>
#include <string>

#include "frame/report/report_rows.h"
#include "printing/report.h"
#include "session/login_context.h"

namespace velmo::reports {

// The layout `GJ`: the lines of a day book.
printing::Report journalPrint(const session::LoginContext& context, const std::string& dateLine,
                              std::shared_ptr<frame::ReportRows> lines, text::DateTime today);

}  // namespace velmo::reports
