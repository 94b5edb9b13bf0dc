#include "documents/print/invoice_page.h"

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

Section partySection(Report& report, const InvoicePage& page, const InvoiceSheet& sheet) {
  Section section{.name = "Section4", .keep = Keep::MayBreak};
  Twips lowest = addParty(section, wordsOf(sheet.request.kind).party, page.partyWidth);
  const std::vector<Reference> references = invoiceReferences(sheet);
  const auto count = static_cast<std::ptrdiff_t>(references.size());
  const auto perColumn = count / page.referenceColumns;  // the last column takes what is over
  const Twips room = report.design.bodyWidth() - page.partyWidth;
  const Twips step = room / page.referenceColumns;
  for (std::ptrdiff_t column = 0; column < page.referenceColumns; ++column) {
    const auto first = references.begin() + column * perColumn;
    const auto last = column + 1 == page.referenceColumns ? references.end() : first + perColumn;
    const Twips left = page.partyWidth + static_cast<Twips>(column) * step + Gap;
    lowest = std::max(
        lowest, addReferences(report, section, {left, 0, step - Gap, RowHeight}, page.referenceCaption, {first, last}));
  }
  section.height = lowest;
  return section;
}

// Words, maker and signature beside or below the totals.
Section closing(Report& report, const InvoicePage& page, const InvoiceSheet& sheet,
                const std::vector<ColumnPlace>& columns) {
  const Twips width = report.design.bodyWidth();
  const Twips left = width - TotalsWidth - Gap;
  Section foot{.name = "Section5"};
  addTotalsRow(foot, columns, width, "Tlbl");
  const Twips top = foot.height + mm(2);
  const Twips lowest = addTotals(report, foot, top, width, invoiceTotals(sheet, page.totals));
  foot.elements.push_back({.at = {0, top + mm(1), left, mm(3.6)},
                           .content = Label{"Amount in Words"},
                           .font = {.size = 7.5},
                           .colour = ink::Quiet});
  foot.elements.push_back({.name = "wrdslbl", .at = {0, top + mm(4.8), left, mm(4.4)}, .font = {.size = 9}});

  const bool beside = page.signing == SigningPlace::BesideTotals;
  const Twips line = beside ? lowest - mm(5) : lowest + mm(16);
  const Twips signWidth = mm(48);
  const Twips signLeft = beside ? left - signWidth : width - signWidth;
  foot.elements.push_back({.at = {signLeft, line, signWidth, 0}, .content = Line{10, ink::Quiet}});
  foot.elements.push_back({.at = {signLeft, line + mm(1), signWidth, mm(4)},
                           .content = Label{"Authorised Signature"},
                           .font = {.size = 8},
                           .align = Align::Centre,
                           .colour = ink::Quiet});
  foot.elements.push_back({.name = "printbylbl",
                           .at = {0, line + mm(1), signLeft - Gap, mm(4)},
                           .font = {.size = 8},
                           .colour = ink::Quiet});
  foot.height = line + mm(6);
  return foot;
}

// The foot of a page names the invoice where other reports name the user: the maker stands below the totals.
Section foot(Report& report, const InvoiceSheet& sheet) {
  Section section = pageFoot(report, sheet.letterhead, report.design.bodyWidth());
  report.variables["PrintByLbl"] = wordsOf(sheet.request.kind).number + " " + sheet.docno;
  return section;
}

}  // namespace

Report invoiceOnPages(const InvoicePage& page, const InvoiceSheet& sheet,
                      const std::shared_ptr<const ReportData>& lines) {
  Report report = invoiceReport(sheet, lines, page.paper, page.margins);
  const Twips width = report.design.bodyWidth();
  // The size is asked of the text as it will stand, after the density.
  const FittedColumns fitted = fitColumns(page.columns, *lines, width, LeastDescription, page.tableSize);
  const std::vector<ColumnPlace> columns = placeColumns(fitted.columns, width);
  const Density table{page.density.lengths, fitted.size / TableFont.size};

  Section head{.name = "Section2"};
  if (sheet.headStyle == HeadStyle::Company) addCompanyHead(report, head, sheet.letterhead);
  addPaperTitle(head, width);
  Section party = partySection(report, page, sheet);
  Section headings{.name = "TableHead", .height = mm(3), .repeat = Repeat::AboveRows};
  addColumnHeadings(headings, columns, width);
  Section line = tableLine(columns, width);
  Section totals = closing(report, page, sheet, columns);
  Section pageEnd = foot(report, sheet);

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
  return report;
}

}  // namespace velmo::documents
