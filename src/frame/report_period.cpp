#include "frame/report_period.h"

#include <cmath>

#include "text/format.h"

namespace velmo::frame {

ReportPeriod initialPeriod(const session::LoginContext& context, const text::DateTime& today, PeriodStart start) {
  const bool inYear = today >= context.FinancialYearStart && today <= context.FinancialYearEnd;
  return {.from = inYear && start == PeriodStart::Today ? today : context.FinancialYearStart,
          .to = inYear ? today : context.FinancialYearEnd};
}

std::string periodFilter(const ReportPeriod& period) {
  return "(((Transactions.TranDate) >= " + store::dateLiteral(period.from) +
         ") And (Transactions.TranDate) <= " + store::dateLiteral(period.to) + ") And ";
}

std::string dayInWords(const text::DateTime& day) {
  return text::formatDate(day, "mmmm dd, yyyy");
}

namespace {

// Less than this is what adding up leaves of amounts that cancel out: 0.1 + 0.2 - 0.3 is not quite nothing.
constexpr double leastBalance = 0.000001;

}  // namespace

bool isSettled(double balance) {
  return std::fabs(balance) < leastBalance;
}

const char* sideOf(double balance) {
  return balance < 0 && !isSettled(balance) ? "Credit" : "Debit";
}

}  // namespace velmo::frame
