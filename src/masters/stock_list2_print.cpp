#include "masters/stock_list2_print.h"

#include "masters/list_sheet.h"
#include "printing/recordset_data.h"

namespace velmo::masters {

printing::Report stockList2Print(const session::LoginContext& context, const store::Recordset& rows,
                                 text::DateTime today) {
  using printing::mm;
  const ListSheet sheet{.title = "Price List",
                        .levels = {{"Level1", "catid", "catname"}, {"level2", "subcatid", "subcatname"}},
                        .dataMember = "level3",
                        .columns = {codeColumn("Item Code", "itemcode"),
                                    {.heading = "Item Name", .dataField = "itemname"},
                                    {.heading = "", .dataField = "status", .width = mm(16)},
                                    {.heading = "Unit", .dataField = "unit", .width = mm(16)},
                                    priceColumn(context, "sellingprice")},
                        .counted = "Items"};
  printing::Report report = listReport(context, sheet, std::make_shared<printing::RecordsetData>(rows), today);
  showYesAs(report, "status", "Blocked");
  return report;
}

}  // namespace velmo::masters
