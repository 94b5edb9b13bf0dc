#include "printing/list_sheet.h"

#include "printing/level_heading.h"
#include "printing/report_walk.h"

namespace velmo::printing {

using namespace printing;

namespace {

constexpr Twips CodeWidth = mm(28);
constexpr Twips Inset = mm(0.9);

Section headingOf(const ListLevel& level, std::size_t depth, Twips width) {
  LevelHeading heading{.name = level.dataMember + "Heading"};
  if (level.codeField.empty())
    heading.fields = {{.dataField = level.nameField, .width = width}};
  else
    heading.fields = {{.dataField = level.codeField, .width = CodeWidth},
                      {.dataField = level.nameField, .left = CodeWidth, .width = width - CodeWidth}};
  return levelHeading(heading, depth, width);
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
  Report report{.title = sheet.title, .author = context.CompanyName, .data = std::move(rows), .printedOn = today};
  const Letterhead letterhead = letterheadOf(context);
  const Twips width = report.design.bodyWidth();
  const std::vector<ColumnPlace> columns = placeColumns(sheet.columns, width);
  report.design.pageHeader = pageHead(report, letterhead, columns);
  for (std::size_t depth = 0; depth < sheet.levels.size(); ++depth)
    report.design.groups.push_back(
        {.dataMember = sheet.levels[depth].dataMember, .header = headingOf(sheet.levels[depth], depth, width)});
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

}  // namespace velmo::printing
