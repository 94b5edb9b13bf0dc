#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "store/recordset/recordset.h"

namespace velmo::frame {

// The sheet of item lines of a document: rows of `StockFlow`, batch-updated, filled up with blank rows.
inline constexpr std::int64_t sheetRows = 500;

// Which lines of a document a sheet shows, and how many rows it has at least.
struct SheetShows {
  std::string_view condition = {};  // "stockout is not null"; "" for all
  std::int64_t rows = sheetRows;
};

// Reads the lines of a document (0: a new one) in their order and fills the sheet up; a document of more lines keeps
// them all. The cursor stands on the first row.
void openSheet(store::Connection& connection, store::Recordset& sheet, std::int64_t tranNo,
               const SheetShows& shows = {});
// Adds blank rows to any sheet until it has that many, and stands on its first.
void fillSheet(store::Recordset& sheet, std::int64_t rows = sheetRows);

// "(Hammer - 2 Pcs @Rs.150 =Rs.300) " for every row that has an item code, joined in their order.
std::string lineNarrations(const store::Recordset& sheet, std::string_view quantityField,
                           std::string_view currencyCode);

struct LineStamp {
  std::int64_t tranNo = 0;
  std::int64_t locationId = 0;
  std::int64_t jobId = 0;
};

// Drops the rows without an item code, numbers the others from 1 and writes the batch.
void writeLines(store::Recordset& sheet, const LineStamp& stamp);

}  // namespace velmo::frame
