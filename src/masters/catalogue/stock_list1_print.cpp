#include "masters/catalogue/stock_list1_print.h"

#include "printing/list_sheet.h"
#include "printing/recordset_data.h"

namespace velmo::masters {

printing::Report stockList1Print(const session::LoginContext& context, const store::Recordset& rows,
                                 text::DateTime today) {
  using printing::mm;
  const printing::ListSheet sheet{.title = "Chart of Inventory",
                                  .levels = {{"Level1", "catid", "catname"}, {"level2", "subcatid", "subcatname"}},
                                  .dataMember = "level3",
                                  .columns = {printing::codeColumn("Item Code", "itemcode"),
                                              {.heading = "Item Name", .dataField = "itemname"},
                                              {.heading = "Description", .dataField = "description", .width = mm(46)},
                                              {.heading = "Unit", .dataField = "unit", .width = mm(16)},
                                              {.heading = "Rack", .dataField = "rack", .width = mm(20)},
                                              {.heading = "Status", .dataField = "status", .width = mm(16)}},
                                  .counted = "Items"};
  printing::Report report =
      printing::listReport(context, sheet, std::make_shared<printing::RecordsetData>(rows), today);
  printing::showYesAs(report, "status", "Blocked");
  return report;
}

}  // namespace velmo::masters
