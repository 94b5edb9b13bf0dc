#include "store/recordset/rows_ahead.h"

#include <gtest/gtest.h>

#include <chrono>

#include "store/small_shop.h"
#include "store/values/error.h"

namespace {

using namespace velmo::store;
using velmo::test::SmallShop;

TEST(RowsAhead, AreThoseOfTheMomentWhenTheyWereAskedFor) {
  SmallShop shop;
  const std::string statement = "SELECT Count(*) AS Found FROM Orders";
  const std::int64_t before = shop.open(statement).integer("Found");
  RowsAhead ahead(shop.connection, statement);
  shop.connection.execute("INSERT INTO Orders (DocNo) VALUES (1)");
  EXPECT_EQ(ahead.take().integer("Found"), before);
  EXPECT_EQ(shop.open(statement).integer("Found"), before + 1);
  EXPECT_THROW(RowsAhead(shop.connection, "SELECT Nothing FROM Orders").take(), StoreError);
}

TEST(RowsAhead, AreGivenUpAtOnce) {
  SmallShop shop;
  for (int i = 0; i < 300; ++i) shop.connection.execute("INSERT INTO Orders (DocNo) VALUES (1)");
  const auto began = std::chrono::steady_clock::now();
  { const RowsAhead ahead(shop.connection, "SELECT Count(*) AS Found FROM Orders AS a, Orders AS b, Orders AS c"); }
  EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::milliseconds(500));
}

}  // namespace
