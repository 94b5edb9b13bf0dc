#include "frame/report/report_period.h"

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

const char* sideOf(double balance) {
  return balance < 0 ? "Credit" : "Debit";
}

}  // namespace velmo::frame
