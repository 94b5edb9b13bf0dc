#pragma once

#include <cstdint>
#include <string>

#include "frame/report_period.h"

// The statements behind the account ledgers. An empty period filter takes the whole year.
namespace velmo::reports {

// What the account held before a day of the year: `obalance`, debits minus credits. No row when nothing was before.
std::string broughtForwardStatement(std::int64_t account, int fyid, const text::DateTime& from);

// How the database finds the lines of a ledger.
enum class LedgerWalk {
  OfAccount,  // those of the account, which are then sorted
  OfDays      // those of the documents of one day after the other, of which the account's are taken
};

// The account's lines in the order of the ledger. Cancelled documents and empty lines are not among them.
std::string ledgerStatement(std::int64_t account, int fyid, const std::string& periodFilter,
                            LedgerWalk walk = LedgerWalk::OfAccount);

// The lines of the documents of the year that cite a job, in the order of the ledger, without those of cancelled ones.
std::string jobLedgerStatement(std::int64_t job, int fyid);

// The lines of all documents of a period, cancelled ones too, day by day and document by document.
std::string dayBookStatement(int fyid, const frame::ReportPeriod& period);

// Which accounts PrintLedgers takes: a clause on AccLevel3 that begins with " HAVING", or nothing for all of them.
namespace ledgersOf {
std::string mainType(std::int64_t level1Id);
std::string subType(std::int64_t level2Id);
std::string range(std::int64_t from, std::int64_t to);
}  // namespace ledgersOf

// The accounts with their opening balance before a day, their closing balance by SubTransactions.Balance, and their
// lines in the chapter `ChildCmd`.
std::string ledgersHierarchy(int fyid, const std::string& selection, const text::DateTime& openingBefore,
                             const std::string& periodFilter);

}  // namespace velmo::reports
