#pragma once

#include "store/connection/connection.h"
#include "text/date_time.h"

// What an empty company starts with. Each function writes the rows of one subject and expects its tables empty.
namespace velmo::schema {

void writeStatementSections(store::Connection& connection);  // FS, FSNature
void writeChartOfAccounts(store::Connection& connection);    // AccLevel1, AccLevel2, AccLevel3
void writeDocumentTypes(store::Connection& connection);      // TranType
void writeRights(store::Connection& connection);             // UserRights, everything allowed
void writeCurrencies(store::Connection& connection);         // Currencies
void writeHelp(store::Connection& connection);               // HelpIndex
// One user, region, sector, brand, location, employee and service, and the company's settings, which select them.
void writeStandardRows(store::Connection& connection, const text::DateTime& now);

// All of the above and the calendar year that holds `now`, in one transaction.
void writeFirstRows(store::Connection& connection, const text::DateTime& now);

}  // namespace velmo::schema
