#include "printing/function_totals.h"

#include <algorithm>
#include <stdexcept>

namespace velmo::printing {

namespace {

void refuseFunctions(const std::optional<Section>& section) {
  if (!section) return;
  for (const Element& element : section->elements)
    if (std::holds_alternative<Function>(element.content))
      throw std::logic_error("the function '" + element.name + "' stands outside the footers");
}

}  // namespace

FunctionTotals::FunctionTotals(const ReportDesign& design, const ReportWalk& walk) : walk_(walk) {
  refuseFunctions(design.reportHeader);
  refuseFunctions(design.pageHeader);
  refuseFunctions(design.detail);
  refuseFunctions(design.pageFooter);
  for (std::size_t level = 0; level < design.groups.size(); ++level) {
    refuseFunctions(design.groups[level].header);
    collect(design.groups[level].footer, static_cast<int>(level));
  }
  collect(design.reportFooter, -1);
}

void FunctionTotals::collect(const std::optional<Section>& footer, int owner) {
  if (!footer) return;
  for (const Element& element : footer->elements) {
    const auto* function = std::get_if<Function>(&element.content);
    if (!function) continue;
    const int source = walk_.levelOf(function->dataMember);
    if (source <= owner) throw std::logic_error("the function '" + element.name + "' has no rows below its group");
    totals_.push_back({.element = &element, .owner = owner, .source = source});
  }
}

void FunctionTotals::beginGroup(int level) {
  for (Total& total : totals_)
    if (total.owner == level) total = {.element = total.element, .owner = total.owner, .source = total.source};
}

void FunctionTotals::addRow(int level) {
  for (Total& total : totals_) {
    if (total.source != level) continue;
    ++total.rows;
    const auto& function = std::get<Function>(total.element->content);
    if (function.statistic == Statistic::RCnt) continue;
    const store::Value value = walk_.value(function.dataMember, function.dataField);
    if (store::isNull(value)) continue;
    const double number = store::numberOf(value);
    total.least = total.values == 0 ? number : std::min(total.least, number);
    total.greatest = total.values == 0 ? number : std::max(total.greatest, number);
    total.sum += number;
    ++total.values;
  }
}

store::Value FunctionTotals::result(const Element& element) const {
  const auto found =
      std::find_if(totals_.begin(), totals_.end(), [&](const Total& total) { return total.element == &element; });
  if (found == totals_.end()) throw std::logic_error("the function '" + element.name + "' is not of this design");
  switch (std::get<Function>(element.content).statistic) {
    case Statistic::Sum:
      return found->sum.value();
    case Statistic::RCnt:
      return found->rows;
    case Statistic::VCnt:
      return found->values;
    case Statistic::Avg:
      break;
    case Statistic::Min:
      break;
    case Statistic::Max:
      break;
  }
  if (found->values == 0) return store::Null{};
  switch (std::get<Function>(element.content).statistic) {
    case Statistic::Min:
      return found->least;
    case Statistic::Max:
      return found->greatest;
    default:
      return found->sum.value() / static_cast<double>(found->values);
  }
}

}  // namespace velmo::printing
