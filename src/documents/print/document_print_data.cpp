#include "documents/print/document_print_data.h"

#include <stdexcept>
#include <utility>

namespace velmo::documents {

namespace {

class OneRow : public printing::ReportRows {
 public:
  explicit OneRow(const printing::ReportData& lines) : lines_(lines) {}

  bool next() override { return !std::exchange(passed_, true); }

  store::Value value(std::string_view field) const override {
    throw std::logic_error("a printed document has no field '" + std::string(field) + "' above its lines");
  }

  std::unique_ptr<printing::ReportRows> children(std::string_view member) const override {
    if (member == LinesLevel) return lines_.rows();
    return std::make_unique<OneRow>(lines_);
  }

 private:
  const printing::ReportData& lines_;
  bool passed_ = false;
};

class DocumentData : public printing::ReportData {
 public:
  explicit DocumentData(std::shared_ptr<const printing::ReportData> lines) : lines_(std::move(lines)) {}
  std::unique_ptr<printing::ReportRows> rows() const override { return std::make_unique<OneRow>(*lines_); }

 private:
  std::shared_ptr<const printing::ReportData> lines_;
};

}  // namespace

std::shared_ptr<const printing::ReportData> documentData(std::shared_ptr<const printing::ReportData> lines) {
  return std::make_shared<DocumentData>(std::move(lines));
}

}  // namespace velmo::documents
