#pragma once

#include <memory>
#include <string>

#include "documents/print/invoice_print.h"
#include "printing/pieces.h"

namespace velmo::documents {

inline constexpr const char* AmountFormat = "#,##0.00; (#,##0.00)";

// What a kind of document calls itself and its parts on paper.
struct SheetWords {
  std::string title = "Sale Invoice";  // of the report
  std::string heading = "SALE INVOICE";
  std::string number = "Invoice No.";
  std::string party = "Bill To";
  std::string d1 = "Purchase Order No.";
  std::string d2 = "Delivery Challan No.";  // none when empty
  std::string description = "Description";
  std::string received = "Amount Received  ";
};

SheetWords wordsOf(InvoiceKind kind);
// The field of the lines that holds what came in or went out.
std::string quantityFieldOf(InvoiceKind kind);

// An invoice as it stands on paper: texts, and amounts still as numbers.
struct InvoiceSheet {
  printing::Letterhead letterhead = {};
  printing::HeadStyle headStyle = printing::HeadStyle::Company;
  printing::Twips topMargin = 0;  // from the paper's edge, with OwnLetterhead
  std::string currencyCode = {};
  std::string docno = {};
  text::DateTime trandate = {};
  std::string partyname = {};
  std::string partyadd = {};
  std::string partytel = {};
  std::string nature = {};
  std::string d1txt = {};
  std::string d1dttxt = {};
  std::string d2txt = {};
  std::string d2dttxt = {};
  double lineDiscount = 0;  // of all lines
  double discount = 0;      // on the whole
  double carriage = 0;
  double netTotal = 0;
  double received = 0;
  double balance = 0;
  std::string words = {};
  PrintRequest request = {};

  bool isService() const { return request.kind == InvoiceKind::Service; }
};

// Where a layout shows the discounts of the lines. Without a column the lines show what they cost before it, and the
// discount among the totals takes it off with the rest: either way the figures on paper add up.
enum class LineDiscounts { InColumn, AmongTotals };

// Words and formats in which the layouts differ.
struct TotalsStyle {
  std::string discountWord = "Additional Discount  ";
  std::string receivedWord = {};  // "": as the kind of document has it
  std::string amountFormat = AmountFormat;
  std::string discountFormat = AmountFormat;
  LineDiscounts lineDiscounts = LineDiscounts::InColumn;
};

// A report of the invoice without sections yet: title, paper, the levels over the lines, and what every layout says.
printing::Report invoiceReport(const InvoiceSheet& sheet, const std::shared_ptr<const printing::ReportData>& lines,
                               printing::Paper paper, printing::Margins margins);

// From "Additional Discount" to "Balance", labels `Tlbl1` to `Tlbl6`; the label of the table's sums is `Tlbl`.
std::vector<printing::Total> invoiceTotals(const InvoiceSheet& sheet, const TotalsStyle& style);

// Number, date, terms and the references to other documents.
std::vector<printing::Reference> invoiceReferences(const InvoiceSheet& sheet);

}  // namespace velmo::documents
