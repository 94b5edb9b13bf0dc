#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmo::test {

// The statements that the screens and print-outs of the program run, with sample values in their open places. The
// values fit the small company of small_company.h, so that most statements find rows.
struct NamedStatement {
  std::string name;
  std::string text;
};
using Statements = std::vector<NamedStatement>;

Statements officeStatements();      // login, users, settings, welcome screen, years, clearing
Statements masterStatements();      // accounts, parties, catalogue, item settings, employees, jobs
Statements documentStatements();    // document screens, lookups, vouchers, opening sheets
Statements findStatements();        // Find screens with each of their conditions
Statements settlementStatements();  // pending and aged invoices and bills, activity
Statements ledgerStatements();      // account ledgers, balances, financial statements
Statements inventoryStatements();   // cost, stock cards, stock balances, serials
Statements tradeStatements();       // sale and purchase reports, analyses, profit, order tracking
const Statements& allStatements();

// The statement itself, or the commands between the braces of a hierarchy, in their order.
std::vector<std::string> commandsOf(std::string_view statement);

// The column names that a select's own text promises: aliases, else the last part of a column's name; "*" is
// left as it stands.
std::vector<std::string> promisedColumns(std::string_view select);

}  // namespace velmo::test
