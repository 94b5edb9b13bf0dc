#include "frame/posting/item_lines.h"

#include "store/values/value.h"

namespace velmo::frame {

void openSheet(store::Connection& connection, store::Recordset& sheet, std::int64_t tranNo, const SheetShows& shows) {
  if (sheet.isOpen()) sheet.close();
  std::string statement = "Select * from stockflow where tranno = " + std::to_string(tranNo);
  if (tranNo != 0 && !shows.condition.empty()) statement += " and " + std::string(shows.condition);
  if (tranNo != 0) statement += " order by serial";
  sheet.open(connection, statement, store::LockType::BatchOptimistic);
  fillSheet(sheet, shows.rows);
}

void fillSheet(store::Recordset& sheet, std::int64_t rows) {
  while (sheet.recordCount() < rows) {
    sheet.addNew();
    sheet.update();
  }
  sheet.moveFirst();
}

std::string lineNarrations(const store::Recordset& sheet, std::string_view quantityField,
                           std::string_view currencyCode) {
  const int code = sheet.fieldIndex("itemcode");
  const int name = sheet.fieldIndex("itemname");
  const int quantity = sheet.fieldIndex(quantityField);
  const int unit = sheet.fieldIndex("unit");
  const int rate = sheet.fieldIndex("rate");
  const int value = sheet.fieldIndex("itemvalue");
  std::string narrations;
  const std::int64_t count = sheet.recordCount();
  for (std::int64_t row = sheet.nextFilled(0, code); row < count; row = sheet.nextFilled(row + 1, code)) {
    const auto show = [&](int field) { narrations += store::textOf(sheet.valueAt(row, field)); };
    narrations += '(';
    show(name);
    narrations += " - ";
    show(quantity);
    narrations += ' ';
    show(unit);
    narrations += " @";
    narrations += currencyCode;
    show(rate);
    narrations += " =Rs.";  // these words stand in the books whatever the company's currency
    show(value);
    narrations += ") ";
  }
  return narrations;
}

void writeLines(store::Recordset& sheet, const LineStamp& stamp) {
  std::int64_t serial = 0;
  sheet.removeBlank("itemcode");
  // In the order of the table, in which names are found soonest.
  for (; !sheet.eof(); sheet.moveNext())
    sheet.update({{"TranNo", stamp.tranNo},
                  {"Serial", ++serial},
                  {"Packs", 1.0},
                  {"PackPcs", 1.0},
                  {"LocationID", stamp.locationId},
                  {"JobID", stamp.jobId}});
  sheet.updateBatch();
}

}  // namespace velmo::frame
