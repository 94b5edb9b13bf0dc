#include "schema/company_schema.h"

#include "schema/company_tables.h"

namespace velmo::schema {

const store::Catalog& companyCatalog() {
  static const store::Catalog catalog = [] {
    std::vector<store::Table> tables;
    // Parents stand before their children.
    for (auto group : {accountTables(), documentTables(), inventoryTables(), peopleTables(), settingTables()})
      for (store::Table& table : group) tables.push_back(std::move(table));
    return store::Catalog(std::move(tables),
                          {accountTotals(), stockTotals(), receiptTotals(), placeTotals(), kindTotals()},
                          {openInvoices(), openBills()});
  }();
  return catalog;
}

}  // namespace velmo::schema
