#include "masters/catalogue/stock_hierarchies.h"

#include "store/connection/connection.h"

namespace velmo::masters {

namespace {

constexpr const char* EverySubCategory = "select * from stocklevel2 order by subcatid";

std::string inventoryUnder(const std::string& categories, const std::string& subCategories) {
  return "SHAPE {" + categories + "} AS Level1 APPEND ((SHAPE {" + subCategories +
         "} AS Level2 APPEND ({select * from stocklevel3 order by itemcode} AS Level3 RELATE 'subcatID' TO 'subcatID') "
         "AS level3) AS level2 RELATE 'catID' TO 'catID') AS level2";
}

std::string category(const std::string& catId) {
  return "select * from stocklevel1 where catid like " + store::quotedWhole(catId);
}

std::string subCategory(const std::string& subCatId) {
  return "select * from stocklevel2 where subcatid like " + store::quotedWhole(subCatId);
}

std::string servicesUnder(const std::string& subCategories) {
  return "SHAPE {" + subCategories +
         "} AS Level1 APPEND ({select itemcode, itemname, sellingprice, subcatid from stocklevel3 where status = no "
         "order by itemcode} AS Level3 RELATE 'subcatID' TO 'subcatID') AS level3";
}

}  // namespace

std::string wholeInventory() {
  return inventoryUnder("select * from stocklevel1 where catid not like 'Service' order by catid", EverySubCategory);
}

std::string inventoryOfCategory(const std::string& catId) {
  return inventoryUnder(category(catId), EverySubCategory);
}

std::string inventoryOfSubCategory(const std::string& catId, const std::string& subCatId) {
  return inventoryUnder(category(catId), subCategory(subCatId));
}

std::string allServices() {
  return servicesUnder("select * from stocklevel2 where catid like 'Service' order by subcatid");
}

std::string servicesOfSubCategory(const std::string& subCatId) {
  return servicesUnder(subCategory(subCatId));
}

std::string itemsOfBrand(std::int64_t brandId) {
  return "SHAPE {select * from Brands where brandid = " + std::to_string(brandId) +
         "} AS Level1 APPEND ({select itemcode, itemname, sellingprice, Brandid from stocklevel3 where status = no "
         "order by itemcode} AS Level3 RELATE 'brandID' TO 'brandid') AS level3";
}

}  // namespace velmo::masters
