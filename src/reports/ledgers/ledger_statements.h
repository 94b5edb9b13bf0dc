#pragma once

#include <cstdint>
#include <string>

#include "frame/report/report_period.h"

// The statements behind the account ledgers. An empty period filter takes the whole year.
namespace velmo::reports {

// What the account held before a day of the year: `obalance`, debits minus credits. No row when nothing was before.
std::string broughtForwardStatement(std::int64_t account, int fyid, const text::DateTime& from);

// How the database finds the lines of a ledger.
enum class LedgerWalk {
  OfAccount,  // those of the account, which are then sorted
  OfDays      // those of the documents of one day after the other, of which the account's are taken
};

// Empty lines have neither debit nor credit.
enum class LedgerLines { Filled, EmptyToo };

// The account's lines in the order of the ledger, without those of cancelled documents.
std::string ledgerStatement(std::int64_t account, int fyid, const std::string& periodFilter,
                            LedgerWalk walk = LedgerWalk::OfAccount, LedgerLines lines = LedgerLines::Filled);

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

// These accounts by their code, as `AccCode` and `AccountName`.
std::string accountsStatement(const std::string& selection);

}  // namespace velmo::reports
