#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "frame/report_rows.h"

// The rest that sums of binary fractions leave where an account was settled to the cent (0.1 + 0.2 - 0.3) is no
// balance: such an account is not listed, an amount of that kind is 0, and its side is "Debit", on the screen as on
// paper.
namespace velmo::reports {

// The rows of a statement of balances but for those whose balance, the named field, is settled.
class UnsettledRows : public frame::RecordsetRows {
 public:
  UnsettledRows(store::Recordset rows, const std::string& balanceField);

  std::int64_t ready() const override { return static_cast<std::int64_t>(kept_.size()); }
  void read(int rows) override;
  store::Value value(std::int64_t row, int field) const override;

 private:
  void lookAtNew();

  int balance_;
  std::map<int, int> differences_;  // the field with the difference behind a side, by that of the side
  std::int64_t lookedAt_ = 0;
  std::vector<std::int64_t> kept_;
};

// The same of a hierarchy for print, whose innermost rows, in the last of the chapters, are the accounts. What has no
// accounts is left out as well.
std::shared_ptr<const printing::ReportData> withoutSettled(std::shared_ptr<const printing::ReportData> rows,
                                                           std::vector<std::string> chapters, std::string balanceField);

}  // namespace velmo::reports
