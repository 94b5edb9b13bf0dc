#include "masters/catalogue/stock_list4_print.h"

#include "printing/list_sheet.h"
#include "printing/recordset_data.h"

namespace velmo::masters {

printing::Report stockList4Print(const session::LoginContext& context, const store::Recordset& rows,
                                 text::DateTime today) {
  const printing::ListSheet sheet{.title = "Services",
                                  .levels = {{"Level1", "subcatid", "subcatname"}},
                                  .dataMember = "level3",
                                  .columns = {printing::codeColumn("Service Code", "itemcode"),
                                              {.heading = "Service Name", .dataField = "itemname"},
                                              printing::priceColumn(context, "sellingprice")},
                                  .counted = "Services"};
  return printing::listReport(context, sheet, std::make_shared<printing::RecordsetData>(rows), today);
}

}  // namespace velmo::masters
