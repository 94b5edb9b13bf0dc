#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "frame/items/item_grid_kind.h"
#include "frame/picking/pick_list.h"
#include "store/connection/connection.h"
#include "store/recordset/recordset.h"

namespace velmo::frame {

// An item as the drop list of items offers it.
struct ListedItem {
  std::string code;
  std::string name;
  std::string description;
  std::string unit;
  std::string category;  // "Power Tools (Drills)"
  store::Value price;
};

// The items that are not blocked, as "code  (name)", in the order of their codes.
PickListSource itemSource();

std::optional<ListedItem> listedItem(store::Connection& connection, const ItemGridKind& kind, std::string_view code);

// What came in less what went out over all locations, in the documents of the year that move stock; nothing when
// there was no movement.
std::optional<double> itemBalance(store::Connection& connection, std::string_view code, int FYID);

// As itemBalance(), with the quantity added back that the saved line of this key holds of the item; 0 without movement.
double itemAvailable(store::Connection& connection, std::string_view code, std::int64_t flowId, int FYID);

// The last four lines of the item, of one party or of all, newest first.
store::Recordset itemHistory(store::Connection& connection, const ItemGridKind& kind, std::string_view code,
                             std::optional<std::int64_t> partyCode, int FYID);

}  // namespace velmo::frame
