#include <sqlite3.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "attack/company_at_risk.h"
#include "attack/risk_places.h"
#include "masters/import_plan.h"
#include "masters/import_write.h"
#include "schema/company_file.h"
#include "store/back_up.h"

namespace velmo::attack {
namespace {

void saveSteps(Cashier& cashier) {
  for (int i = 0; i < 4; ++i) cashier.step();
}

void recover() {
  store::Connection connection(schema::companyCatalog());
  connection.open(schema::plainConnectionString);
}

void importAccounts(Cashier& cashier) {
  const masters::ImportDescriptor& kind = masters::importDescriptor(masters::ImportKind::Customers);
  spreadsheet::Sheet sheet{.name = "List", .rows = {{"Name", "Sub type"}}};
  for (int i = 0; i < importedAccounts; ++i) sheet.rows.push_back({"Imported " + std::to_string(i), "12001"});
  const auto plan = masters::planImport(kind, sheet, masters::guessMapping(kind, sheet), {},
                                        masters::readBooks(cashier.connection(), kind));
  if (!plan || !masters::writeImport(cashier.connection(), *plan)) std::abort();
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

const std::vector<Work>& works() {
  static const std::vector<Work> all = {
      {.name = "Saving", .working = saveSteps},
      {.name = "IdleCheckpoint",
       .documentsBefore = 100,
       .working = [](Cashier& cashier) { cashier.connection().checkpoint(); }},
      {.name = "Recovery", .documentsBefore = 40, .opening = recover},
      {.name = "Upgrade", .firstVersion = true, .opening = startProgram},
      {.name = "BackUp", .working = [](Cashier&) { backUp(); }},
      {.name = "Import", .working = importAccounts},
  };
  return all;
}

}  // namespace velmo::attack
