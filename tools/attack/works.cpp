#include <sqlite3.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "attack/books_check.h"
#include "attack/company_at_risk.h"
#include "attack/risk_places.h"
#include "masters/import/import_plan.h"
#include "masters/import/import_write.h"
#include "reports/ledgers/running_balances.h"
#include "schema/company_file.h"
#include "session/login.h"
#include "store/upkeep/back_up.h"

namespace velmo::attack {
namespace {

void saveSteps(Cashier& cashier) {
  for (int i = 0; i < 4; ++i) cashier.step();
}

void recover() {
  store::Connection connection(schema::companyCatalog());
  connection.open(schema::plainConnectionString);
}

void changeSteps(Cashier& cashier) {
  for (int i = 0; i < 3; ++i) cashier.changeKnown();
}

void deleteSteps(Cashier& cashier) {
  for (int i = 0; i < 3; ++i) cashier.deleteKnown();
}

}  // namespace

void startProgram() {
  schema::prepareCompanyFile(schema::plainConnectionString, text::DateTime::fromCalendar(2026, 11, 22));
}

void makeFirstVersion() {
  sqlite3* file = nullptr;
  sqlite3_open(companyFile, &file);
  const char* statements =
      "DROP TABLE Settings; DROP INDEX StockLevel3_SubCatID; CREATE INDEX StockLevel3_SubCatID ON StockLevel3 "
      "(SubCatID); PRAGMA user_version = 1";
  const bool made = sqlite3_exec(file, statements, nullptr, nullptr, nullptr) == SQLITE_OK;
  sqlite3_close(file);
  if (!made) throw std::runtime_error("no file of the first version");
}

void backUp() {
  std::filesystem::create_directories(backUpFolder);
  store::backUp(schema::companyCatalog(), {.source = schema::plainConnectionString,
                                           .destination = schema::connectionStringFor(backUpFile),
                                           .newestSchemaVersion = schema::schemaVersion});
}

void importAccounts(store::Connection& books) {
  const masters::ImportDescriptor& kind = masters::importDescriptor(masters::ImportKind::Customers);
  spreadsheet::Sheet sheet{.name = "List", .rows = {{"Name", "Sub type"}}};
  // A sub type has room for a thousand.
  if (numberIn(books.handle(), "select count(*) from AccLevel3 where AccName like 'Imported %'") >
      2L * importedAccounts)
    return;
  static int imports = 0;  // each brings accounts of its own
  const std::string name = "Imported " + std::to_string(::getpid()) + "-" + std::to_string(++imports) + " ";
  for (int i = 0; i < importedAccounts; ++i) sheet.rows.push_back({name + std::to_string(i), "12001"});
  const auto plan =
      masters::planImport(kind, sheet, masters::guessMapping(kind, sheet), {}, masters::readBooks(books, kind));
  if (!plan || !masters::writeImport(books, *plan)) std::abort();
}

void logIn(store::Connection& books) {
  session::cleanUpMasters(books);
  session::saveDefaultLogin(books, 1, 1);
}

void passBalances(store::Connection& books) {
  reports::writeRunningBalances(books, 1);
}

const std::vector<Work>& works() {
  static const std::vector<Work> all = {
      {.name = "Saving", .working = saveSteps},
      {.name = "IdleCheckpoint",
       .documentsBefore = 100,
       .working = [](Cashier& cashier) { cashier.connection().checkpoint(); }},
      {.name = "Recovery", .documentsBefore = 40, .opening = recover},
      {.name = "Upgrade", .firstVersion = true, .opening = startProgram},
      {.name = "BackUp", .working = [](Cashier&) { backUp(); }},
      {.name = "Import", .working = [](Cashier& cashier) { importAccounts(cashier.connection()); }},
      {.name = "Changing", .documentsBefore = 5, .working = changeSteps},
      {.name = "Deleting", .documentsBefore = 5, .working = deleteSteps},
      {.name = "Login", .working = [](Cashier& cashier) { logIn(cashier.connection()); }},
      {.name = "BalancePass",
       .documentsBefore = 40,
       .working = [](Cashier& cashier) { passBalances(cashier.connection()); }},
  };
  return all;
}

}  // namespace velmo::attack
