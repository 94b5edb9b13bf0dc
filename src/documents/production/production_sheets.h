#pragma once

#include <cstdint>

#include "frame/posting/item_lines.h"
#include "store/recordset/recordset.h"

namespace velmo::documents {

// Whose rows the sheets are.
enum class SheetRowsAs {
  Written,  // those of the document, which the next save writes again
  New       // rows that read the same and belong to no document yet
};

// The two sheets of a production: what goes in, and the one line that comes out.
struct ProductionSheets {
  store::Recordset SubTranIn;
  store::Recordset SubTranOut;

  // Throws StoreError; 0 for a new document.
  void open(store::Connection& books, std::int64_t tranNo, SheetRowsAs rowsAs = SheetRowsAs::Written);
  // Within the transaction of a save. Throws StoreError.
  void write(const frame::LineStamp& stamp);
};

}  // namespace velmo::documents
