#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "printing/report_data.h"
#include "store/recordset/recordset.h"

namespace velmo::frame {

// The rows of a report, in their order, read from the first on as they are wanted. One object serves the grid, the
// print-out and the spreadsheet, so that all three show the same figures.
class ReportRows {
 public:
  virtual ~ReportRows() = default;
  virtual std::int64_t ready() const = 0;  // rows that can be looked at
  virtual bool hasMore() const = 0;
  virtual bool pauses() const { return false; }  // what follows takes a while, and what is there can be shown before
  virtual void read(int rows) = 0;               // about so many more; throws StoreError
  virtual int field(std::string_view name) const = 0;                 // -1 when the rows have none of that name
  virtual store::Value value(std::int64_t row, int field) const = 0;  // of a row that is ready
};

// The rows of a recordset as they are.
class RecordsetRows : public ReportRows {
 public:
  explicit RecordsetRows(store::Recordset rows) : rows_(std::move(rows)) {}

  std::int64_t ready() const override { return rows_.fetchedCount(); }
  bool hasMore() const override { return rows_.hasMoreRows(); }
  void read(int rows) override { rows_.fetchMore(rows); }
  int field(std::string_view name) const override { return rows_.fieldIndex(name); }
  store::Value value(std::int64_t row, int field) const override { return rows_.valueAt(row, field); }

 protected:
  store::Recordset rows_;
};

// The rows of a statement, which are only read. Throws StoreError.
std::shared_ptr<ReportRows> rowsOf(store::Connection& connection, const std::string& statement);

// The same rows for a print-out of one level. A walk reads on as it comes to the end of what is ready.
class ReportRowsData : public printing::ReportData {
 public:
  explicit ReportRowsData(std::shared_ptr<ReportRows> rows) : rows_(std::move(rows)) {}
  std::unique_ptr<printing::ReportRows> rows() const override;

 private:
  std::shared_ptr<ReportRows> rows_;
};

}  // namespace velmo::frame
