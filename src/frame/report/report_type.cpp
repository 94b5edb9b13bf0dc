#include "frame/report/report_type.h"

namespace velmo::frame {
namespace {

struct ControlsOf {
  std::vector<std::string> operator()(const ReportOption&) const { return {}; }
  std::vector<std::string> operator()(const ReportOptions&) const { return {}; }
  std::vector<std::string> operator()(const ReportPeriodBoxes& boxes) const { return {boxes.from, boxes.to}; }
  std::vector<std::string> operator()(const ReportAccount& account) const { return {account.code, account.name}; }
  std::vector<std::string> operator()(const ReportItem& item) const { return {item.code, item.name}; }
  std::vector<std::string> operator()(const ReportList& list) const { return {list.name}; }
  std::vector<std::string> operator()(const ReportEntryBoxes&) const { return {}; }
  std::vector<std::string> operator()(const ReportText& text) const { return {text.name}; }
  std::vector<std::string> operator()(const ReportDigits& digits) const { return {digits.name}; }
};

}  // namespace

std::vector<std::string> controlsOf(const ReportFilter& filter) {
  return std::visit(ControlsOf(), filter);
}

std::vector<std::string> summedFields(const ReportType& type, const ReportGrid& grid) {
  std::vector<std::string> fields = grid.sums;
  const auto add = [&fields](const std::vector<ReportFigure>& figures) {
    for (const ReportFigure& figure : figures)
      if (!figure.sum.empty() && std::ranges::find(fields, figure.sum) == fields.end()) fields.push_back(figure.sum);
  };
  add(grid.totals);
  if (&grid == &type.grids.front()) add(type.totals);
  return fields;
}

}  // namespace velmo::frame
