#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/document_type.h"

// What invoices, bills and returns have in common.
namespace velmo::documents {

// Tests that the documents share with words of their own; the title is "Cannot Save".
frame::ValidationStep headAccountChosen(std::string_view words);
frame::ValidationStep partyChosen(std::string_view words);
// A party that is not known by name owes nothing and is owed nothing.
frame::ValidationStep cashPartySettles(std::string_view partyCode, std::string_view words);
frame::ValidationStep fieldFilled(std::string_view field, std::string_view words);
frame::ValidationStep fieldNumeric(std::string_view field, std::string_view words);

// The columns of accounts and amounts.
void writeTradeHeader(const frame::DocumentValues& values, frame::HeaderRow& row);

// Every return follows the setting of the purchase bill; a rate adjustment (index 1 of `NoteType`) never moves stock.
bool returnLeavesStock(const frame::DocumentValues& values, const session::LoginContext& context);

// Figures as the open items take them.
double netTotalOf(const frame::DocumentValues& values);
double receivedOf(const frame::DocumentValues& values);
double balanceOf(const frame::DocumentValues& values);

}  // namespace velmo::documents
