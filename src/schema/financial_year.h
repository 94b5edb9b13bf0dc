#pragma once

#include "store/connection/connection.h"
#include "text/date_time.h"

namespace velmo::schema {

struct NewFinancialYear {
  int id = 0;
  text::DateTime start;
  text::DateTime end;
  int user = 0;        // who makes it
  text::DateTime now;  // when
};

// "2024-25" for a year that starts in 2024 and ends in 2025.
std::string yearAbbreviation(const text::DateTime& start, const text::DateTime& end);

// Adds the year with its two fixed documents: the opening entry, dated the day before the year, and the closing stock
// entry at its end with two lines of no amount.
void addFinancialYear(store::Connection& connection, const NewFinancialYear& year);

}  // namespace velmo::schema
