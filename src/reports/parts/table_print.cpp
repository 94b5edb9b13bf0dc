#include "reports/parts/table_print.h"

#include <stdexcept>

#include "printing/level_heading.h"

namespace velmo::reports {

using namespace printing;

namespace {

constexpr Twips Padding = mm(0.9);
constexpr Twips TotalsHeight = mm(6.2);

using Places = std::vector<ColumnPlace>;

const ColumnPlace& placeOf(const Places& columns, const std::string& field) {
  const auto found =
      std::ranges::find_if(columns, [&field](const ColumnPlace& place) { return place.column.dataField == field; });
  if (found == columns.end()) throw std::logic_error("the table has no column " + field);
  return *found;
}

void put(Report& report, Section& section, const Places& columns, Twips top, const UnderColumn& under) {
  const ColumnPlace& place = placeOf(columns, under.column);
  if (!under.sumOf.empty())
    return addUnderColumn(section, place, top, under.name,
                          Function{Statistic::Sum, under.sumOf, place.column.format, {}}, under.weight);
  if (!under.name.empty()) report.variables[under.name] = under.text;
  addUnderColumn(section, place, top, under.name, Label{under.text}, under.weight);
}

void addOpening(Report& report, Section& head, const Places& columns, const std::vector<UnderColumn>& opening) {
  const Twips top = head.height + mm(1.2);
  for (const UnderColumn& under : opening) put(report, head, columns, top, under);
  head.height = top + mm(4.6);
  head.elements.push_back({.at = {0, head.height, report.design.bodyWidth(), 0}, .content = Line{6, ink::Rule}});
}

void addRow(Report& report, Section& section, const Places& columns, const TotalsRow& row,
            const std::string& level = {}) {
  const Twips width = report.design.bodyWidth();
  const Twips top = section.height + row.above;
  if (row.ground == Ground::Band)
    section.elements.push_back(
        {.at = {0, top, width, TotalsHeight}, .content = Box{.fill = ink::Band}, .stretch = Stretch::WithContents});
  Twips labelRight = width;
  for (const UnderColumn& total : row.totals) labelRight = std::min(labelRight, placeOf(columns, total.column).left);
  if (!row.labelName.empty()) report.variables[row.labelName] = row.label;
  Element label{.name = row.labelName,
                .at = {row.labelLeft + Padding, top + mm(1.3), labelRight - row.labelLeft - 2 * Padding, mm(3.5)},
                .content = Label{row.label},
                .font = {.size = TableFont.size, .weight = Weight::SemiBold},
                .align = Align::Right};
  if (!row.labelField.empty()) label.content = Field{row.labelField, {}, level};
  section.elements.push_back(std::move(label));
  for (const UnderColumn& total : row.totals) put(report, section, columns, top + mm(1.3), total);
  section.height = top + TotalsHeight;
}

Group groupOf(Report& report, const TableLevel& level, const Places& columns, std::size_t depth) {
  const Twips width = report.design.bodyWidth();
  LevelHeading heading{.name = level.headingName};
  for (const auto& [column, left, columnWidth] : placeColumns(level.heading, width))
    heading.fields.push_back({column.dataField, column.format, left, columnWidth, column.align});
  Group group{.dataMember = level.dataMember, .header = levelHeading(heading, depth, width)};
  if (level.totals.empty()) return group;
  group.footer = Section{.name = level.dataMember + "Footer"};
  for (const TotalsRow& row : level.totals) addRow(report, *group.footer, columns, row, level.dataMember);
  return group;
}

}  // namespace

std::vector<UnderColumn> sumsOf(const std::vector<Column>& columns) {
  std::vector<UnderColumn> sums;
  for (const Column& column : columns)
    if (!column.totalName.empty())
      sums.push_back({.column = column.dataField, .name = column.totalName, .sumOf = column.dataField});
  return sums;
}

Report tablePrint(const session::LoginContext& context, const TablePrint& table, std::shared_ptr<const ReportData> rows,
                  text::DateTime today) {
  Report report{.title = table.title.empty() ? table.head.front().text : table.title,
                .author = context.CompanyName,
                .data = std::move(rows),
                .printedOn = std::move(today)};
  report.design.paper = table.paper;
  const Letterhead letterhead = letterheadOf(context);
  const Twips width = report.design.bodyWidth();
  const Places columns = placeColumns(table.columns, width);
  report.design.reportHeader = titledHead(report, letterhead, table.head);
  report.design.pageHeader = Section{.name = "Section2"};
  addColumnHeadings(*report.design.pageHeader, columns, width);
  if (!table.opening.empty()) addOpening(report, *report.design.pageHeader, columns, table.opening);
  for (const TableLevel& level : table.levels)
    report.design.groups.push_back(groupOf(report, level, columns, report.design.groups.size()));
  report.design.detailMember = table.detailMember;
  report.design.detail = tableLine(columns, width);
  if (!table.totals.empty()) report.design.reportFooter = Section{.name = "Section5"};
  for (const TotalsRow& row : table.totals) addRow(report, *report.design.reportFooter, columns, row);
  report.design.pageFooter = pageFoot(report, letterhead, width);
  return report;
}

}  // namespace velmo::reports
