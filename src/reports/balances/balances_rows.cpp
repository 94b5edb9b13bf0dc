#include "reports/balances/balances_rows.h"

namespace velmo::reports {
namespace {

using Chapters = std::vector<std::string>;

class Walk : public printing::ReportRows {
 public:
  Walk(std::unique_ptr<printing::ReportRows> rows, std::shared_ptr<const Chapters> chapters, std::size_t depth)
      : rows_(std::move(rows)), chapters_(std::move(chapters)), depth_(depth) {}

  bool next() override {
    while (rows_->next())
      if (depth_ == chapters_->size() || children((*chapters_)[depth_])->next()) return true;
    return false;
  }
  store::Value value(std::string_view field) const override { return rows_->value(field); }
  std::unique_ptr<printing::ReportRows> children(std::string_view member) const override {
    return std::make_unique<Walk>(rows_->children(member), chapters_, depth_ + 1);
  }

 private:
  std::unique_ptr<printing::ReportRows> rows_;
  std::shared_ptr<const Chapters> chapters_;
  std::size_t depth_;
};

class Data : public printing::ReportData {
 public:
  Data(std::shared_ptr<const printing::ReportData> rows, Chapters chapters)
      : rows_(std::move(rows)), chapters_(std::make_shared<const Chapters>(std::move(chapters))) {}
  std::unique_ptr<printing::ReportRows> rows() const override {
    return std::make_unique<Walk>(rows_->rows(), chapters_, 0);
  }

 private:
  std::shared_ptr<const printing::ReportData> rows_;
  std::shared_ptr<const Chapters> chapters_;
};

}  // namespace

std::shared_ptr<const printing::ReportData> withoutEmptyLevels(std::shared_ptr<const printing::ReportData> rows,
                                                               std::vector<std::string> chapters) {
  return std::make_shared<Data>(std::move(rows), std::move(chapters));
}

}  // namespace velmo::reports
