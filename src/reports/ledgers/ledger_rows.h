#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "frame/report/report_period.h"
#include "frame/report/report_rows.h"
#include "reports/ledgers/ledger_statements.h"
#include "text/decimal_sum.h"

namespace velmo::reports {

// The lines of a ledger in their order, with the balance behind each of them in place of the stored one: `Balance`
// without a sign, `Status` "Debit" or "Credit". Null amounts count as 0. The figures stay here; nothing is written.
class LedgerRows : public frame::ReportRows {
 public:
  using Opener = std::function<store::Recordset()>;

  // Lines that follow the others may be opened when these have been read.
  LedgerRows(store::Recordset lines, double broughtForward, Opener following = {});

  std::int64_t ready() const override { return static_cast<std::int64_t>(balances_.size()); }
  bool hasMore() const override;
  bool pauses() const override { return !lines_.hasMoreRows() && openFollowing_; }
  void read(int rows) override;
  int field(std::string_view name) const override { return lines_.fieldIndex(name); }
  store::Value value(std::int64_t row, int field) const override;
  // As it stands in the file, the balance as well.
  store::Value stored(std::int64_t row, int field) const;
  // Behind the last line that was read, with its sign; the amount brought forward before the first.
  double balance() const { return running_.value(); }

 private:
  void carryOn();

  store::Recordset lines_;
  std::optional<store::Recordset> following_;
  Opener openFollowing_;
  text::DecimalSum running_;
  int debit_;
  int credit_;
  int balance_;
  int status_;
  std::vector<double> balances_;  // with their signs
};

// What the account held before a day of the year, debits minus credits; nothing when nothing was before. Throws
// StoreError.
std::optional<double> broughtForward(store::Connection& connection, std::int64_t account, int fyid,
                                     const text::DateTime& from);

struct LedgerChoice {
  std::int64_t account = 0;
  int fyid = 0;
  std::optional<frame::ReportPeriod> period = {};  // nothing: the whole year
  LedgerLines lines = LedgerLines::Filled;
};

// Lines of an account.
struct LedgerLengths {
  std::int64_t few = 512;          // are found at once in whatever way
  std::int64_t shortWait = 16384;  // are sorted before one notices
  std::int64_t longWait = 262144;  // are sorted in half a second
  std::int64_t firstSight = 512;   // are to be seen to begin with, if the year goes evenly,
  std::int64_t firstPage = 64;     // and these anyhow
};

// Opens a ledger in the way that suits its length: its first lines are there soon, however many follow. Throws
// StoreError.
std::shared_ptr<LedgerRows> openLedger(store::Connection& connection, const LedgerChoice& choice, double broughtForward,
                                       const LedgerLengths& lengths = {});

// The statement of a ledger that is read line by line: it does not wait in the middle of a long one, though the last
// line comes later. Throws StoreError.
std::string evenLedgerStatement(store::Connection& connection, const LedgerChoice& choice,
                                const LedgerLengths& lengths = {});

}  // namespace velmo::reports
