#include "reports/balances_rows.h"

#include <array>

#include "frame/report_period.h"

namespace velmo::reports {
namespace {

struct Side {
  std::string_view status;
  std::string_view difference;
};

constexpr std::array sides{Side{"ostatus", "odiff"}, Side{"cstatus", "cdiff"}, Side{"tstatus", "tdiff"}};

store::Value withoutRest(store::Value value) {
  const auto* amount = std::get_if<double>(&value);
  return amount && frame::isSettled(*amount) ? store::Value(0.0) : value;
}

store::Value sideOf(const store::Value& difference) {
  return std::string(frame::sideOf(store::numberOf(difference)));
}

struct Levels {
  std::vector<std::string> chapters;
  std::string balanceField;
};

class Walk : public printing::ReportRows {
 public:
  Walk(std::unique_ptr<printing::ReportRows> rows, std::shared_ptr<const Levels> levels, std::size_t depth)
      : rows_(std::move(rows)), levels_(std::move(levels)), depth_(depth) {}

  bool next() override {
    while (rows_->next())
      if (belongs()) return true;
    return false;
  }
  store::Value value(std::string_view field) const override {
    const auto* side = std::ranges::find(sides, field, &Side::status);
    return side == sides.end() ? withoutRest(rows_->value(field)) : sideOf(rows_->value(side->difference));
  }
  std::unique_ptr<printing::ReportRows> children(std::string_view member) const override {
    return std::make_unique<Walk>(rows_->children(member), levels_, depth_ + 1);
  }

 private:
  bool belongs() const {
    if (depth_ < levels_->chapters.size()) return children(levels_->chapters[depth_])->next();
    return !frame::isSettled(store::numberOf(rows_->value(levels_->balanceField)));
  }

  std::unique_ptr<printing::ReportRows> rows_;
  std::shared_ptr<const Levels> levels_;
  std::size_t depth_;
};

class Data : public printing::ReportData {
 public:
  Data(std::shared_ptr<const printing::ReportData> rows, Levels levels)
      : rows_(std::move(rows)), levels_(std::make_shared<const Levels>(std::move(levels))) {}
  std::unique_ptr<printing::ReportRows> rows() const override {
    return std::make_unique<Walk>(rows_->rows(), levels_, 0);
  }

 private:
  std::shared_ptr<const printing::ReportData> rows_;
  std::shared_ptr<const Levels> levels_;
};

}  // namespace

UnsettledRows::UnsettledRows(store::Recordset rows, const std::string& balanceField)
    : RecordsetRows(std::move(rows)), balance_(rows_.fieldIndex(balanceField)) {
  for (const Side& side : sides)
    if (const int status = rows_.fieldIndex(side.status); status >= 0)
      differences_[status] = rows_.fieldIndex(side.difference);
  lookAtNew();
}

store::Value UnsettledRows::value(std::int64_t row, int field) const {
  const std::int64_t kept = kept_.at(static_cast<std::size_t>(row));
  const auto difference = differences_.find(field);
  return difference == differences_.end() ? withoutRest(rows_.valueAt(kept, field))
                                          : sideOf(rows_.valueAt(kept, difference->second));
}

void UnsettledRows::read(int rows) {
  RecordsetRows::read(rows);
  lookAtNew();
}

void UnsettledRows::lookAtNew() {
  for (const std::int64_t fetched = RecordsetRows::ready(); lookedAt_ < fetched; ++lookedAt_)
    if (!frame::isSettled(store::numberOf(rows_.valueAt(lookedAt_, balance_)))) kept_.push_back(lookedAt_);
}

std::shared_ptr<const printing::ReportData> withoutSettled(std::shared_ptr<const printing::ReportData> rows,
                                                           std::vector<std::string> chapters,
                                                           std::string balanceField) {
  return std::make_shared<Data>(std::move(rows), Levels{std::move(chapters), std::move(balanceField)});
}

}  // namespace velmo::reports
