#pragma once

#include <string>

#include "session/workplace.h"

namespace velmo::frame {

// Where the from-date of a report stands when its screen opens. The to-date is today within the year, otherwise the
// year's last day.
enum class PeriodStart {
  Today,       // today within the year, otherwise the year's first day
  YearsStart,  // the year's first day
};

// Two days, both of which belong to the period. A period whose end comes before its begin holds nothing.
struct ReportPeriod {
  text::DateTime from;
  text::DateTime to;

  bool operator==(const ReportPeriod&) const = default;
};

ReportPeriod initialPeriod(const session::LoginContext& context, const text::DateTime& today, PeriodStart start);

// The condition on Transactions.TranDate that the statements of reports begin with: "(((... >= #...#) And ...) And ".
std::string periodFilter(const ReportPeriod& period);

// "November 22, 2026", as reports name days.
std::string dayInWords(const text::DateTime& day);

// "0.00;(0.00)" and "#,##0.00;(#,##0.00)": amounts on screens and on paper.
inline constexpr const char* figureFormat = "0.00;(0.00)";
inline constexpr const char* groupedFigureFormat = "#,##0.00;(#,##0.00)";

// "Credit" for a balance below zero, otherwise "Debit".
const char* sideOf(double balance);

}  // namespace velmo::frame
