#include "frame/report/report_rows.h"

#include <map>
#include <string>

#include "printing/field_places.h"

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
    const auto find = [this](std::string_view field) { return rows_->field(field); };
    return rows_->value(row_, places_.of(name, find));
  }

  std::unique_ptr<printing::ReportRows> children(std::string_view member) const override {
    throw store::StoreError(store::ErrorKind::Misuse, "The rows have no chapter '" + std::string(member) + "'.");
  }

 private:
  std::shared_ptr<frame::ReportRows> rows_;
  std::int64_t row_ = -1;
  mutable printing::FieldPlaces places_;
};

}  // namespace

std::shared_ptr<ReportRows> rowsOf(store::Connection& connection, const std::string& statement) {
  return std::make_shared<RecordsetRows>(store::Recordset(connection, statement, store::LockType::ReadOnly));
}

std::unique_ptr<printing::ReportRows> ReportRowsData::rows() const {
  return std::make_unique<Walk>(rows_);
}

}  // namespace velmo::frame
