#include "masters/catalogue/stock_list2_print.h"

#include "printing/list_sheet.h"
#include "printing/recordset_data.h"

namespace velmo::masters {

printing::Report stockList2Print(const session::LoginContext& context, const store::Recordset& rows,
                                 text::DateTime today) {
  using printing::mm;
  const printing::ListSheet sheet{.title = "Price List",
                                  .levels = {{"Level1", "catid", "catname"}, {"level2", "subcatid", "subcatname"}},
                                  .dataMember = "level3",
                                  .columns = {printing::codeColumn("Item Code", "itemcode"),
                                              {.heading = "Item Name", .dataField = "itemname"},
                                              {.heading = "", .dataField = "status", .width = mm(16)},
                                              {.heading = "Unit", .dataField = "unit", .width = mm(16)},
                                              printing::priceColumn(context, "sellingprice")},
                                  .counted = "Items"};
  printing::Report report =
      printing::listReport(context, sheet, std::make_shared<printing::RecordsetData>(rows), today);
  printing::showYesAs(report, "status", "Blocked");
  return report;
}

}  // namespace velmo::masters
