#include "demo_company/catalogue.h"

#include <cmath>

#include "demo_company/bar_code.h"
#include "demo_company/people.h"
#include "demo_company/product_families.h"
#include "store/recordset/recordset.h"

namespace velmo::demo {
namespace {

struct Item {
  std::string code;
  std::string name;
  std::string description = {};
  int brand = 1;
  std::string rack = {};
  double cost = 0;
  double price = 0;
  int packPieces = 1;
  std::string unit;
  double reorderLevel = 0;
  bool goods = true;
  std::string category;
  std::string subCategory;
};

double toFiveCents(double amount) {
  return std::ceil(amount * 20 - 1e-9) / 20;
}

void addItem(store::Recordset& items, const Item& item) {
  items.addNew({
      {"ItemCode", item.code},
      {"ItemName", item.name},
      {"Description", item.description},
      {"BrandID", item.brand},
      {"Rack", item.rack},
      {"PurchasePrice", item.cost},
      {"SellingPrice", item.price},
      {"SellingPrice2", toFiveCents(item.price * 0.95)},
      {"SellingPrice3", toFiveCents(item.price * 0.90)},
      {"PackPcs", static_cast<double>(item.packPieces)},
      {"Unit", item.unit},
      {"ReorderLevel", item.reorderLevel},
      {"ValuationCost1", item.cost},
      {"ValuationCost2", item.cost},
      {"ValuationType", item.goods},
      {"Status", false},
      {"CatID", item.category},
      {"SubCatID", item.subCategory},
  });
}

// Each size costs about a fifth more than the one before.
double costOfSize(const ProductFamily& family, std::size_t size) {
  return toFiveCents(family.cost * std::pow(1.22, static_cast<double>(size)));
}

class CatalogueWriter {
 public:
  CatalogueWriter(store::Connection& connection, Dice& dice)
      : categories_(connection, "select * from StockLevel1"),
        subCategories_(connection, "select * from StockLevel2"),
        items_(connection, "select * from StockLevel3"),
        dice_(dice) {}

  void writeGoods() {
    for (const ProductCategory& category : productCategories()) {
      categories_.addNew({{"CatID", std::string(category.id)}, {"CatName", std::string(category.name)}});
      int number = 0;
      for (const ProductGroup& group : category.groups) {
        const std::string subCategory = std::string(category.id) + "0" + std::to_string(++number);
        subCategories_.addNew(
            {{"SubCatID", subCategory}, {"SubCatName", std::string(group.name)}, {"CatID", std::string(category.id)}});
        for (const ProductFamily& family : group.families) writeFamily(family, std::string(category.id), subCategory);
      }
    }
  }

  void writeServices() {
    for (const ServiceOffer& service : serviceOffers())
      addItem(items_, {.code = std::string(service.code),
                       .name = std::string(service.name),
                       .price = service.price,
                       .unit = std::string(service.unit),
                       .goods = false,
                       .category = "Service",
                       .subCategory = "Service01"});
  }

 private:
  void writeFamily(const ProductFamily& family, const std::string& category, const std::string& subCategory) {
    const int brand = dice_.between(2, brandCount);
    for (std::size_t size = 0; size < sizesOfFamily; ++size) {
      const double cost = costOfSize(family, size);
      addItem(items_, {.code = articleNumber(++lastArticle_),
                       .name = std::string(family.name) + " " + std::string(family.sizes[size]),
                       .description = std::string(family.name) + ", pack of " + std::to_string(family.packPieces),
                       .brand = brand,
                       .rack = std::string(1, static_cast<char>('A' + dice_.between(0, 7))) + "-" +
                               std::to_string(dice_.between(1, 24)),
                       .cost = cost,
                       .price = toFiveCents(cost * 1.38),
                       .packPieces = family.packPieces,
                       .unit = std::string(family.unit),
                       .reorderLevel = dice_.between(1, 6) * 10.0,
                       .category = category,
                       .subCategory = subCategory});
    }
  }

  store::Recordset categories_;
  store::Recordset subCategories_;
  store::Recordset items_;
  Dice& dice_;
  std::int64_t lastArticle_ = 1000;
};

}  // namespace

void writeCatalogue(store::Connection& connection, Dice& dice) {
  CatalogueWriter writer(connection, dice);
  writer.writeGoods();
  writer.writeServices();
}

}  // namespace velmo::demo
