#include "documents/print/paper_page.h"

#include "documents/print/document_print_data.h"
#include "documents/print/paper_title.h"

namespace velmo::documents {

using namespace printing;

namespace {

constexpr Twips TotalsWidth = mm(80);  // what addTotals takes of the right end
constexpr Twips Gap = mm(6);
constexpr Twips LeastDescription = mm(28);
constexpr Twips RowHeight = mm(4.6);  // of a reference

// Name, address and telephone in a frame that grows with them.
Twips addParty(Section& section, const std::string& party, Twips width) {
  constexpr Twips Inset = mm(3);
  const Twips inner = width - 2 * Inset;
  section.elements.push_back(
      {.at = {0, 0, width, mm(22)}, .content = Box{.outline = ink::Rule}, .stretch = Stretch::WithContents});
  section.elements.push_back(
      {.at = {Inset, mm(1.6), inner, mm(3.6)}, .content = Label{party}, .font = {.size = 7.5}, .colour = ink::Quiet});
  section.elements.push_back(
      {.name = "partyname", .at = {Inset, mm(5.4), inner, mm(5)}, .font = {.size = 10.5, .weight = Weight::SemiBold}});
  section.elements.push_back({.name = "partyadd", .at = {Inset, mm(11), inner, mm(4.2)}, .whenEmpty = WhenEmpty::Fold});
  section.elements.push_back(
      {.name = "partytel", .at = {Inset, mm(15.6), inner, mm(4.2)}, .whenEmpty = WhenEmpty::Fold});
  return mm(22);
}

// A row of references, as wide as each other; those without text leave their place to the others.
Twips addAcross(Report& report, Section& section, Twips top, std::vector<Reference> references) {
  constexpr Twips Caption = mm(25);
  std::erase_if(references, [](const Reference& reference) { return reference.text.empty(); });
  if (references.empty()) return section.height;
  const Twips step = report.design.bodyWidth() / static_cast<Twips>(references.size());
  Twips lowest = top;
  // Below a whole line, they stay on one line whatever grows or folds above them.
  section.elements.push_back({.at = {0, top, report.design.bodyWidth(), 0}, .content = Box{}});
  for (std::size_t index = 0; index < references.size(); ++index)
    lowest = std::max(lowest,
                      addReferences(report, section, {static_cast<Twips>(index) * step, top, step - mm(2), RowHeight},
                                    Caption, {references[index]}));
  return lowest;
}

Section partySection(Report& report, const PaperPage& page, const PaperTexts& texts) {
  Section section{.name = "Section4", .keep = Keep::MayBreak};
  Twips lowest = addParty(section, texts.party, page.partyWidth);
  const auto count = static_cast<std::ptrdiff_t>(texts.references.size());
  const auto perColumn = count / page.referenceColumns;  // the last column takes what is over
  const Twips room = report.design.bodyWidth() - page.partyWidth;
  const Twips step = room / page.referenceColumns;
  for (std::ptrdiff_t column = 0; column < page.referenceColumns; ++column) {
    const auto first = texts.references.begin() + column * perColumn;
    const auto last = column + 1 == page.referenceColumns ? texts.references.end() : first + perColumn;
    const Twips left = page.partyWidth + static_cast<Twips>(column) * step + Gap;
    lowest = std::max(
        lowest, addReferences(report, section, {left, 0, step - Gap, RowHeight}, page.referenceCaption, {first, last}));
  }
  section.height = lowest;
  section.height = addAcross(report, section, lowest + mm(3), texts.across);
  return section;
}

// Lines to sign on, the last at the right end, and the maker before them.
void addSigning(Section& section, Twips line, Twips right, const std::vector<std::string>& captions) {
  constexpr Twips Width = mm(48);
  const Twips below = line + mm(1);
  Twips left = right + Gap;
  for (auto caption = captions.rbegin(); caption != captions.rend(); ++caption) {
    left -= Width + Gap;
    section.elements.push_back({.at = {left, line, Width, 0}, .content = Line{10, ink::Quiet}});
    section.elements.push_back({.at = {left, below, Width, mm(4)},
                                .content = Label{*caption},
                                .font = {.size = 8},
                                .align = Align::Centre,
                                .colour = ink::Quiet});
  }
  section.elements.push_back(
      {.name = "printbylbl", .at = {0, below, left - Gap, mm(4)}, .font = {.size = 8}, .colour = ink::Quiet});
  section.height = line + mm(6);
}

// Totals with the words beside them, and who signs where no notes stand between.
Section closing(Report& report, const PaperPage& page, const PaperTexts& texts,
                const std::vector<ColumnPlace>& columns) {
  const Twips width = report.design.bodyWidth();
  const Twips left = width - TotalsWidth - Gap;
  Section foot{.name = "Section5"};
  addTotalsRow(foot, columns, width, "Tlbl");
  const Twips top = foot.height + mm(2);
  const Twips lowest = std::max(addTotals(report, foot, top, width, texts.totals), top + mm(9.2));
  foot.elements.push_back({.at = {0, top + mm(1), left, mm(3.6)},
                           .content = Label{"Amount in Words"},
                           .font = {.size = 7.5},
                           .colour = ink::Quiet});
  foot.elements.push_back({.name = "wrdslbl", .at = {0, top + mm(4.8), left, mm(4.4)}, .font = {.size = 9}});
  foot.height = lowest;
  if (!texts.notes.empty()) return foot;
  if (page.signing == SigningPlace::BesideTotals)
    addSigning(foot, lowest - mm(5), left, page.signatures);
  else
    addSigning(foot, lowest + mm(16), width, page.signatures);
  return foot;
}

// The notes one below the other, over the whole width; notes of one heading stand below it together.
Section notesSection(Report& report, const PaperTexts& texts) {
  const Twips width = report.design.bodyWidth();
  Section section{.name = "Section7", .height = mm(2), .keep = Keep::MayBreak};
  std::string heading;
  for (const PaperNote& note : texts.notes) {
    if (note.heading != heading) {
      section.elements.push_back({.at = {0, section.height + mm(2), width, mm(3.6)},
                                  .content = Label{note.heading},
                                  .font = {.size = 7.5},
                                  .colour = ink::Quiet});
      section.height += mm(5.8);
    }
    heading = note.heading;
    report.variables[note.name] = note.text;
    section.elements.push_back({.name = note.name, .at = {0, section.height, width, mm(4.2)}});
    section.height += mm(4.8);
  }
  return section;
}

// Notes may go on overleaf; who signs stands together below them.
void addNotes(Report& report, const PaperPage& page, const PaperTexts& texts) {
  Section notes = notesSection(report, texts);
  Section signing{.name = "Section8"};
  addSigning(signing, mm(16), report.design.bodyWidth(), page.signatures);
  for (Section* section : {&notes, &signing}) condense(*section, page.density);
  report.design.groups.front().footer = std::move(notes);
  report.design.reportFooter = std::move(signing);
}

// The foot of a page names the document where other reports name the user: the maker stands below the totals.
Section foot(Report& report, const PaperTexts& texts) {
  Section section = pageFoot(report, texts.letterhead, report.design.bodyWidth());
  report.variables["PrintByLbl"] = texts.number + " " + texts.docno;
  return section;
}

}  // namespace

Report paperOnPages(const PaperPage& page, const PaperTexts& texts, const std::shared_ptr<const ReportData>& lines) {
  Report report = paperReport(texts, lines, page.paper, page.margins);
  const Twips width = report.design.bodyWidth();
  // The size is asked of the text as it will stand, after the density.
  const FittedColumns fitted = fitColumns(page.columns, *lines, width, LeastDescription, page.tableSize);
  const std::vector<ColumnPlace> columns = placeColumns(fitted.columns, width);
  const Density table{page.density.lengths, fitted.size / TableFont.size};

  Section head{.name = "Section2"};
  if (texts.headStyle == HeadStyle::Company) addCompanyHead(report, head, texts.letterhead);
  addPaperTitle(head, width);
  Section party = partySection(report, page, texts);
  Section headings{.name = "TableHead", .height = mm(3), .repeat = Repeat::AboveRows};
  addColumnHeadings(headings, columns, width);
  Section line = tableLine(columns, width);
  Section totals = closing(report, page, texts, columns);
  Section pageEnd = foot(report, texts);

  for (Element& element : totals.elements)  // the sums stand in the size of their columns
    if (std::holds_alternative<Function>(element.content))
      element.font.size = TableFont.size * table.fonts / page.density.fonts;
  for (Section* section : {&head, &party, &totals, &pageEnd}) condense(*section, page.density);
  for (Section* section : {&headings, &line}) condense(*section, table);

  report.design.pageHeader = std::move(head);
  report.design.groups = {{.dataMember = DocumentLevel, .header = std::move(party)},
                          {.dataMember = TableLevel, .header = std::move(headings), .footer = std::move(totals)}};
  report.design.detail = std::move(line);
  report.design.pageFooter = std::move(pageEnd);
  if (!texts.notes.empty()) addNotes(report, page, texts);
  return report;
}

}  // namespace velmo::documents
