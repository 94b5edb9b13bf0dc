#pragma once

#include <memory>

#include "printing/report_data.h"

namespace velmo::documents {

// Levels of a printed document: what stands on the paper once, the table, whose headings come again on every page, and
// its lines.
inline constexpr const char* DocumentLevel = "document";
inline constexpr const char* TableLevel = "table";
inline constexpr const char* LinesLevel = "lines";

// One document with one table of the given lines. The two upper levels have no fields.
std::shared_ptr<const printing::ReportData> documentData(std::shared_ptr<const printing::ReportData> lines);

}  // namespace velmo::documents
