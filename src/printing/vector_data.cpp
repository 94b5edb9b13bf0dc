#include "printing/vector_data.h"

#include "store/values/error.h"

namespace velmo::printing {

namespace {

class VectorRows : public ReportRows {
 public:
  explicit VectorRows(const std::vector<DataRow>& rows) : rows_(rows) {}

  bool next() override { return ++position_ < static_cast<std::ptrdiff_t>(rows_.size()); }

  store::Value value(std::string_view field) const override {
    const auto& fields = row().fields;
    const auto found = fields.find(field);
    if (found == fields.end())
      throw store::StoreError(store::ErrorKind::Misuse, "The rows have no field '" + std::string(field) + "'.");
    return found->second;
  }

  std::unique_ptr<ReportRows> children(std::string_view member) const override {
    static const std::vector<DataRow> none;
    const auto& chapters = row().chapters;
    const auto found = chapters.find(member);
    return std::make_unique<VectorRows>(found == chapters.end() ? none : found->second);
  }

 private:
  const DataRow& row() const { return rows_.at(static_cast<std::size_t>(position_)); }

  const std::vector<DataRow>& rows_;
  std::ptrdiff_t position_ = -1;
};

}  // namespace

std::unique_ptr<ReportRows> VectorData::rows() const {
  return std::make_unique<VectorRows>(rows_);
}

}  // namespace velmo::printing
