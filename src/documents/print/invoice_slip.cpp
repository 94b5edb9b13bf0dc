#include "documents/print/invoice_slip.h"

#include "documents/print/document_print_data.h"
#include "documents/print/print_columns.h"

namespace velmo::documents {

using namespace printing;

namespace {

constexpr Margins SlipMargins{mm(4), mm(4), mm(4), mm(6)};
constexpr double TextSize = 8;
constexpr double TableSize = 7.5;
constexpr QRgb Ink = 0xff000000;

void addRule(Section& section, Twips width, Twips thickness) {
  section.elements.push_back({.at = {0, section.height, width, 0}, .content = Line{thickness, Ink}});
  section.height += thickness + mm(1);
}

// One line of text over the whole width; without text it takes no room.
void addText(Section& section, const std::string& name, const Label& label, Twips width, const FontSpec& font,
             Align align) {
  const Twips height = points(font.size * 1.28);
  section.elements.push_back({.name = name,
                              .at = {0, section.height, width, height},
                              .content = label,
                              .font = font,
                              .align = align,
                              .colour = Ink,
                              .whenEmpty = WhenEmpty::Fold});
  section.height += height + mm(0.4);
}

void addCompany(Report& report, Section& section, const Letterhead& head, Twips width) {
  constexpr Twips LogoHeight = mm(16);
  if (const QImage logo = companyLogo(); !logo.isNull()) {
    report.pictures["Logo"] = logo;
    section.elements.push_back({.name = "Logo",
                                .at = {mm(11), section.height, width - 2 * mm(11), LogoHeight},
                                .content = Picture{},
                                .align = Align::Centre});
    section.height += LogoHeight + mm(1.5);
  }
  const std::pair<const char*, const std::string*> lines[] = {
      {"CoName", &head.companyName}, {"Coadd", &head.address}, {"Cotel", &head.telephones}, {"CoEMail", &head.email}};
  for (const auto& [name, text] : lines) {
    report.variables[name] = *text;
    const bool first = text == &head.companyName;
    const FontSpec font{.size = first ? 13 : TextSize, .weight = first ? Weight::Bold : Weight::Regular};
    addText(section, name, {}, width, font, Align::Centre);
  }
  section.height += mm(1);
}

Section slipHead(Report& report, const PaperTexts& texts, Twips width) {
  Section head{.name = "Section2", .keep = Keep::MayBreak};
  if (texts.headStyle == HeadStyle::Company) addCompany(report, head, texts.letterhead, width);
  addRule(head, width, 20);
  addText(head, "vlabel", {}, width, {.size = 11, .weight = Weight::Bold}, Align::Centre);
  addText(head, "clbl", {"CANCELLED"}, width, {.size = 11, .weight = Weight::Bold}, Align::Centre);
  head.height = addReferences(report, head, {0, head.height + mm(0.6), width, 0}, mm(33), texts.references);
  addRule(head, width, 8);
  addText(head, "partyname", {}, width, {.size = 9, .weight = Weight::Bold}, Align::Left);
  addText(head, "partyadd", {}, width, {.size = TextSize}, Align::Left);
  addText(head, "partytel", {}, width, {.size = TextSize}, Align::Left);
  for (Element& element : head.elements) element.colour = Ink;
  return head;
}

// Columns of figures share the width; what is left over goes to the gaps between them.
FittedColumns figureColumns(const std::vector<Column>& columns, const ReportData& lines, Twips width) {
  FittedColumns fitted = fitColumns(columns, lines, width, 0, TableSize);
  Twips sum = 0;
  for (const Column& column : fitted.columns) sum += column.width;
  const auto count = static_cast<Twips>(fitted.columns.size());
  for (Column& column : fitted.columns) column.width += (width - sum) / count;
  return fitted;
}

// Places figures of a row at its columns; `content` and `name` say what of a column stands there.
template <typename Content, typename Name>
void addFigures(Section& section, const FittedColumns& fitted, Weight weight, Content content, Name name) {
  const Twips height = points(fitted.size * 1.28);
  Twips left = 0;
  for (const Column& column : fitted.columns) {
    section.elements.push_back({.name = name(column),
                                .at = {left, section.height, column.width, height},
                                .content = content(column),
                                .font = {.size = fitted.size, .weight = weight},
                                .align = Align::Right,
                                .colour = Ink});
    left += column.width;
  }
  section.height += height + mm(0.6);
}

Section headings(const FittedColumns& fitted, Twips width) {
  Section section{.name = "TableHead", .height = mm(1), .repeat = Repeat::AboveRows};
  addRule(section, width, 20);
  addText(section, "lbl5", {}, width, {.size = TableSize, .weight = Weight::SemiBold}, Align::Left);
  addFigures(
      section, fitted, Weight::SemiBold, [](const Column& column) { return Label{column.heading}; },
      [](const Column& column) { return column.headingName; });
  addRule(section, width, 8);
  return section;
}

Section pageEnd(Twips width) {
  Section foot{.name = "Section3", .height = mm(1)};
  const auto text = [&](const char* caption, Align align) {
    foot.elements.push_back({.at = {0, foot.height, width, points(7 * 1.28)},
                             .content = Label{caption},
                             .font = {.size = 7},
                             .align = align,
                             .colour = Ink});
  };
  text("Page  %p  of  %P", Align::Left);
  text("Date %d", Align::Right);
  foot.height += points(7 * 1.28);
  return foot;
}

Section slipLine(const FittedColumns& fitted, Twips width) {
  Section line{.name = "Section1"};
  const Twips height = points(TextSize * 1.28);
  line.elements.push_back({.at = {0, 0, width, height},
                           .content = Field{"itemname", {}, {}},
                           .font = {.size = TextSize, .weight = Weight::SemiBold},
                           .colour = Ink});
  line.height = height;
  addFigures(
      line, fitted, Weight::Regular,
      [](const Column& column) {
        return Field{column.dataField, column.format, {}};
      },
      [](const Column&) { return std::string(); });
  return line;
}

// A label and its amount on one line.
void addTotal(Report& report, Section& section, const Total& total, Twips width) {
  constexpr Twips AmountWidth = mm(32);
  const bool strong = total.emphasis == Emphasis::Strong;
  const FontSpec font{.size = strong ? 10.5 : 8.5, .weight = strong ? Weight::Bold : Weight::Regular};
  const Twips height = points(font.size * 1.28);
  report.variables[total.labelName] = total.label;
  report.variables[total.name] = total.amount;
  if (strong) addRule(section, width, 8);
  section.elements.push_back(
      {.name = total.labelName, .at = {0, section.height, width - AmountWidth, height}, .font = font, .colour = Ink});
  section.elements.push_back({.name = total.name,
                              .at = {width - AmountWidth, section.height, AmountWidth, height},
                              .font = font,
                              .align = Align::Right,
                              .colour = Ink});
  section.height += height + mm(0.8);
  if (strong) addRule(section, width, 8);
}

// The sums stand under their columns, below the label that names them.
Section closing(Report& report, const PaperTexts& texts, const FittedColumns& fitted, Twips width) {
  Section foot{.name = "Section5", .height = mm(0.6)};
  addRule(foot, width, 20);
  addText(foot, "Tlbl", {}, width, {.size = TableSize, .weight = Weight::SemiBold}, Align::Left);
  addFigures(
      foot, fitted, Weight::SemiBold,
      [](const Column& column) -> Content {
        if (column.totalName.empty()) return Label{};
        return Function{Statistic::Sum, column.dataField, column.format, {}};
      },
      [](const Column& column) { return column.totalName; });
  addRule(foot, width, 8);
  for (const Total& total : texts.totals) addTotal(report, foot, total, width);
  foot.height += mm(1);
  addText(foot, "wrdslbl", {}, width, {.size = TextSize}, Align::Left);
  foot.height += mm(1.5);
  addText(foot, "printbylbl", {}, width, {.size = TextSize}, Align::Left);
  addRule(foot, width, 8);
  report.variables["softlbl"] = "Velmo Point of Sale";
  addText(foot, "softlbl", {}, width, {.size = 7}, Align::Centre);
  return foot;
}

}  // namespace

Report invoiceOnSlip(const std::vector<Column>& figures, const PaperTexts& texts,
                     const std::shared_ptr<const ReportData>& lines) {
  Report report = paperReport(texts, lines, Roll80, SlipMargins);
  const Twips width = report.design.bodyWidth();
  const FittedColumns fitted = figureColumns(figures, *lines, width);
  report.design.groups = {
      {.dataMember = DocumentLevel, .header = slipHead(report, texts, width)},
      {.dataMember = TableLevel, .header = headings(fitted, width), .footer = closing(report, texts, fitted, width)}};
  report.design.detail = slipLine(fitted, width);
  report.design.pageFooter = pageEnd(width);
  return report;
}

}  // namespace velmo::documents
