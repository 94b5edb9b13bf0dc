#include "masters/catalogue/chart_of_inventory.h"

#include "frame/master/master_dialog.h"
#include "frame/picking/picker_screen.h"
#include "store/connection/connection.h"

namespace velmo::masters {
namespace {

constexpr const char* byCategory = "StockLevel1.CatName asc, StockLevel3.ItemCode asc";

const frame::PickerType& chartOfInventory() {
  static const frame::PickerType type = {
      .screen = "ChartofInventory",
      .title = "Find an Item",
      .columns = {{.caption = "Code", .field = "StockLevel3.ItemCode", .width = 16},
                  {.caption = "Name", .field = "StockLevel3.ItemName", .width = 40},
                  {.caption = "Category", .field = "StockLevel1.CatName", .width = 20},
                  {.caption = "Sub category", .field = "StockLevel2.SubCatName", .width = 22},
                  {.caption = "Brand", .field = "Brands.BrandName", .width = 16}},
      .key = "StockLevel3.ItemCode",
      .from =
          " FROM ((StockLevel1 INNER JOIN StockLevel2 ON StockLevel1.CatID = StockLevel2.CatID) INNER JOIN "
          "StockLevel3 ON StockLevel2.SubCatID = StockLevel3.SubCatID) INNER JOIN Brands ON StockLevel3.BrandID = "
          "Brands.BrandID WHERE StockLevel3.CatID not like 'Service'",
      .order = "StockLevel3.ItemCode",
      .tables = {"StockLevel1", "StockLevel2", "StockLevel3", "Brands"},
      .headerOrders = {"StockLevel3.ItemCode asc", "StockLevel3.ItemName asc", byCategory, "", byCategory},
  };
  return type;
}

}  // namespace

void pickItem(frame::MasterDialog& dialog) {
  const auto show = [&dialog](const std::string& code) {
    const store::Recordset row(dialog.workplace().context.KORDconn,
                               "select catid, subcatid from stocklevel3 where itemcode = " + store::quoted(code));
    if (!row.isEmpty()) dialog.goTo({row.text("catid"), row.text("subcatid"), code});
  };
  frame::PickerScreen(chartOfInventory(), dialog.workplace(), show, &dialog).exec();
}

}  // namespace velmo::masters
