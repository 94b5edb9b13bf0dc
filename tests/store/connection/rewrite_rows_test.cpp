#include "store/connection/rewrite_rows.h"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>
#include <vector>

#include "store/small_shop.h"

namespace {

using namespace velmo;
using namespace velmo::store;
using namespace velmo::test;

constexpr std::array<std::string_view, 4> columns{"Party", "Amount", "Day", "Cancel"};

class RewriteRows : public testing::Test {
 protected:
  RewriteRows() {
    shop.addOrders(9);
    shop.connection.execute("DELETE FROM Orders WHERE OrderNo = 4");
  }
  // Party, amount, day and mark of each order, one behind the other.
  std::string orders() {
    Recordset rows = shop.open("SELECT * FROM Orders ORDER BY OrderNo", LockType::ReadOnly);
    return column(rows, "Party") + " " + column(rows, "Amount") + " " + column(rows, "Day") + " " +
           column(rows, "Cancel");
  }
  RowsToRewrite named() {
    return {.count = keys.size(),
            .keyOf = [this](std::size_t row) { return keys[row]; },
            .valueOf = [this](std::size_t row, std::size_t at) -> Value {
              if (at == 0) return keys[row] == 6 ? Value(Null{}) : Value("O'N\"" + std::to_string(keys[row]));
              if (at == 1) return static_cast<double>(keys[row]) / 8;
              if (at == 2) return text::DateTime::fromCalendar(2026, 11, static_cast<int>(keys[row]));
              return true;
            }};
  }

  SmallShop shop;
  std::vector<std::int64_t> keys = {2, 3, 4, 6, 9, 12};
};

TEST_F(RewriteRows, WritesThoseThatAreThereAndNoOthers) {
  const std::int64_t before = shop.connection.generationOf("Orders");
  Connection::Transaction transaction(shop.connection);
  EXPECT_TRUE(rewriteRows(shop.connection, "orders", columns, named()));
  transaction.commit();
  EXPECT_EQ(orders(),
            "P1,O'N\"2,O'N\"3,P5,,P7,P8,O'N\"9 10,0.25,0.375,50,0.75,70,80,1.125 ,11/2/2026,11/3/2026,,11/6/2026,,,"
            "11/9/2026 False,True,True,False,True,False,False,True");
  EXPECT_EQ(shop.connection.generationOf("Orders"), before + 4);
  EXPECT_TRUE(rewriteRows(shop.connection, "Orders", columns, {}));
}

TEST_F(RewriteRows, WorkThatIsStoppedOrFailsCanBeUndone) {
  const std::string before = orders();
  for (const int most : {0, 1, 3}) {
    int asked = 0;
    RowsToRewrite stopped = named();
    stopped.goesOn = [&] { return asked++ < most; };
    Connection::Transaction transaction(shop.connection);
    EXPECT_FALSE(rewriteRows(shop.connection, "Orders", columns, stopped));
    EXPECT_EQ(asked, most + 1);
  }
  {
    RowsToRewrite failing = named();
    failing.valueOf = [](std::size_t row, std::size_t) -> Value {
      if (row == 3) throw std::out_of_range("no such value");
      return Null{};
    };
    Connection::Transaction transaction(shop.connection);
    constexpr std::array<std::string_view, 1> party{"Party"};
    EXPECT_THROW(rewriteRows(shop.connection, "Orders", party, failing), std::out_of_range);
  }
  EXPECT_EQ(orders(), before);
  EXPECT_EQ(failureOf([&] { rewriteRows(shop.connection, "Tally", columns, named()); }), ErrorKind::Misuse);
}

}  // namespace
