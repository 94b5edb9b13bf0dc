#include "masters/import/import_planner.h"
#include "text/format.h"

namespace velmo::masters {
namespace {

constexpr double mostCounted = 99999999;

class CountPlanner : public ImportPlanner {
 public:
  CountPlanner(const ImportDescriptor& kind, const ImportBooks& books) : books_(books), taken_(kind, books) {}

  void plan(ImportRow& row, PlannedRow& planned) override {
    const auto item = row.named("ItemCode", books_.goods);
    const double counted = row.amount("Counted");
    if (counted > mostCounted) row.refuse("Counted");
    planned.code = item ? books_.goods[*item].code : row.given("ItemCode");
    if (item) planned.name = books_.goods[*item].name;
    const std::string folded = foldedName(planned.code);
    if (item) taken_.check(folded, row);
    if (!row.problem().empty()) return;
    taken_.take(folded, planned.line);
    planned.place = text::formatNumber(counted, "#,##0.00");
    planned.values = {planned.code, counted};
  }

 private:
  const ImportBooks& books_;
  TakenNames taken_;
};

}  // namespace

std::unique_ptr<ImportPlanner> makeCountPlanner(const ImportDescriptor& kind, const ImportBooks& books) {
  return std::make_unique<CountPlanner>(kind, books);
}

}  // namespace velmo::masters
