#include "demo_company/large_masters.h"

#include <array>

#include "demo_company/bar_code.h"
#include "demo_company/prepared_insert.h"
#include "text/number.h"

namespace velmo::demo {
namespace {

constexpr int itemsPerSubCategory = 10000;
constexpr int accountsPerSubType = 900;

constexpr std::array words = {"Steel", "Brass", "Copper", "Rubber", "Nylon", "Timber", "Granite", "Glass",
                              "Pipe",  "Hinge", "Valve",  "Bolt",   "Cable", "Socket", "Bracket", "Panel",
                              "Blue",  "Black", "White",  "Heavy",  "Light", "Long",   "Short",   "Round"};

std::string threeWords(Dice& dice) {
  return std::string(dice.pick(words)) + " " + dice.pick(words) + " " + dice.pick(words);
}

}  // namespace

int accountCode(const AccountRange& range, int index) {
  return (range.firstSubType + index / accountsPerSubType) * 1000 + index % accountsPerSubType + 1;
}

std::string itemCode(int index) {
  return articleNumber(100000 + index);
}

void writeAccounts(sqlite3* database, Dice& dice, const AccountRange& range) {
  PreparedInsert subTypes(database, "AccLevel2", "Level2ID,L2AccName,TypeID");
  PreparedInsert accounts(database, "AccLevel3",
                          "AccCode,AccName,Level1ID,Level2ID,Address,Phone,CreditLimit,CreditTerms,EmpID,SectorID,"
                          "Region1ID,Region2ID,\"Default\",Contact,Branch,AccountTitle,AccountNo,Mobile,Fax,EMail,"
                          "Website,SalesTaxRegnNo,NTN,Remarks");
  for (int index = 0; index < range.count; ++index) {
    const int code = accountCode(range, index);
    if (index % accountsPerSubType == 0)
      subTypes.run(code / 1000, range.name + " " + std::to_string(code / 1000), code / 100000);
    accounts.run(code, threeWords(dice) + " " + std::to_string(index), code / 100000, code / 1000,
                 std::to_string(index) + " High Street", "555-" + std::to_string(index), 0.0, range.terms, 1, 1, 1, 1,
                 0, "", "", "", "", "", "", "", "", "", "", "");
  }
}

void writeItems(sqlite3* database, Dice& dice, int count) {
  PreparedInsert categories(database, "StockLevel1", "CatID,CatName");
  PreparedInsert subCategories(database, "StockLevel2", "SubCatID,SubCatName,CatID");
  PreparedInsert items(database, "StockLevel3",
                       "ItemCode,ItemName,Description,BrandID,Rack,PurchasePrice,SellingPrice,SellingPrice2,"
                       "SellingPrice3,PackPcs,Unit,ReorderLevel,ValuationCost1,ValuationCost2,ValuationType,Status,"
                       "CatID,SubCatID");
  categories.run("G", "Goods");
  std::string subCategory;
  for (int index = 0; index < count; ++index) {
    if (index % itemsPerSubCategory == 0) {
      const int number = index / itemsPerSubCategory + 1;
      subCategory = "G" + std::string(number < 10 ? "0" : "") + std::to_string(number);
      subCategories.run(subCategory, "Goods " + std::to_string(number), "G");
    }
    const double cost = dice.between(50, 9000) / 100.0;
    const auto price = [&](double margin) { return text::roundHalfEven(cost * margin, 2); };
    items.run(itemCode(index), threeWords(dice) + " " + std::to_string(index), "", 1, "", cost, price(1.5), price(1.4),
              price(1.3), 1.0, "Pcs", 0.0, cost, cost, -1, 0, "G", subCategory);
  }
}

}  // namespace velmo::demo
