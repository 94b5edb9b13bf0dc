#pragma once

#include "spreadsheet/sheet_writer.h"

namespace velmo::spreadsheet {

// Writes a list as comma-separated values (RFC 4180, UTF-8 with its mark), with the same promises as saveSheet():
// numbers with up to 15 digits, dates as ISO text, Yes/No as words. A text that a spreadsheet would take for a formula
// gets an apostrophe before it.
tl::expected<std::int64_t, std::string> saveSeparatedValues(const std::filesystem::path& file,
                                                            const SheetDesign& design, const RowSource& rows,
                                                            const Progress& progress = {});

}  // namespace velmo::spreadsheet
