#include "reports/parts/report_pieces.h"

namespace velmo::reports {

using namespace printing;

Column dateColumn() {
  return {.heading = "Date", .dataField = "trandate", .width = mm(15), .format = "dd-MM-yy"};
}

Column amountColumn(const std::string& heading, const std::string& field, const std::string& headingName,
                    const std::string& totalName) {
  return {.heading = heading,
          .dataField = field,
          .width = AmountColumn,
          .align = Align::Right,
          .format = frame::groupedFigureFormat,
          .headingName = headingName,
          .totalName = totalName};
}

Section titledHead(Report& report, const Letterhead& letterhead, const std::vector<TitleLine>& lines) {
  const Twips width = report.design.bodyWidth();
  Section head{.name = "Section4"};
  addCompanyLines(report, head, letterhead);
  bool first = true;
  for (const TitleLine& line : lines) {
    const FontSpec font =
        first ? FontSpec{.size = 13, .weight = Weight::Bold} : FontSpec{.size = 9, .weight = Weight::SemiBold};
    const Twips height = points(font.size * 1.28);
    report.variables[line.name] = line.text;
    head.elements.push_back({.name = line.name,
                             .at = {0, head.height, width, height},
                             .font = font,
                             .align = Align::Centre,
                             .colour = first ? ink::Accent : ink::Quiet,
                             .whenEmpty = WhenEmpty::Fold});
    head.height += height + mm(0.8);
    first = false;
  }
  head.height += mm(2.5);
  return head;
}

void addUnderColumn(Section& section, const ColumnPlace& place, Twips top, const std::string& name, Content content,
                    Weight weight) {
  section.elements.push_back({.name = name,
                              .at = {place.left + mm(0.9), top, place.width - mm(1.8), mm(3.5)},
                              .content = std::move(content),
                              .font = {.size = TableFont.size, .weight = weight},
                              .align = place.column.align});
}

}  // namespace velmo::reports
