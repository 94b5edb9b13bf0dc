#pragma once

#include <optional>
#include <string>

#include "printing/report_data.h"
#include "reports/ledgers/ledger_rows.h"

namespace velmo::reports {

// Whose ledgers are printed, and of which days.
struct LedgersChoice {
  int fyid = 0;
  std::string selection = {};  // of ledgersOf
  text::DateTime openingBefore = {};
  std::optional<frame::ReportPeriod> period = {};  // nothing: the whole year
  LedgerLengths lengths = {};
};

// The accounts by their code as rows of `ParentCmd`, each with `AccCode`, `AccountName`, `OpBalance`, `OpStatus`,
// `ClBalance` and `ClStatus`, and its lines in the chapter `ChildCmd`. The closing balance is the stored one of the
// account's last line, empty lines included, or else the opening balance. A walk keeps no line behind the one it stands
// on, and reads the file as it was when the object was made.
class LedgersData : public printing::ReportData {
 public:
  LedgersData(const store::Connection& books, LedgersChoice choice);  // throws StoreError

  bool isEmpty() const;
  std::unique_ptr<printing::ReportRows> rows() const override;

 private:
  mutable store::Connection books_;
  LedgersChoice choice_;
};

}  // namespace velmo::reports
