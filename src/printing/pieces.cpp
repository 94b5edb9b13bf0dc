#include "printing/pieces.h"

#include <QImageReader>
#include <numeric>
#include <stdexcept>

#include "store/file/open_database.h"

namespace velmo::printing {

namespace {

constexpr Twips LogoWidth = mm(34);
constexpr Twips LogoHeight = mm(22);
constexpr Twips LogoGap = mm(5);
constexpr Twips CellPadding = mm(0.9);
constexpr Twips HeadingGap = mm(2.5);  // between a table and what stands above it
constexpr const char* LogoFile = "mylogo.jpg";

struct HeadLine {
  std::string name;
  std::string text;
  Twips top;
  Twips height;
  FontSpec font;
  QRgb colour;
};

std::vector<HeadLine> headLines(const Letterhead& head) {
  return {{"CoName", head.companyName, 0, mm(8.6), {.size = 17, .weight = Weight::Bold}, ink::Accent},
          {"Coadd", head.address, mm(9.2), mm(4), {.size = 8.5}, ink::Quiet},
          {"Cotel", head.telephones, mm(13.4), mm(4), {.size = 8.5}, ink::Quiet},
          {"CoEMail", head.email, mm(17.6), mm(4), {.size = 8.5}, ink::Quiet}};
}

void addHeadLines(Report& report, Section& section, const std::vector<HeadLine>& lines, Twips left, Twips width,
                  Align align) {
  for (const HeadLine& line : lines) {
    report.variables[line.name] = line.text;
    section.elements.push_back({.name = line.name,
                                .at = {left, section.height + line.top, width, line.height},
                                .font = line.font,
                                .align = align,
                                .colour = line.colour,
                                .whenEmpty = WhenEmpty::Fold});
  }
}

// A line of the company's head; none when nothing stands behind its caption.
std::string headLine(const std::string& line) {
  return line.ends_with(": ") ? std::string() : line;
}

Frame inCell(const ColumnPlace& place, Twips top, Twips height) {
  return {place.left + CellPadding, top, place.width - 2 * CellPadding, height};
}

}  // namespace

Letterhead letterheadOf(const session::LoginContext& context) {
  return {.companyName = context.CompanyName,
          .address = context.CompanyAddress,
          .telephones = headLine(context.CompanyTelLine),
          .email = headLine(context.CompanyEmailLine),
          .userName = context.UserName};
}

QImage companyLogo() {
  constexpr int MostPixels = 1600;
  if (store::isOpenDatabase(LogoFile)) return {};
  QImageReader reader(QString::fromLatin1(LogoFile));
  reader.setAutoTransform(true);
  const QSize size = reader.size();
  if (size.width() > MostPixels || size.height() > MostPixels)
    reader.setScaledSize(size.scaled(MostPixels, MostPixels, Qt::KeepAspectRatio).expandedTo({1, 1}));
  const QImage picture = reader.read();
  // A frame may be larger than the canvas that the file tells of.
  const bool large = picture.width() > MostPixels || picture.height() > MostPixels;
  return large ? picture.scaled(MostPixels, MostPixels, Qt::KeepAspectRatio, Qt::SmoothTransformation) : picture;
}

void addCompanyHead(Report& report, Section& section, const Letterhead& head) {
  const QImage logo = companyLogo();
  const Twips width = report.design.bodyWidth();
  if (logo.isNull()) {
    addHeadLines(report, section, headLines(head), 0, width, Align::Centre);
  } else {
    report.pictures["Logo"] = logo;
    section.elements.push_back(
        {.name = "Logo", .at = {0, section.height, LogoWidth, LogoHeight}, .content = Picture{}});
    const Twips left = LogoWidth + LogoGap;
    addHeadLines(report, section, headLines(head), left, width - left, Align::Left);
  }
  section.height += LogoHeight + mm(2);
  section.elements.push_back({.at = {0, section.height, width, 0}, .content = Line{25, ink::Accent}});
  section.height += mm(3);
}

void addCompanyLines(Report& report, Section& section, const Letterhead& head) {
  std::vector<HeadLine> lines = headLines(head);
  lines.pop_back();
  addHeadLines(report, section, lines, 0, report.design.bodyWidth(), Align::Centre);
  section.height += mm(19);
  section.elements.push_back(
      {.at = {0, section.height, report.design.bodyWidth(), 0}, .content = Line{25, ink::Accent}});
  section.height += mm(3);
}

Twips addReferences(Report& report, Section& section, Frame at, Twips captionWidth,
                    const std::vector<Reference>& rows) {
  constexpr Twips RowHeight = mm(4.6);
  Twips top = at.top;
  for (const Reference& row : rows) {
    report.variables[row.name] = row.text;
    if (row.text.empty()) report.hidden.insert(row.captionName);
    section.elements.push_back(
        {.at = {at.left, top, at.width, RowHeight}, .content = Box{}, .stretch = Stretch::WithContents});
    section.elements.push_back({.name = row.captionName,
                                .at = {at.left, top, captionWidth, RowHeight},
                                .content = Label{row.caption},
                                .colour = ink::Quiet,
                                .whenEmpty = WhenEmpty::Fold});
    section.elements.push_back({.name = row.name,
                                .at = {at.left + captionWidth, top, at.width - captionWidth, RowHeight},
                                .font = {.weight = Weight::SemiBold},
                                .whenEmpty = WhenEmpty::Fold});
    top += RowHeight;
  }
  return top;
}

std::vector<ColumnPlace> placeColumns(const std::vector<Column>& columns, Twips bodyWidth) {
  const Twips fixed = std::accumulate(columns.begin(), columns.end(), Twips{0},
                                      [](Twips sum, const Column& column) { return sum + column.width; });
  if (fixed > bodyWidth - mm(15)) throw std::logic_error("the columns are wider than the paper");
  std::vector<ColumnPlace> places;
  Twips left = 0;
  for (const Column& column : columns) {
    const Twips width = column.width > 0 ? column.width : bodyWidth - fixed;
    places.push_back({column, left, width});
    left += width;
  }
  return places;
}

void addColumnHeadings(Section& section, const std::vector<ColumnPlace>& columns, Twips bodyWidth) {
  constexpr Twips Height = mm(6.4);
  if (!section.elements.empty()) section.height += HeadingGap;
  const Twips top = section.height;
  section.elements.push_back(
      {.at = {0, top, bodyWidth, Height}, .content = Box{.fill = ink::Accent}, .stretch = Stretch::WithContents});
  for (const ColumnPlace& place : columns)
    section.elements.push_back({.name = place.column.headingName,
                                .at = inCell(place, top + mm(1.4), mm(3.6)),
                                .content = Label{place.column.heading},
                                .font = {.size = 7.5, .weight = Weight::SemiBold},
                                .align = place.column.align,
                                .colour = 0xffffffff});
  section.height += Height;
}

Section tableLine(const std::vector<ColumnPlace>& columns, Twips bodyWidth) {
  Section line{.name = "Section1", .height = mm(5.4)};
  for (const ColumnPlace& place : columns)
    line.elements.push_back({.at = inCell(place, mm(0.9), mm(3.5)),
                             .content = Field{place.column.dataField, place.column.format, {}},
                             .font = TableFont,
                             .align = place.column.align});
  line.elements.push_back({.at = {0, line.height - 6, bodyWidth, 0}, .content = Line{6, ink::Rule}});
  return line;
}

void addTotalsRow(Section& section, const std::vector<ColumnPlace>& columns, Twips bodyWidth,
                  const std::string& labelName) {
  constexpr Twips Height = mm(6.2);
  constexpr FontSpec Font{.size = 7.5, .weight = Weight::SemiBold};
  const Twips top = section.height;
  section.elements.push_back(
      {.at = {0, top, bodyWidth, Height}, .content = Box{.fill = ink::Band}, .stretch = Stretch::WithContents});
  Twips labelRight = bodyWidth;
  for (const ColumnPlace& place : columns) {
    if (place.column.totalName.empty()) continue;
    labelRight = std::min(labelRight, place.left);
    section.elements.push_back({.name = place.column.totalName,
                                .at = inCell(place, top + mm(1.3), mm(3.5)),
                                .content = Function{Statistic::Sum, place.column.dataField, place.column.format, {}},
                                .font = Font,
                                .align = Align::Right});
  }
  section.elements.push_back({.name = labelName,
                              .at = {CellPadding, top + mm(1.3), labelRight - 2 * CellPadding, mm(3.5)},
                              .font = Font,
                              .align = Align::Right});
  section.height += Height;
}

Twips addTotals(Report& report, Section& section, Twips top, Twips bodyWidth, const std::vector<Total>& totals) {
  constexpr Twips LabelWidth = mm(46);
  constexpr Twips AmountWidth = mm(34);
  constexpr Twips RowHeight = mm(5.4);
  const Twips left = bodyWidth - LabelWidth - AmountWidth;
  for (const Total& total : totals) {
    const bool strong = total.emphasis == Emphasis::Strong;
    const Twips height = strong ? RowHeight + mm(1.4) : RowHeight;
    const FontSpec font{.size = strong ? 10.0 : 8.5, .weight = strong ? Weight::Bold : Weight::Regular};
    const Twips text = top + (height - points(font.size * 1.28)) / 2;
    if (strong)
      section.elements.push_back({.at = {left, top, LabelWidth + AmountWidth, height},
                                  .content = Box{.fill = ink::Band},
                                  .stretch = Stretch::WithContents});
    report.variables[total.labelName] = total.label;
    report.variables[total.name] = total.amount;
    section.elements.push_back({.name = total.labelName,
                                .at = {left + CellPadding, text, LabelWidth - CellPadding, points(font.size * 1.28)},
                                .font = font,
                                .colour = strong ? ink::Accent : ink::Quiet});
    section.elements.push_back({.name = total.name,
                                .at = {left + LabelWidth, text, AmountWidth - CellPadding, points(font.size * 1.28)},
                                .font = font,
                                .align = Align::Right,
                                .colour = strong ? ink::Accent : ink::Black});
    top += height;
  }
  return top;
}

void addSignatures(Section& section, Twips bodyWidth, const std::vector<std::string>& captions) {
  constexpr Twips SigningRoom = mm(16);
  constexpr Twips LineWidth = mm(48);
  section.height += SigningRoom;
  const auto count = static_cast<Twips>(captions.size());
  const Twips step = count > 1 ? (bodyWidth - LineWidth) / (count - 1) : 0;
  for (Twips place = 0; place < count; ++place) {
    const Twips left = count == 1 ? bodyWidth - LineWidth : place * step;
    section.elements.push_back({.at = {left, section.height, LineWidth, 0}, .content = Line{10, ink::Quiet}});
    section.elements.push_back({.at = {left, section.height + mm(1), LineWidth, mm(4)},
                                .content = Label{captions[static_cast<std::size_t>(place)]},
                                .font = {.size = 8},
                                .align = Align::Centre,
                                .colour = ink::Quiet});
  }
  section.height += mm(6);
}

Section pageFoot(Report& report, const Letterhead& head, Twips bodyWidth) {
  constexpr FontSpec Font{.size = 7.5};
  const Twips third = bodyWidth / 3;
  report.variables["PrintByLbl"] = "Printed By: " + head.userName;
  Section foot{.name = "Section3", .height = mm(8)};
  foot.elements = {{.at = {0, mm(2.5), bodyWidth, 0}, .content = Line{8, ink::Rule}},
                   {.name = "PrintByLbl", .at = {0, mm(3.8), third, mm(3.6)}, .font = Font, .colour = ink::Quiet},
                   {.at = {third, mm(3.8), third, mm(3.6)},
                    .content = Label{"Page  %p  of  %P"},
                    .font = Font,
                    .align = Align::Centre,
                    .colour = ink::Quiet},
                   {.at = {2 * third, mm(3.8), bodyWidth - 2 * third, mm(3.6)},
                    .content = Label{"Date %d"},
                    .font = Font,
                    .align = Align::Right,
                    .colour = ink::Quiet}};
  return foot;
}

}  // namespace velmo::printing
