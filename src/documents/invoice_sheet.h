#pragma once

#include <memory>
#include <string>

#include "documents/invoice_print.h"
#include "printing/pieces.h"

namespace velmo::documents {

// An invoice as it stands on paper: texts, and amounts still as numbers.
struct InvoiceSheet {
  printing::Letterhead letterhead = {};
  printing::HeadStyle headStyle = printing::HeadStyle::Company;
  printing::Twips topMargin = 0;  // with OwnLetterhead
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
  double discount = 0;
  double carriage = 0;
  double netTotal = 0;
  double received = 0;
  double balance = 0;
  std::string words = {};
  PrintRequest request = {};
};

// The layout `Invoice` over lines with the fields serial, itemcode, itemname, stockout, unit, rate, grossamt, discamt
// and itemvalue.
printing::Report invoiceReport(const InvoiceSheet& sheet, std::shared_ptr<const printing::ReportData> lines);

}  // namespace velmo::documents
