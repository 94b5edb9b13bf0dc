#pragma once

#include <cstdint>

#include "documents/stock/stock_kind.h"
#include "frame/posting/document_values.h"
#include "store/recordset/recordset.h"

// The lines of documents that move stock without a party.
namespace velmo::documents {

// Lines of items only, at the price of the field of StockLevel3 that is named by a caption.
frame::ItemGridKind stockLines(const char* quantityField, const char* priceField, const char* priceCaption);

// Which lines of a transfer a person edits: those that leave.
inline constexpr const char* leavingLines = "stockout is not null";

// Writes the lines of a save, within its transaction and behind its header. Throws StoreError.
void writeStockLines(store::Connection& connection, store::Recordset& sheet, StockMovement movement,
                     const frame::DocumentValues& values, std::int64_t tranNo);

// Writes the lines of a transfer that arrive, each with the number and the figures of the one that leaves, in place of
// those that an earlier save wrote. Behind the lines that leave.
void writeArrivals(store::Connection& connection, std::int64_t tranNo, std::int64_t locationId, std::int64_t jobId);

}  // namespace velmo::documents
