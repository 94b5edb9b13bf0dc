#include "reports/balances/acc_bal_print.h"

#include <cmath>

#include "printing/level_heading.h"
#include "reports/parts/report_pieces.h"
#include "text/format.h"

namespace velmo::reports {

using namespace printing;

namespace {

constexpr Twips CodeWidth = mm(22);
constexpr Twips AmountWidth = mm(30);
constexpr Twips SideWidth = mm(16);
constexpr Twips Padding = mm(0.9);

enum class Layout { SixColumns, TwoColumns };

std::vector<Column> columnsOf(Layout layout, const std::string& currency, const std::string& nameHeading) {
  const auto amount = [](std::string heading, std::string field) {
    return Column{.heading = std::move(heading),
                  .dataField = std::move(field),
                  .width = AmountWidth,
                  .align = Align::Right,
                  .format = frame::groupedFigureFormat};
  };
  const auto side = [](std::string field) { return Column{.dataField = std::move(field), .width = SideWidth}; };
  Column debits = amount("Debit " + currency, "debits");
  debits.headingName = "Lbl1";
  Column credits = amount("Credit " + currency, "credits");
  credits.headingName = "Lbl2";
  std::vector<Column> columns = {{.heading = "Acc Code", .dataField = "acccode", .width = CodeWidth},
                                 {.heading = nameHeading, .dataField = "accname"}};
  if (layout == Layout::TwoColumns) {
    columns.insert(columns.end(), {debits, credits});
  } else {
    columns.insert(columns.end(), {amount("Opening Balance", "obalance"), side("ostatus"), debits, credits,
                                   amount("Closing Balance", "cbalance"), side("cstatus")});
  }
  return columns;
}

const ColumnPlace& placeOf(const std::vector<ColumnPlace>& columns, std::string_view field) {
  return *std::ranges::find_if(columns, [field](const ColumnPlace& place) { return place.column.dataField == field; });
}

// A type or a sub type with its balance at the right end.
Section headingOf(const std::string& name, const std::string& code, const std::string& words, std::size_t depth,
                  Twips width) {
  const Twips right = width - SideWidth;
  return levelHeading({.name = name,
                       .fields = {{.dataField = code, .width = CodeWidth},
                                  {.dataField = words, .left = CodeWidth, .width = right - AmountWidth - CodeWidth},
                                  {.dataField = "tbalance",
                                   .format = frame::groupedFigureFormat,
                                   .left = right - AmountWidth,
                                   .width = AmountWidth,
                                   .align = Align::Right},
                                  {.dataField = "tstatus", .left = right, .width = SideWidth}}},
                      depth, width);
}

enum class Ground { Band, Plain };

// A row of totals: the label, and what stands under the columns.
class TotalsRow {
 public:
  TotalsRow(Section& section, Twips width, Ground ground) : section_(section), top_(section.height + mm(1)) {
    if (ground == Ground::Band)
      section.elements.push_back(
          {.at = {0, top_, width, Height}, .content = Box{.fill = ink::Band}, .stretch = Stretch::WithContents});
    section.height = top_ + Height;
  }
  void addLabel(const std::string& name, Content content, Twips left, Twips right) {
    add(name, std::move(content), left, right - left);
  }
  // The amount under its column, the side under the next.
  void addBalance(Report& report, const std::string& name, double balance, const ColumnPlace& amount,
                  const ColumnPlace& side) {
    report.variables[name] = text::formatNumber(std::fabs(balance), frame::groupedFigureFormat);
    add(name, Label{}, amount.left, amount.width);
    add({}, Label{frame::sideOf(balance)}, side.left, side.width, Align::Left);
  }
  void addAmount(Report& report, const std::string& name, double amount, const ColumnPlace& place) {
    report.variables[name] = text::formatNumber(amount, frame::groupedFigureFormat);
    add(name, Label{}, place.left, place.width);
  }
  void addSum(const std::string& name, const ColumnPlace& place, const std::string& field) {
    add(name, Function{Statistic::Sum, field, frame::groupedFigureFormat, {}}, place.left, place.width);
  }

 private:
  static constexpr Twips Height = mm(6.2);

  void add(const std::string& name, Content content, Twips left, Twips width, Align align = Align::Right) {
    section_.elements.push_back({.name = name,
                                 .at = {left + Padding, top_ + mm(1.3), width - 2 * Padding, mm(3.5)},
                                 .content = std::move(content),
                                 .font = {.size = 7.5, .weight = Weight::SemiBold},
                                 .align = align});
  }

