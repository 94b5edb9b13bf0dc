#pragma once

#include "documents/print/paper_texts.h"
#include "documents/print/print_columns.h"

namespace velmo::documents {

enum class SigningPlace { BesideTotals, BelowTotals };

// How one layout of a document on sheets of paper differs from the others. Lengths across are Twips as they stand on
// paper; those down the page are the A4 sheet's, taken by the density.
struct PaperPage {
  printing::Paper paper = printing::A4;
  printing::Margins margins = {printing::mm(10), printing::mm(12), printing::mm(10), printing::mm(10)};
  Density density = {};
  std::vector<printing::Column> columns = {};
  double tableSize = printing::TableFont.size;  // points, where the figures leave it so
  printing::Twips partyWidth = printing::mm(104);
  printing::Twips referenceCaption = printing::mm(33);  // width
  int referenceColumns = 1;
  SigningPlace signing = SigningPlace::BelowTotals;
  std::vector<std::string> signatures = {"Authorised Signature"};
};

// A document on sheets: company and title on every page, then the party and the references once, the table with its
// headings on every page, the totals with the amount in words, the notes, and who signs. `lines` have the fields of the
// columns.
printing::Report paperOnPages(const PaperPage& page, const PaperTexts& texts,
                              const std::shared_ptr<const printing::ReportData>& lines);

}  // namespace velmo::documents
