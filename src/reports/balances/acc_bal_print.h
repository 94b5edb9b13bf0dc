#pragma once

#include <memory>
#include <string>

#include "printing/report.h"
#include "reports/balances/settled_accounts.h"
#include "session/login_context.h"

// The print-outs of balances. `today` is the day of the print-out.
namespace velmo::reports {

// What a print-out shows beside its rows.
struct BalancesSheet {
  std::string reportLabel = "Trial Balance";
  std::string nameHeading = "Account Name";
  std::string dateLine = {};  // "From  April 01, 2026  To  June 30, 2026"
  double opening = 0;         // totals of the six columns, debits less credits
  double closing = 0;
  text::DateTime today = {};
  std::optional<SettledAccounts> settled = {};  // a line of their own below the totals of six columns
};

inline constexpr const char* settledCaption = "Accounts settled in the period";

using BalancesData = std::shared_ptr<const printing::ReportData>;

// `AccBalRpt` and `AccBalRpt2`: the accounts under their types and sub types, in six and in two columns.
printing::Report accBalRpt(const session::LoginContext& context, const BalancesSheet& sheet, BalancesData hierarchy);
printing::Report accBalRpt2(const session::LoginContext& context, const BalancesSheet& sheet, BalancesData hierarchy);

// `AccBalRptRange`, and by their labels `AccBalRptCus`, `AccBalRptSup` and `AccBalRptCash`: six columns without groups.
printing::Report accBalRptRange(const session::LoginContext& context, const BalancesSheet& sheet, BalancesData rows);
// `AccBalRptRange2`: two columns without groups.
printing::Report accBalRptRange2(const session::LoginContext& context, const BalancesSheet& sheet, BalancesData rows);

}  // namespace velmo::reports
