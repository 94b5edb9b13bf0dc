#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "store/connection/connection.h"
#include "text/date_time.h"

// What the books hold at a place, before anybody has counted.
namespace velmo::documents {

// Which stock is counted: that of a location in a year, as it was saved up to a moment.
struct CountPlace {
  int FYID = 0;
  std::int64_t locationId = 0;
  text::DateTime moment;

  bool operator==(const CountPlace&) const = default;
};

// An item that is kept in stock.
struct Goods {
  std::string code;
  std::string name;
  std::string unit;
  std::string categoryId;
  std::string category;
  double cost = 0;        // `ValuationCost2`
  double book = 0;        // quantity at the place
  double movedSince = 0;  // what documents brought and took that were saved later
};

// A document of the place that was added or changed later than the moment.
struct LaterDocument {
  int tranType = 0;
  std::int64_t docNo = 0;
};

struct CountBook {
  std::vector<Goods> goods;  // by code: those in use, and others that the place still has
  std::vector<LaterDocument> later;
};

// Documents that are dated behind the day of the moment have not moved anything yet. A document that was changed later
// counts as it stands now. Throws StoreError.
CountBook readBook(store::Connection& connection, const CountPlace& place);

}  // namespace velmo::documents
