#pragma once

#include <filesystem>
#include <string>
#include <tl/expected.hpp>
#include <vector>

#include "spreadsheet/csv_reader.h"
#include "spreadsheet/sheet.h"
#include "spreadsheet/sheet_writer.h"

namespace velmo::spreadsheet {

// For a dialog that opens files.
inline constexpr const char* openFilter =
    "Spreadsheets (*.xlsx *.xlsm *.ods *.csv *.tsv *.txt *.XLSX *.ODS *.CSV);;All files (*)";

// Files are known by what they hold and not by their names: .xlsx, .ods, or separated values in any encoding that ICU
// tells. Errors are sentences for the user.

// The sheets that a file shows, at least one; a file of separated values has one without a name.
tl::expected<std::vector<std::string>, std::string> sheetNames(const std::filesystem::path& file);

// The values of one of them. The error is empty when the progress function stopped the work.
tl::expected<Sheet, std::string> readSheet(const std::filesystem::path& file, std::size_t sheet = 0,
                                           const TextChoice& choice = {}, const Progress& progress = {});

}  // namespace velmo::spreadsheet
