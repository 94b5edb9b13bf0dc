#pragma once

#include <cstdint>

#include "store/connection/connection.h"
#include "store/recordset/recordset.h"

namespace velmo::frame {

// Documents are numbered by type and year.
struct DocumentNumber {
  std::int64_t DocNo = 0;
  std::int64_t TranType = 0;
  std::int64_t FYID = 0;
};

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
