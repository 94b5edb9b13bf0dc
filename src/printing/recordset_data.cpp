#include "printing/recordset_data.h"

#include <map>

#include "store/values/error.h"

namespace velmo::printing {

namespace {

class RecordsetRows : public ReportRows {
 public:
  explicit RecordsetRows(store::Recordset recordset) : recordset_(std::move(recordset)) {}

  // A long result is read as the walk comes to it, so that the first page need not wait for the last row.
  bool next() override {
    constexpr int RowsAtOnce = 500;
    ++position_;
    while (position_ >= recordset_.fetchedCount() && recordset_.hasMoreRows()) recordset_.fetchMore(RowsAtOnce);
    return position_ < recordset_.fetchedCount();
  }

  store::Value value(std::string_view field) const override { return recordset_.valueAt(position_, index(field)); }

  std::unique_ptr<ReportRows> children(std::string_view member) const override {
    store::Recordset parent = recordset_;
    parent.moveTo(position_);
    return std::make_unique<RecordsetRows>(parent.chapter(member));
  }

 private:
  int index(std::string_view field) const {
    const auto known = indexes_.find(field);
    if (known != indexes_.end()) return known->second;
    const int found = recordset_.fieldIndex(field);
    if (found < 0)
      throw store::StoreError(store::ErrorKind::Misuse, "The rows have no field '" + std::string(field) + "'.");
    indexes_.emplace(field, found);
    return found;
  }

  store::Recordset recordset_;
  std::int64_t position_ = -1;
  mutable std::map<std::string, int, std::less<>> indexes_;
};

}  // namespace

std::unique_ptr<ReportRows> RecordsetData::rows() const {
  return std::make_unique<RecordsetRows>(recordset_);
}

}  // namespace velmo::printing
