#include "store/recordset/rows_ahead.h"

#include <gtest/gtest.h>

#include <chrono>

#include "store/small_shop.h"
#include "store/values/error.h"

namespace {

using namespace velmo::store;
using velmo::test::SmallShop;

void addOrders(SmallShop& shop, int count) {
  Connection::Transaction transaction(shop.connection);
  for (int i = 0; i < count; ++i) shop.connection.execute("INSERT INTO Orders (DocNo) VALUES (1)");
  transaction.commit();
}

TEST(RowsAhead, AreThoseOfTheMomentWhenTheyWereAskedFor) {
  SmallShop shop;
  addOrders(shop, 3000);
  const std::string statement = "SELECT OrderNo FROM Orders ORDER BY Amount";
  const std::int64_t before = shop.open(statement).recordCount();
  RowsAhead ahead(shop.connection, statement);
  addOrders(shop, 1);
  EXPECT_EQ(ahead.rows().recordCount(), before);
  EXPECT_EQ(shop.open(statement).recordCount(), before + 1);
  EXPECT_THROW(RowsAhead(shop.connection, "SELECT Nothing FROM Orders").rows(), StoreError);
}

TEST(RowsAhead, AreGivenUpAtOnce) {
  SmallShop shop;
  addOrders(shop, 300);
  const auto began = std::chrono::steady_clock::now();
  { const RowsAhead ahead(shop.connection, "SELECT Count(*) AS Found FROM Orders AS a, Orders AS b, Orders AS c"); }
  EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::milliseconds(500));
}

}  // namespace
