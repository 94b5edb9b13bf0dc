#include "documents/count/count_book.h"

#include <map>
#include <set>
#include <unordered_map>

#include "store/recordset/forward_reader.h"
#include "text/decimal_sum.h"

namespace velmo::documents {

namespace {

struct Moved {
  text::DecimalSum book, since;
};

std::string lowerCase(std::string_view code) {
  std::string lower(code);
  for (char& letter : lower)
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  return lower;
}

std::string linesStatement(const CountPlace& place) {
  return "SELECT StockFlow.ItemCode, StockFlow.StockIn, StockFlow.StockOut, Transactions.TranNo, "
         "Transactions.TranType, Transactions.DocNo, Transactions.TranDate, Transactions.TimeAdded, "
         "Transactions.TimeEdited, Transactions.Cancel FROM Transactions INNER JOIN StockFlow ON Transactions.TranNo = "
         "StockFlow.TranNo WHERE ((Transactions.FYID)=" +
         std::to_string(place.FYID) +
         ") AND ((Transactions.InvLedger)=No) AND ((StockFlow.LocationID)=" + std::to_string(place.locationId) + ")";
}

bool isBehind(const store::Value& time, const text::DateTime& moment) {
  const auto* at = std::get_if<text::DateTime>(&time);
  return at && *at > moment;
}

std::unordered_map<std::string, Moved> readLines(store::Connection& connection, const CountPlace& place,
                                                 std::vector<LaterDocument>& later) {
  std::unordered_map<std::string, Moved> moved;
  std::set<std::int64_t> noted;
  store::ForwardReader lines(connection, linesStatement(place));
  enum Field { ItemCode, StockIn, StockOut, TranNo, TranType, DocNo, TranDate, TimeAdded, TimeEdited, Cancel };
  while (lines.next()) {
    const bool added = isBehind(lines.value(TimeAdded), place.moment);
    if ((added || isBehind(lines.value(TimeEdited), place.moment)) && noted.insert(lines.integer(TranNo)).second)
      later.push_back({static_cast<int>(lines.integer(TranType)), lines.integer(DocNo)});
    const bool comesToPass = added || !isBehind(lines.value(TranDate), place.moment);
    if (lines.integer(Cancel) != 0 || lines.isNull(ItemCode) || !comesToPass) continue;
    Moved& item = moved[lowerCase(lines.text(ItemCode))];
    text::DecimalSum& sum = added ? item.since : item.book;
    sum += lines.number(StockIn);
    sum -= lines.number(StockOut);
  }
  return moved;
}

}  // namespace

CountBook readBook(store::Connection& connection, const CountPlace& place) {
  CountBook book;
  auto moved = readLines(connection, place, book.later);
  store::ForwardReader items(connection,
                             "SELECT StockLevel3.ItemCode, StockLevel3.ItemName, StockLevel3.Unit, StockLevel3.CatID, "
                             "StockLevel1.CatName, StockLevel3.ValuationCost2, StockLevel3.Status FROM StockLevel1 "
                             "INNER JOIN StockLevel3 ON StockLevel1.CatID = StockLevel3.CatID WHERE "
                             "((StockLevel3.CatID) Not like 'Service') ORDER BY StockLevel3.ItemCode");
  enum Field { ItemCode, ItemName, Unit, CatID, CatName, ValuationCost2, Status };
  while (items.next()) {
    Goods goods{.code = std::string(items.text(ItemCode)),
                .name = std::string(items.text(ItemName)),
                .unit = std::string(items.text(Unit)),
                .categoryId = std::string(items.text(CatID)),
                .category = std::string(items.text(CatName)),
                .cost = items.number(ValuationCost2)};
    if (const auto found = moved.find(lowerCase(goods.code)); found != moved.end()) {
      goods.book = found->second.book.value();
      goods.movedSince = found->second.since.value();
    }
    if (items.integer(Status) == 0 || goods.book != 0) book.goods.push_back(std::move(goods));
  }
  return book;
}

}  // namespace velmo::documents
