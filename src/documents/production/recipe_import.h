#pragma once

#include <cstdint>
#include <string>
#include <tl/expected.hpp>
#include <vector>

#include "store/recordset/recordset.h"

namespace velmo::documents {

struct RecipeLine {
  std::string itemCode;
  store::Value itemName;
  store::Value unit;
  store::Value rate;  // of the recipe, whatever the item costs today
  double quantity = 0;
  double amount = 0;
};

// What goes into one piece of a product: the lines of all its recipes together, labour and overhead of the recipe whose
// first line is the oldest. How many pieces a recipe was written for does not count.
struct Recipe {
  std::vector<RecipeLine> lines;
  double labour = 0;
  double overhead = 0;
  std::string missing = {};  // the code of a line whose item is no more among the items
};

// Throws StoreError.
Recipe recipeOf(store::Connection& books, const std::string& itemCode);

// What so many pieces need, or the sentence that tells why it cannot be put into a sheet with room for `room` lines.
tl::expected<Recipe, std::string> recipeFor(double pieces, Recipe recipe, std::int64_t room);

// Puts the lines into the sheet, one below another from the row `from` on, in place of what stands there.
void putLines(const Recipe& recipe, store::Recordset& sheet, std::int64_t from);

}  // namespace velmo::documents
