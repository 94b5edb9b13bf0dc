#pragma once

#include <memory>
#include <string_view>

#include "store/values/value.h"

namespace velmo::printing {

// A walk over the rows of one level. It begins before the first row.
class ReportRows {
 public:
  virtual ~ReportRows() = default;
  virtual bool next() = 0;  // false behind the last row
  // Of the current row. A field that the rows do not have throws StoreError of kind Misuse.
  virtual store::Value value(std::string_view field) const = 0;
  // The rows below the current one.
  virtual std::unique_ptr<ReportRows> children(std::string_view member) const = 0;
};

// What a report prints. It can be walked more than once, and every walk gives the same rows.
class ReportData {
 public:
  virtual ~ReportData() = default;
  virtual std::unique_ptr<ReportRows> rows() const = 0;
};

}  // namespace velmo::printing
