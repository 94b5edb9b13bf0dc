#include "masters/stock_list3_print.h"

#include "masters/list_sheet.h"
#include "printing/recordset_data.h"

namespace velmo::masters {

printing::Report stockList3Print(const session::LoginContext& context, const store::Recordset& rows,
                                 text::DateTime today) {
  const ListSheet sheet{.title = "Items of a Brand",
                        .levels = {{.dataMember = "Level1", .nameField = "brandname"}},
                        .dataMember = "level3",
                        .columns = {codeColumn("Item Code", "itemcode"),
                                    {.heading = "Item Name", .dataField = "itemname"},
                                    priceColumn(context, "sellingprice")},
                        .counted = "Items"};
  return listReport(context, sheet, std::make_shared<printing::RecordsetData>(rows), today);
}

}  // namespace velmo::masters
