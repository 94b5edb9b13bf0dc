#include "frame/report/report_rows.h"

#include <map>

#include "store/values/error.h"

namespace velmo::frame {
namespace {

class Walk : public printing::ReportRows {
 public:
  explicit Walk(std::shared_ptr<frame::ReportRows> rows) : rows_(std::move(rows)) {}

  bool next() override {
    constexpr int rowsAtOnce = 512;
    ++row_;
    while (row_ >= rows_->ready() && rows_->hasMore()) rows_->read(rowsAtOnce);
    return row_ < rows_->ready();
  }

  store::Value value(std::string_view name) const override {
    auto known = fields_.find(name);
    if (known == fields_.end()) {
      const int field = rows_->field(name);
      if (field < 0)
        throw store::StoreError(store::ErrorKind::Misuse, "The rows have no field '" + std::string(name) + "'.");
      known = fields_.emplace(name, field).first;
    }
    return rows_->value(row_, known->second);
  }

  std::unique_ptr<printing::ReportRows> children(std::string_view member) const override {
    throw store::StoreError(store::ErrorKind::Misuse, "The rows have no chapter '" + std::string(member) + "'.");
  }

 private:
  std::shared_ptr<frame::ReportRows> rows_;
  std::int64_t row_ = -1;
  mutable std::map<std::string, int, std::less<>> fields_;
};

}  // namespace

std::shared_ptr<ReportRows> rowsOf(store::Connection& connection, const std::string& statement) {
  return std::make_shared<RecordsetRows>(store::Recordset(connection, statement, store::LockType::ReadOnly));
}

std::unique_ptr<printing::ReportRows> ReportRowsData::rows() const {
  return std::make_unique<Walk>(rows_);
}

}  // namespace velmo::frame
