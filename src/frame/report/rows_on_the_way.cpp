#include "frame/report/rows_on_the_way.h"

#include <algorithm>

namespace velmo::frame {
namespace {

// Milliseconds: what most reports take, and what one reading waits.
constexpr int atOnce = 20;
constexpr int patience = 5;

constexpr std::int64_t fewLines = 20000;  // of all ledgers, or of all items: no sum over them takes long

bool hasManyLines(store::Connection& books, const std::string& key, const std::string& table) {
  const store::Recordset last(books, "SELECT Max(" + key + ") AS Lines FROM " + table, store::LockType::ReadOnly);
  return last.integer("Lines") > fewLines;
}

}  // namespace

RowsOnTheWay::RowsOnTheWay(const store::Connection& books, std::string statement)
    : ahead_(books, std::move(statement)) {
  if (ahead_.isReady(atOnce)) rows_ = &ahead_.rows();
}

void RowsOnTheWay::read(int rows) {
  if (rows_)
    rows_->fetchMore(rows);
  else if (ahead_.isReady(patience))
    rows_ = &ahead_.rows();
}

// The statement's own numbers are not known before it is open.
int RowsOnTheWay::field(std::string_view name) const {
  const auto known = std::find_if(fields_.begin(), fields_.end(), [&](const Field& one) { return one.name == name; });
  if (known != fields_.end()) return static_cast<int>(known - fields_.begin());
  fields_.push_back({std::string(name), {}});
  return static_cast<int>(fields_.size()) - 1;
}

store::Value RowsOnTheWay::value(std::int64_t row, int field) const {
  if (field < 0) return {};
  Field& asked = fields_[static_cast<std::size_t>(field)];
  if (!asked.own) asked.own = rows_->fieldIndex(asked.name);
  return *asked.own < 0 ? store::Value() : rows_->valueAt(row, *asked.own);
}

std::shared_ptr<ReportRows> readReport(store::Connection& books, const std::string& statement) {
  if (hasManyLines(books, "Serial", "SubTransactions") || hasManyLines(books, "FlowId", "StockFlow"))
    return std::make_shared<RowsOnTheWay>(books, statement);
  return std::make_shared<RecordsetRows>(store::Recordset(books, statement, store::LockType::ReadOnly));
}

}  // namespace velmo::frame
