#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "documents/trade/trade_kind.h"

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

// The same of a return; a rate adjustment (index 1 of `NoteType`) never moves stock.
void writeReturnHeader(const frame::DocumentValues& values, frame::HeaderRow& row);

// The parties of sales and of purchases, with the command that makes a new one.
PartyRules customers();
PartyRules vendors();
// The second account of sales and of purchases.
HeadRules incomeAccount(std::int64_t initialCode);
HeadRules expenseAccount(std::int64_t initialCode);

// Lines that bring the purchase price along and show the last purchases. The field holds what comes in or goes out.
frame::ItemGridKind purchaseLines(const std::string& quantityField);

// The ledger of what is owed to us, a sale invoice or a purchase return: the money first, the second account last.
std::vector<frame::PostingRow> receivableRows(const frame::FixedAccount& carriage);
// Of what we owe, a purchase bill or a sale return: the reverse.
std::vector<frame::PostingRow> payableRows(const frame::FixedAccount& carriage);

// The open item of an invoice or a bill under its own number.
frame::AgingRow ownOpenItem(const frame::DocumentValues& values);
// Takes a return off the invoice or bill that its fields name; money that went back is a payment below zero.
frame::AgingRow returnedItem(const frame::DocumentValues& values, std::string_view numberField,
                             std::string_view dayField);

// Figures as the open items take them.
double netTotalOf(const frame::DocumentValues& values);
double receivedOf(const frame::DocumentValues& values);
double balanceOf(const frame::DocumentValues& values);

}  // namespace velmo::documents
