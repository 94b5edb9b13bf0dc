#pragma once

#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace velmo::spreadsheet {

// The rows of a sheet in the sheet's own XML, in a file without a name.
using RowsFile = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

enum class Packing { Done, Stopped, Failed };

// Packs the rows into a part of a finished workbook that has an empty place for them: most of the work that a long
// spreadsheet is. The workbook is as it was unless it is done. `goesOn` is called every few milliseconds with the share
// that is packed, from 0 to 1; false stops the work.
Packing packRows(const std::filesystem::path& workbook, const std::string& sheetPart, const RowsFile& rows,
                 const std::function<bool(double share)>& goesOn);

}  // namespace velmo::spreadsheet
