#include "schema/company_tables.h"

namespace velmo::schema {

using enum store::ColumnType;

std::vector<store::Table> inventoryTables() {
  return {
      {.name = "StockLevel1", .columns = {{"CatID", Text}, {"CatName", Text}}, .key = {"CatID"}},
      {.name = "StockLevel2",
       .columns = {{"SubCatID", Text}, {"SubCatName", Text}, {"CatID", Text}},
       .key = {"SubCatID"},
       .relations = {{"CatID", "StockLevel1", "CatID"}},
       .indexes = {{"StockLevel2_CatID", {"CatID"}}}},
      {.name = "StockLevel3",
       .columns = {{"ItemCode", Text},
                   {"ItemName", Text},
                   {"Description", Text},
                   {"BrandID", Integer},
                   {"Rack", Text},
                   {"PurchasePrice", Double},
                   {"SellingPrice", Double},
                   {"SellingPrice2", Double},
                   {"SellingPrice3", Double},
                   {"PackPcs", Double},
                   {"Unit", Text},
                   {"ReorderLevel", Double},
                   {"ValuationCost1", Double},
                   {"ValuationCost2", Double},
                   {"ValuationType", YesNo},
                   {"Status", YesNo},
                   {"CatID", Text},
                   {"SubCatID", Text}},
       .key = {"ItemCode"},
       .relations = {{"SubCatID", "StockLevel2", "SubCatID"}},
       .indexes = {{"StockLevel3_SubCatID", {"SubCatID", "ItemCode"}}}},
      {.name = "Brands",
       .columns = {{.name = "BrandID", .type = Integer, .autoNumber = true}, {"BrandName", Text}},
       .key = {"BrandID"}},
      {.name = "StockLocation",
       .columns = {{.name = "LocationID", .type = Integer, .autoNumber = true}, {"LocationName", Text}},
       .key = {"LocationID"}},
  };
}

}  // namespace velmo::schema
