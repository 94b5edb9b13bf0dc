#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "frame/posting/aging.h"
#include "frame/posting/document_number.h"
#include "frame/posting/header_row.h"
#include "frame/posting/item_lines.h"
#include "frame/posting/posting_table.h"
#include "store/connection/connection.h"
#include "store/recordset/recordset.h"

namespace velmo::frame {

enum class HeaderWrite {
  Add,    // a new row of `Transactions`
  Update  // the current row
};

// Everything that one save of a document puts into the books.
struct DocumentWrite {
  HeaderWrite mode = HeaderWrite::Add;
  HeaderRow header;
  BelongsTo belongsTo = BelongsTo::Year;
  std::vector<std::string_view> keptColumns = {};  // that a further save leaves alone
  std::int64_t locationId = 0;
  std::int64_t jobId = 0;
  std::optional<std::vector<LedgerLine>> ledger = {};  // nothing: a document without ledger effect
  std::optional<AgingSide> agingSide = {};             // nothing: a document without open items
  std::optional<AgingRow> aging = {};                  // nothing: cancelled
  std::function<void()> demand = {};                   // asked before all else: throws StoreError when it may not be
};

// Writes a document in this order: header, its lines by `writeRows`, ledger lines (the old ones go, all are built
// again), open item. One durable change: when it returns the document's key, all of it is on the disk; when it throws
// StoreError, nothing is. Before all else it looks whether the number is free, and throws DocNoTaken when it is not: an
// earlier test may have been overtaken by another program. `tran` then stands on the document's row.
std::int64_t writeDocument(store::Connection& connection, const DocumentWrite& document, store::Recordset& tran,
                           const std::function<void(std::int64_t tranNo)>& writeRows);

// The same as part of a larger change: within a transaction of the caller, which makes it durable or undoes it.
std::int64_t writeDocumentWithin(store::Connection& connection, const DocumentWrite& document, store::Recordset& tran,
                                 const std::function<void(std::int64_t tranNo)>& writeRows);

// The same of a document with item lines.
std::int64_t writeDocument(store::Connection& connection, const DocumentWrite& document, store::Recordset& tran,
                           store::Recordset& sheet);
std::int64_t writeDocumentWithin(store::Connection& connection, const DocumentWrite& document, store::Recordset& tran,
                                 store::Recordset& sheet);

}  // namespace velmo::frame
