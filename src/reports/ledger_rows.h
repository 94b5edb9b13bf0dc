#pragma once

#include <string>
#include <vector>

#include "frame/report_rows.h"

namespace velmo::reports {

// The lines of a ledger in their order, with the balance behind each of them in place of the stored one: `Balance`
// without a sign, `Status` "Debit" or "Credit". Null amounts count as 0. The figures stay here; nothing is written.
class LedgerRows : public frame::RecordsetRows {
 public:
  LedgerRows(store::Recordset lines, double broughtForward);

  void read(int rows) override;
  store::Value value(std::int64_t row, int field) const override;
  // Behind the last line that was read, with its sign; the amount brought forward before the first.
  double balance() const { return balances_.empty() ? broughtForward_ : balances_.back(); }

 private:
  void carryOn();

  double broughtForward_;
  int debit_;
  int credit_;
  int balance_;
  int status_;
  std::vector<double> balances_;  // with their signs
};

}  // namespace velmo::reports
