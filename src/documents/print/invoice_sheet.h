#pragma once

#include <string>

#include "documents/print/invoice_print.h"
#include "documents/print/paper_texts.h"

namespace velmo::documents {

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

// What a print-out is asked to be beyond the stored document.
struct PrintRequest {
  InvoiceKind kind = InvoiceKind::Sale;
  DocumentState state = DocumentState::Valid;
  text::DateTime today = {};
};

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

  std::string codeHeading() const;    // of the column of item codes
  std::string quantityField() const;  // of the lines, which holds what came in or went out
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

// What stands on paper, with the totals from "Additional Discount" to "Balance", labels `Tlbl1` to `Tlbl6`; the label
// of the table's sums is `Tlbl`.
PaperTexts invoiceTexts(const InvoiceSheet& sheet, const TotalsStyle& style = {});

}  // namespace velmo::documents
