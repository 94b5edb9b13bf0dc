#pragma once

#include <optional>
#include <string>
#include <vector>

#include "documents/print/print_source.h"
#include "frame/posting/document_values.h"
#include "printing/report.h"
#include "session/workplace.h"

class QWidget;

namespace velmo::documents {

// A text on the paper: its element, its caption and the column of Transactions that holds it.
struct PaperField {
  std::string name;
  std::string caption;
  std::string column;
};

// What challans and gate passes say of the carriage, and what is remarked on passes.
std::vector<PaperField> transport();
PaperField remarks();

// Paper that bears the company's head already: what of LoginContext asks for it, and where the page begins on it.
struct LetterheadSetting {
  int session::LoginContext::*format;
  int onLetterhead;                       // the format's value for such paper
  int session::LoginContext::*topMargin;  // Twips below the paper's edge
};

// How one kind of quotation, order, challan or gate pass differs from the others on paper.
struct OrderPrint {
  std::string title = {};    // of the report
  std::string heading = {};  // on paper
  std::string number = {};   // what the document's number is called
  std::string party = "Customer";
  std::string quantity = "stockout";             // field of the lines
  std::vector<PaperField> references = {};       // beside the party, below number, date and terms of payment
  std::vector<PaperField> across = {};           // in one row below the party
  std::vector<PaperField> notes = {};            // below the figures
  std::optional<PaperField> standingTerms = {};  // the company's own, below the notes: a column of BusinessInfo
  std::string total = "Net Total  ";
  std::vector<std::string> signatures = {"Authorised Signature"};
  std::optional<LetterheadSetting> letterhead = {};
};

printing::Report orderPrint(const OrderPrint& print, const PrintSource& source);

// Shows it of LoginContext::PrintRS.
void showOrder(const OrderPrint& print, session::Workplace& workplace, const frame::DocumentValues& onScreen,
               QWidget* screen);

}  // namespace velmo::documents
