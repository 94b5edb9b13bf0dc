#pragma once

#include "documents/print/invoice_sheet.h"
#include "documents/print/print_columns.h"

namespace velmo::documents {

enum class SigningPlace { BesideTotals, BelowTotals };

// How one layout of an invoice on sheets of paper differs from the others. Lengths across are Twips as they stand on
// paper; those down the page are the A4 sheet's, taken by the density.
struct InvoicePage {
  printing::Paper paper = printing::A4;
  printing::Margins margins = {};
  Density density = {};
  std::vector<printing::Column> columns = {};
  TotalsStyle totals = {};
  double tableSize = printing::TableFont.size;  // points, where the figures leave it so
  printing::Twips partyWidth = 0;
  printing::Twips referenceCaption = 0;  // width
  int referenceColumns = 1;
  SigningPlace signing = SigningPlace::BelowTotals;
};

// An invoice on sheets: company and title on every page, then the party and the references once, the table with its
// headings on every page, and the totals with the amount in words. `lines` have the fields of the columns.
printing::Report invoiceOnPages(const InvoicePage& page, const InvoiceSheet& sheet,
                                const std::shared_ptr<const printing::ReportData>& lines);

}  // namespace velmo::documents
