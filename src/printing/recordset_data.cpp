#include "printing/recordset_data.h"

#include "printing/field_places.h"

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

  store::Value value(std::string_view field) const override {
    const auto find = [this](std::string_view name) { return recordset_.fieldIndex(name); };
    return recordset_.valueAt(position_, places_.of(field, find));
  }

  std::unique_ptr<ReportRows> children(std::string_view member) const override {
    store::Recordset parent = recordset_;
    parent.moveTo(position_);
    return std::make_unique<RecordsetRows>(parent.chapter(member));
  }

 private:
  store::Recordset recordset_;
  std::int64_t position_ = -1;
  mutable FieldPlaces places_;
};

}  // namespace

std::unique_ptr<ReportRows> RecordsetData::rows() const {
  return std::make_unique<RecordsetRows>(recordset_);
}

}  // namespace velmo::printing
