#include "masters/list_sheet.h"

#include "printing/report_walk.h"

namespace velmo::masters {

using namespace printing;

namespace {

constexpr Twips CodeWidth = mm(28);
constexpr Twips Inset = mm(0.9);

struct HeadingStyle {
  Twips above = 0;  // white, before the heading
  Twips height = 0;
  FontSpec font = {};
  QRgb ground = ink::None;
  QRgb colour = ink::Black;
};

// The outermost level stands on a band, those within it on a thin rule.
HeadingStyle styleOf(std::size_t level) {
  if (level == 0) return {mm(2), mm(6.6), {.size = 9.5, .weight = Weight::Bold}, ink::Band, ink::Accent};
  return {mm(1), mm(5.6), {.size = 8.5, .weight = Weight::SemiBold}, ink::None, ink::Accent};
}

Section levelHeading(const ListLevel& level, std::size_t depth, Twips width) {
  const HeadingStyle style = styleOf(depth);
  const Twips textHeight = points(style.font.size * 1.28);
  const Twips top = style.above + (style.height - textHeight) / 2;
  Section heading{.name = level.dataMember + "Heading",
                  .height = style.above + style.height,
                  .keep = Keep::WithNext,
                  .repeat = Repeat::EveryPage};
  if (style.ground != ink::None)
    heading.elements.push_back({.at = {0, style.above, width, style.height},
                                .content = Box{.fill = style.ground},
                                .stretch = Stretch::WithContents});
  const bool coded = !level.codeField.empty();
  const Twips nameLeft = coded ? CodeWidth + Inset : Inset;
  if (coded)
    heading.elements.push_back({.at = {Inset, top, CodeWidth - 2 * Inset, textHeight},
                                .content = Field{level.codeField, {}, {}},
                                .font = style.font,
                                .colour = style.colour});
  heading.elements.push_back({.at = {nameLeft, top, width - nameLeft - Inset, textHeight},
                              .content = Field{level.nameField, {}, {}},
                              .font = style.font,
                              .colour = style.colour});
  if (style.ground == ink::None)
    heading.elements.push_back({.at = {0, heading.height, width, 0}, .content = Line{10, ink::Quiet}});
  return heading;
}

Section pageHead(Report& report, const Letterhead& letterhead, const std::vector<ColumnPlace>& columns) {
  const Twips width = report.design.bodyWidth();
  Section head{.name = "Section2"};
  addCompanyLines(report, head, letterhead);
  head.elements.push_back({.name = "Title",
                           .at = {0, head.height, width, mm(6)},
                           .content = Label{"%i"},
                           .font = {.size = 13, .weight = Weight::Bold},
                           .align = Align::Centre,
                           .colour = ink::Accent});
  head.height += mm(6);
  addColumnHeadings(head, columns, width);
  return head;
}

Section countOfLines(const ListSheet& sheet, Twips width) {
  Section foot{.name = "Section5", .height = mm(9)};
  const FontSpec font{.size = 8.5, .weight = Weight::SemiBold};
  const Twips top = mm(3);
  foot.elements.push_back({.at = {0, top, width, mm(6)}, .content = Box{.fill = ink::Band}});
  foot.elements.push_back({.at = {Inset, top + mm(1), CodeWidth - 2 * Inset, mm(4)},
                           .content = Label{sheet.counted},
                           .font = font,
                           .colour = ink::Accent});
  foot.elements.push_back({.name = "Count",
                           .at = {CodeWidth + Inset, top + mm(1), mm(40), mm(4)},
                           .content = Function{.statistic = Statistic::RCnt, .format = "#,##0"},
                           .font = font,
                           .colour = ink::Accent});
  return foot;
}

// A walk that passes over the rows without children.
class FilledGroups : public ReportRows {
 public:
  FilledGroups(std::unique_ptr<ReportRows> rows, std::string dataMember)
      : rows_(std::move(rows)), dataMember_(std::move(dataMember)) {}

  bool next() override {
    while (rows_->next())
      if (rows_->children(dataMember_)->next()) return true;
    return false;
  }
  store::Value value(std::string_view field) const override { return rows_->value(field); }
  std::unique_ptr<ReportRows> children(std::string_view member) const override { return rows_->children(member); }

 private:
  std::unique_ptr<ReportRows> rows_;
  std::string dataMember_;
};

class DataWithoutEmptyGroups : public ReportData {
 public:
  DataWithoutEmptyGroups(std::shared_ptr<const ReportData> rows, std::string dataMember)
      : rows_(std::move(rows)), dataMember_(std::move(dataMember)) {}
  std::unique_ptr<ReportRows> rows() const override {
    return std::make_unique<FilledGroups>(rows_->rows(), dataMember_);
  }

 private:
  std::shared_ptr<const ReportData> rows_;
  std::string dataMember_;
};

}  // namespace

Report listReport(const session::LoginContext& context, const ListSheet& sheet, std::shared_ptr<const ReportData> rows,
                  text::DateTime today) {
  Report report{
      .title = sheet.title, .author = context.CompanyName, .data = std::move(rows), .printedOn = std::move(today)};
  const Letterhead letterhead = letterheadOf(context);
  const Twips width = report.design.bodyWidth();
  const std::vector<ColumnPlace> columns = placeColumns(sheet.columns, width);
  report.design.pageHeader = pageHead(report, letterhead, columns);
  for (std::size_t depth = 0; depth < sheet.levels.size(); ++depth)
    report.design.groups.push_back(
        {.dataMember = sheet.levels[depth].dataMember, .header = levelHeading(sheet.levels[depth], depth, width)});
  report.design.detailMember = sheet.dataMember;
  report.design.detail = tableLine(columns, width);
  report.design.reportFooter = countOfLines(sheet, width);
  report.design.pageFooter = pageFoot(report, letterhead, width);
  return report;
}

Column codeColumn(const std::string& heading, const std::string& dataField) {
  return {.heading = heading, .dataField = dataField, .width = CodeWidth};
}

Column priceColumn(const session::LoginContext& context, const std::string& dataField) {
  return {.heading = context.ccode.empty() ? "Price" : "Price (" + context.ccode + ")",
          .dataField = dataField,
          .width = mm(30),
          .align = Align::Right,
          .format = "#,##0.00####"};
}

void showYesAs(Report& report, const std::string& dataField, const std::string& words) {
  for (Element& element : report.design.detail->elements) {
    const auto* field = std::get_if<Field>(&element.content);
    if (!field || field->dataField != dataField) continue;
    element.visibleWhen = [dataField](const RowScope& rows) { return store::isYes(rows.value(dataField)); };
    element.content = Label{words};
  }
}

std::shared_ptr<const ReportData> withoutEmptyGroups(std::shared_ptr<const ReportData> rows,
                                                     const std::string& dataMember) {
  return std::make_shared<DataWithoutEmptyGroups>(std::move(rows), dataMember);
}

}  // namespace velmo::masters
