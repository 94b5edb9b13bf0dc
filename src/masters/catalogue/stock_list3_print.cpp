#include "masters/catalogue/stock_list3_print.h"

#include "printing/list_sheet.h"
#include "printing/recordset_data.h"

namespace velmo::masters {

printing::Report stockList3Print(const session::LoginContext& context, const store::Recordset& rows,
                                 text::DateTime today) {
  const printing::ListSheet sheet{.title = "Items of a Brand",
                                  .levels = {{.dataMember = "Level1", .nameField = "brandname"}},
                                  .dataMember = "level3",
                                  .columns = {printing::codeColumn("Item Code", "itemcode"),
                                              {.heading = "Item Name", .dataField = "itemname"},
                                              printing::priceColumn(context, "sellingprice")},
                                  .counted = "Items"};
  return printing::listReport(context, sheet, std::make_shared<printing::RecordsetData>(rows), today);
}

}  // namespace velmo::masters