  Section& section_;
  Twips top_;
};

Section sixTotals(Report& report, const BalancesSheet& sheet, const std::vector<ColumnPlace>& columns) {
  const Twips width = report.design.bodyWidth();
  Section foot{.name = "Section5"};
  TotalsRow row(foot, width, Ground::Band);
  const ColumnPlace& opening = placeOf(columns, "obalance");
  const ColumnPlace& debits = placeOf(columns, "debits");
  row.addLabel("TtlLbl", Label{}, 0, opening.left);
  row.addBalance(report, "OBLbl", sheet.opening, opening, placeOf(columns, "ostatus"));
  row.addSum("DebitSum", debits, "debits");
  row.addSum("CreditSum", placeOf(columns, "credits"), "credits");
  row.addBalance(report, "CBLbl", sheet.closing, placeOf(columns, "cbalance"), placeOf(columns, "cstatus"));
  if (!sheet.settled) return foot;
  TotalsRow settled(foot, width, Ground::Plain);
  settled.addLabel("SettledLbl", Label{settledCaption}, 0, opening.left);
  settled.addBalance(report, "SettledOBLbl", sheet.settled->opening, opening, placeOf(columns, "ostatus"));
  settled.addAmount(report, "SettledDebits", sheet.settled->debits, debits);
  settled.addAmount(report, "SettledCredits", sheet.settled->credits, placeOf(columns, "credits"));
  return foot;
}

// The sums are over fields that are 0, and not null, on the other side.
void addTwoSums(TotalsRow& row, const std::string& level, const std::vector<ColumnPlace>& columns) {
  row.addSum("DebitSum" + level, placeOf(columns, "debits"), "debits2");
  row.addSum("CreditSum" + level, placeOf(columns, "credits"), "credits2");
}

Section twoTotals(Report& report, const std::vector<ColumnPlace>& columns) {
  Section foot{.name = "Section5"};
  TotalsRow row(foot, report.design.bodyWidth(), Ground::Band);
  row.addLabel("TtlLbl", Label{}, 0, placeOf(columns, "debits").left);
  addTwoSums(row, "", columns);
  return foot;
}

Section twoSumsOf(const std::string& level, const std::string& words, const std::vector<ColumnPlace>& columns,
                  Twips width) {
  Section foot{.name = level + "Footer"};
  TotalsRow row(foot, width, Ground::Plain);
  row.addLabel({}, Field{words, {}, level}, CodeWidth, placeOf(columns, "debits").left);
  addTwoSums(row, level, columns);
  return foot;
}

Report balancesReport(const session::LoginContext& context, const BalancesSheet& sheet, BalancesData rows,
                      Layout layout) {
  Report report{
      .title = sheet.reportLabel, .author = context.CompanyName, .data = std::move(rows), .printedOn = sheet.today};
  if (layout == Layout::SixColumns) report.design.paper = A4Landscape;
  const Letterhead letterhead = letterheadOf(context);
  const Twips width = report.design.bodyWidth();
  const std::vector<ColumnPlace> columns = placeColumns(columnsOf(layout, context.ccode, sheet.nameHeading), width);
  report.variables["TtlLbl"] = "Totals " + context.ccode;
  report.design.reportHeader =
      titledHead(report, letterhead,
                 {{"ReportLabel", sheet.reportLabel},
                  {"ReportDate", "From  " + frame::dayInWords(sheet.from) + "  To  " + frame::dayInWords(sheet.to)}});
  report.design.pageHeader = Section{.name = "Section2"};
  addColumnHeadings(*report.design.pageHeader, columns, width);
  report.design.detail = tableLine(columns, width);
  report.design.reportFooter =
      layout == Layout::SixColumns ? sixTotals(report, sheet, columns) : twoTotals(report, columns);
  report.design.pageFooter = pageFoot(report, letterhead, width);
  return report;
}

Report groupedReport(const session::LoginContext& context, const BalancesSheet& sheet, BalancesData hierarchy,
                     Layout layout) {
  Report report = balancesReport(context, sheet, std::move(hierarchy), layout);
  const Twips width = report.design.bodyWidth();
  report.design.groups = {
      {.dataMember = "Level1", .header = headingOf("TypeHeading", "typeid", "type", 0, width)},
      {.dataMember = "level2", .header = headingOf("SubTypeHeading", "level2id", "l2accname", 1, width)}};
  report.design.detailMember = "level3";
  if (layout == Layout::TwoColumns) {
    const std::vector<ColumnPlace> columns = placeColumns(columnsOf(layout, context.ccode, sheet.nameHeading), width);
    report.design.groups[0].footer = twoSumsOf("Level1", "type", columns, width);
    report.design.groups[1].footer = twoSumsOf("level2", "l2accname", columns, width);
  }
  return report;
}

}  // namespace

Report accBalRpt(const session::LoginContext& context, const BalancesSheet& sheet, BalancesData hierarchy) {
  return groupedReport(context, sheet, std::move(hierarchy), Layout::SixColumns);
}

Report accBalRpt2(const session::LoginContext& context, const BalancesSheet& sheet, BalancesData hierarchy) {
  return groupedReport(context, sheet, std::move(hierarchy), Layout::TwoColumns);
}

Report accBalRptRange(const session::LoginContext& context, const BalancesSheet& sheet, BalancesData rows) {
  return balancesReport(context, sheet, std::move(rows), Layout::SixColumns);
}

Report accBalRptRange2(const session::LoginContext& context, const BalancesSheet& sheet, BalancesData rows) {
  return balancesReport(context, sheet, std::move(rows), Layout::TwoColumns);
}

}  // namespace velmo::reports
