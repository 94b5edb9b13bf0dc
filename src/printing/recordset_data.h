#pragma once

#include "printing/report_data.h"
#include "store/recordset/recordset.h"

namespace velmo::printing {

// The rows of a recordset in its present order and filter, and the chapters of a hierarchy below them. A walk reads
// row by row and keeps nothing; it moves the cursor of a hierarchy, and of no other recordset.
class RecordsetData : public ReportData {
 public:
  explicit RecordsetData(store::Recordset recordset) : recordset_(std::move(recordset)) {}
  std::unique_ptr<ReportRows> rows() const override;

 private:
  store::Recordset recordset_;
};

}  // namespace velmo::printing
