#include "documents/stock/stock_lines.h"

#include "frame/posting/item_lines.h"

namespace velmo::documents {

frame::ItemGridKind stockLines(const char* quantityField, const char* priceField, const char* priceCaption) {
  return {.quantityField = quantityField,
          .priceField = priceField,
          .priceCaption = priceCaption,
          .grossCaption = "Amount",
          .netCaption = "Value Excl. Tax",
          .serialNumbers = frame::SerialNumbers::Kept,
          .history = frame::ItemHistory::None,
          .rules = {.codes = frame::LineCodes::ItemsOnly, .figures = frame::FigureRange::WithinLimits}};
}

void writeStockLines(store::Connection& connection, store::Recordset& sheet, StockMovement movement,
                     const frame::DocumentValues& values, std::int64_t tranNo) {
  frame::writeLines(sheet, {.tranNo = tranNo, .locationId = values.LocationList.id, .jobId = values.JobList.id});
  if (movement == StockMovement::BetweenPlaces)
    writeArrivals(connection, tranNo, values.LocationListTo.id, values.JobListTo.id);
}

void writeArrivals(store::Connection& connection, std::int64_t tranNo, std::int64_t locationId, std::int64_t jobId) {
  const std::string document = std::to_string(tranNo);
  connection.execute("delete from stockflow where tranno = " + document + " and stockin is not null");
  connection.execute(
      "insert into stockflow (tranno, serial, itemcode, itemname, ProductSerials, Packs, PackPcs, stockin, unit, rate, "
      "grossamt, discrate, discamt, itemvalue, locationid, Jobid) select tranno, serial, itemcode, itemname, "
      "ProductSerials, Packs, PackPcs, stockout, unit, rate, grossamt, discrate, discamt, itemvalue, " +
      std::to_string(locationId) + ", " + std::to_string(jobId) + " from stockflow where tranno = " + document +
      " and stockout is not null order by serial");
}

}  // namespace velmo::documents
