#pragma once

#include <memory>
#include <string>

#include "frame/report/report_rows.h"
#include "printing/pieces.h"
#include "printing/report.h"

namespace velmo::reports {

// What the print-out of one account's ledger shows beside its lines. Amounts are texts as they stand on the screen's
// side of it: formatted.
struct LedgerSheet {
  std::int64_t account = 0;
  std::string accountName = {};
  std::string period = {};          // "Ledger For The Period ..."
  std::string broughtForward = {};  // its words; "" for none
  std::string openingBalance = {};
  std::string openingStatus = {};
  std::string closingBalance = {};
  std::string closingStatus = {};
};

// What a ledger says of its days; each "?" is one.
inline constexpr const char* ledgerEndedOnWords = "Ledger For The Period Ended On  ?";
inline constexpr const char* ledgerFromToWords = "Ledger For The Period From  ?  To  ?";
// "Ledger For The Period Ended On  November 22, 2026", or "Ledger For The Period From  ...  To  ...".
std::string ledgerEndedOn(const text::DateTime& day);
std::string ledgerFromTo(const text::DateTime& from, const text::DateTime& to);

// The columns that ledgers share: date, reference, number, description, debit, credit, balance, status.
std::vector<printing::Column> ledgerColumns(const std::string& currencyCode);

// The layout `AccLedger`.
printing::Report ledgerPrint(const session::LoginContext& context, const LedgerSheet& sheet,
                             std::shared_ptr<frame::ReportRows> lines, text::DateTime today);

}  // namespace velmo::reports
