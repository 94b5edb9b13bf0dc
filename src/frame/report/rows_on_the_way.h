#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "frame/report/report_rows.h"
#include "store/recordset/rows_ahead.h"

namespace velmo::frame {

// The rows of a statement that may take long until its first row: read on a thread meanwhile, so that keys are heard. A
// short one is there at once. A name that the statement has not gives nothing.
class RowsOnTheWay : public ReportRows {
 public:
  // Throws StoreError when the file cannot be read.
  RowsOnTheWay(const store::Connection& books, std::string statement);

  std::int64_t ready() const override { return rows_ ? rows_->fetchedCount() : 0; }
  bool hasMore() const override { return !rows_ || rows_->hasMoreRows(); }
  bool pauses() const override { return !rows_; }
  void read(int rows) override;
  int field(std::string_view name) const override;
  store::Value value(std::int64_t row, int field) const override;

 private:
  struct Field {
    std::string name;
    std::optional<int> own;  // the statement's number of it
  };

  store::RowsAhead ahead_;
  store::Recordset* rows_ = nullptr;   // when they are there
  mutable std::vector<Field> fields_;  // that were asked for
};

// The rows of a report's statement: read at once from books that are small enough for that, and otherwise on the way.
std::shared_ptr<ReportRows> readReport(store::Connection& books, const std::string& statement);

}  // namespace velmo::frame
