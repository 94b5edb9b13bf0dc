#pragma once

#include <memory>
#include <string>
#include <vector>

#include "documents/print/print_source.h"
#include "printing/pieces.h"

namespace velmo::documents {

inline constexpr const char* AmountFormat = "#,##0.00; (#,##0.00)";

// A text of any length below the figures, under its heading.
struct PaperNote {
  std::string name = {};  // of the element
  std::string heading = {};
  std::string text = {};
};

// A document with a party and item lines as it stands on paper: texts that are ready to print.
struct PaperTexts {
  std::string title = {};    // of the report
  std::string heading = {};  // on paper
  std::string number = {};   // what the document's number is called: "Invoice No."
  std::string docno = {};
  std::string party = {};  // what the party is called
  std::string partyname = {};
  std::string partyadd = {};
  std::string partytel = {};
  std::vector<printing::Reference> references = {};  // beside the party
  std::vector<printing::Reference> across = {};      // beside each other below the party
  std::string description = "Description";           // heads the names of the items
  std::string currencyCode = {};
  std::vector<printing::Total> totals = {};
  std::string words = {};  // the amount in words
  std::vector<PaperNote> notes = {};
  printing::Letterhead letterhead = {};
  printing::HeadStyle headStyle = printing::HeadStyle::Company;
  printing::Twips topMargin = 0;  // from the paper's edge, with OwnLetterhead
  DocumentState state = DocumentState::Valid;
  text::DateTime today = {};
};

// A report of the document without sections yet: title, paper, the levels over the lines, and what every layout says.
printing::Report paperReport(const PaperTexts& texts, const std::shared_ptr<const printing::ReportData>& lines,
                             printing::Paper paper, printing::Margins margins);

}  // namespace velmo::documents
