#include "schema/first_rows.h"

#include "schema/financial_year.h"

namespace velmo::schema {
namespace {

constexpr int administrator = 1;
constexpr int firstYear = 1;

}  // namespace

void writeFirstRows(store::Connection& connection, const text::DateTime& now) {
  store::Connection::Transaction transaction(connection);
  writeStatementSections(connection);
  writeChartOfAccounts(connection);
  writeDocumentTypes(connection);
  writeRights(connection);
  writeCurrencies(connection);
  writeHelp(connection);
  writeStandardRows(connection, now);
  const int year = now.calendar().year;
  addFinancialYear(connection, {.id = firstYear,
                                .start = text::DateTime::fromCalendar(year, 1, 1),
                                .end = text::DateTime::fromCalendar(year, 12, 31),
                                .user = administrator,
                                .now = now});
  transaction.commit();
}

}  // namespace velmo::schema
