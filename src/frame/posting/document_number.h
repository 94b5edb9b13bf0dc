#pragma once

#include <cstdint>
#include <string>

#include "store/connection/connection.h"
#include "store/recordset/recordset.h"

namespace velmo::frame {

// Whether documents of a kind belong to the financial year in which they are saved, or are records of no year: these
// are numbered, listed and found over all years.
enum class BelongsTo { Year, NoYear };

// Documents are numbered by type and year.
struct DocumentNumber {
  std::int64_t DocNo = 0;
  std::int64_t TranType = 0;
  std::int64_t FYID = 0;
  BelongsTo belongsTo = BelongsTo::Year;
};

// " and fyid = 3", or nothing for documents of no year.
std::string yearCondition(BelongsTo belongsTo, std::int64_t FYID);

// Whether a document has it. Only within a transaction does the answer hold until the document is written.
bool isTaken(store::Connection& connection, const DocumentNumber& number);

// Somebody else's document has the number; nothing was written.
class DocNoTaken : public store::StoreError {
 public:
  DocNoTaken();
};

// The number of the next document: one above the highest of `tran`, which is left sorted by number and on its last row.
std::int64_t nextDocNo(store::Recordset& tran);

}  // namespace velmo::frame
