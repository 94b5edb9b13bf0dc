#include <gtest/gtest.h>

#include <random>

#include "store/small_shop.h"

namespace {

using namespace velmo;
using namespace velmo::store;
using namespace velmo::test;

class Batch : public testing::Test {
 protected:
  Batch() { shop.addOrders(1); }
  Recordset lines(LockType lock = LockType::BatchOptimistic) {
    return shop.open("SELECT * FROM Lines WHERE OrderNo = 1 ORDER BY LineNo", lock);
  }
  // Three lines in the file and, in the recordset, one of each kind of change.
  Recordset changedLines() {
    for (const char* item : {"A", "B", "C"}) {
      shop.connection.execute(std::string("INSERT INTO Lines (OrderNo, Item, Qty) VALUES (1, '") + item + "', 1)");
    }
    Recordset rows = lines();
    rows.update({{"Qty", 7.0}});
    rows.moveNext();
    rows.remove();
    rows.addNew({{"OrderNo", std::int64_t{1}}, {"Item", std::string("D")}});
    rows.addNew({{"OrderNo", std::int64_t{1}}, {"Item", std::string("E")}});
    return rows;
  }
  std::string stored() {
    std::string all;
    Recordset rows = lines(LockType::ReadOnly);
    for (; !rows.eof(); rows.moveNext()) all += rows.text("LineNo") + rows.text("Item") + rows.text("Qty") + " ";
    return all;
  }
  SmallShop shop;
};

TEST_F(Batch, NothingIsWrittenBeforeAndKeysAscendAsTheRowsStand) {
  Recordset rows = changedLines();
  EXPECT_EQ(stored(), "1A1 2B1 3C1 ");
  EXPECT_EQ(rows.value("LineNo"), Value(Null{}));
  rows.updateBatch();
  EXPECT_EQ(stored(), "1A7 3C1 4D 5E ");
  EXPECT_EQ(column(rows, "LineNo"), "1,3,4,5");
  rows.updateBatch();  // nothing is left to write
  EXPECT_EQ(stored(), "1A7 3C1 4D 5E ");
}

// Blank rows of a sheet, pending and stored, go together; an undone transaction brings them back.
TEST_F(Batch, BlankRowsGoTogether) {
  Recordset rows = changedLines();
  rows.addNew({{"OrderNo", std::int64_t{1}}, {"Item", std::string()}});
  rows.moveFirst();
  rows.update({{"Item", Null{}}});
  rows.addNew();
  {
    Connection::Transaction undone(shop.connection);
    rows.removeBlank("item");
    EXPECT_EQ(column(rows, "Item"), "C,D,E");
  }
  EXPECT_EQ(column(rows, "Item"), ",C,D,E,,");
  rows.removeBlank("Item");
  EXPECT_EQ(rows.text("Item"), "C");
  rows.updateBatch();
  EXPECT_EQ(stored(), "3C1 4D 5E ");

  Recordset everyLineOnItsOwn = lines(LockType::Optimistic);
  EXPECT_THROW(everyLineOnItsOwn.removeBlank("Item"), StoreError);
}

TEST_F(Batch, OneBadRowKeepsTheWholeBatchOutAndPending) {
  for (const bool insideTransaction : {false, true}) {
    SCOPED_TRACE(insideTransaction);
    shop.connection.execute("DELETE FROM Lines");
    Recordset rows = changedLines();
    const std::string before = stored();
    rows.moveLast();
    rows.set("OrderNo", std::int64_t{99});  // no such order
    const std::string shown = column(rows, "Item");
    std::optional<Connection::Transaction> transaction;
    if (insideTransaction) {
      transaction.emplace(shop.connection);
      shop.addOrders(1);
    }
    rows.moveFirst();
    EXPECT_EQ(failureOf([&] { rows.updateBatch(); }), ErrorKind::Constraint);
    if (transaction) {  // it is lost, with what was written before
      EXPECT_EQ(failureOf([&] { shop.addOrders(1); }), ErrorKind::Failed);
      EXPECT_EQ(failureOf([&] { rows.updateBatch(); }), ErrorKind::Failed);
      EXPECT_EQ(failureOf([&] { transaction->commit(); }), ErrorKind::Failed);
      transaction.reset();
      EXPECT_EQ(shop.read("SELECT count(*) FROM Orders"), "1");
    }
    EXPECT_EQ(stored(), before);
    EXPECT_EQ(column(rows, "Item"), shown);
    rows.moveLast();
    EXPECT_EQ(rows.value("LineNo"), Value(Null{}));
    rows.set("OrderNo", std::int64_t{1});
    rows.updateBatch();
    EXPECT_EQ(shop.read("SELECT count(*) FROM Lines"), "4");
  }
}

TEST_F(Batch, RollbackMakesRowsPendingAgain) {
  Recordset rows = lines();
  for (int i = 0; i < 5; ++i) rows.addNew();
  rows.moveFirst();
  rows.set("Item", std::string("typed"));
  rows.moveNext();
  rows.moveNext();
  {
    Connection::Transaction transaction(shop.connection);
    rows.moveFirst();
    rows.update({{"OrderNo", std::int64_t{1}}});
    for (rows.moveNext(); !rows.eof(); rows.moveNext()) rows.remove();  // blank lines leave before the save
    rows.updateBatch();
    EXPECT_EQ(stored(), "1typed ");
    EXPECT_EQ(rows.recordCount(), 1);
  }
  EXPECT_EQ(stored(), "");
  EXPECT_EQ(rows.recordCount(), 5);
  EXPECT_EQ(rows.position(), 2);
  EXPECT_EQ(column(rows, "Item"), "typed,,,,");
  EXPECT_EQ(column(rows, "OrderNo"), ",,,,");
  EXPECT_EQ(column(rows, "LineNo"), ",,,,");
}

TEST_F(Batch, CancelBringsBackOriginalsAndDeletedRows) {
  Recordset rows = changedLines();
  rows.cancelBatch();
  EXPECT_EQ(column(rows, "Item"), "A,B,C");
  EXPECT_EQ(column(rows, "Qty"), "1,1,1");
  rows.updateBatch();
  EXPECT_EQ(stored(), "1A1 2B1 3C1 ");
}

TEST_F(Batch, CellsAreSetByPositionWithoutMovingTheCursor) {
  Recordset rows = lines();
  for (int i = 0; i < 3; ++i) rows.addNew();
  rows.moveFirst();
  const int item = rows.fieldIndex("Item");
  rows.setAt(0, item, std::string("one"));
  rows.setAt(2, item, std::string("three"));
  EXPECT_EQ(rows.position(), 0);
  EXPECT_EQ(failureOf([&] { rows.setAt(2, rows.fieldIndex("Qty"), std::string("many")); }), ErrorKind::Value);
  EXPECT_EQ(column(rows.clone(), "Item"), "one,,three");
  shop.connection.execute("INSERT INTO Lines (OrderNo, Item, Qty) VALUES (1, 'A', 1)");
  Recordset direct = lines(LockType::Optimistic);
  direct.addNew({{"OrderNo", std::int64_t{1}}});
  direct.setAt(0, item, std::string("written"));
  EXPECT_EQ(shop.read("SELECT Item FROM Lines WHERE LineNo = 1"), "written");
}

TEST_F(Batch, DeletingTheOwnerTakesTheLinesAlong) {
  changedLines().updateBatch();
  Recordset orders = shop.open("SELECT * FROM Orders");
  orders.remove();
  EXPECT_EQ(stored(), "");
}

TEST_F(Batch, RowThatAnotherChangedKeepsTheBatchOutUntilItIsShownAgain) {
  Recordset rows = changedLines();
  shop.connection.execute("UPDATE Lines SET Qty = 5 WHERE LineNo = 1");
  EXPECT_EQ(failureOf([&] { rows.updateBatch(); }), ErrorKind::Conflict);
  EXPECT_EQ(stored(), "1A5 2B1 3C1 ");
  EXPECT_EQ(column(rows, "Item"), "A,C,D,E");
  rows.requery();
  EXPECT_EQ(column(rows, "Qty"), "5,1,1");
  rows.moveFirst();
  rows.update({{"Qty", 7.0}});
  rows.updateBatch();
  EXPECT_EQ(stored(), "1A7 2B1 3C1 ");
}

// Seeded edits against a plain list of what the grid should hold; now and then a batch that is written, cancelled or
// undone with its transaction, one that fails twice among them.
TEST_F(Batch, AnySequenceOfEditsLeavesWhatAListOfThemWould) {
  struct Line {
    std::string item;
    std::string quantity;
  };
  std::mt19937 random(20261122);
  Recordset rows = lines();
  std::vector<Line> shown;
  std::vector<Line> written;
  const auto textOfLines = [](const std::vector<Line>& all) {
    std::string text;
    for (const Line& line : all) text += line.item + line.quantity + " ";
    return text;
  };
  const auto shownText = [](Recordset view) {
    std::string text;
    for (view.moveFirst(); !view.eof(); view.moveNext()) text += view.text("Item") + view.text("Qty") + " ";
    return text;
  };
  for (int step = 0; step < 600; ++step) {
    SCOPED_TRACE(step);
    const auto at = static_cast<std::int64_t>(shown.empty() ? 0 : random() % shown.size());
    const std::string quantity = std::to_string(random() % 90);
    switch (shown.empty() ? 0 : random() % 13) {
      case 0:
      case 1:
        shown.push_back({"N" + std::to_string(step), quantity});
        rows.addNew({{"OrderNo", std::int64_t{1}}, {"Item", shown.back().item}, {"Qty", quantity}});
        break;
      case 2:
        shown.push_back({"B" + std::to_string(step), ""});
        rows.addNew({{"Item", shown.back().item}, {"OrderNo", std::int64_t{1}}});
        break;
      case 3:
      case 4:
      case 5:
        rows.setAt(at, rows.fieldIndex("Qty"), quantity);
        shown[static_cast<std::size_t>(at)].quantity = quantity;
        break;
      case 6:
      case 7:
        rows.moveTo(at);
        rows.remove();
        shown.erase(shown.begin() + at);
        break;
      case 8:
        rows.updateBatch();
        written = shown;
        break;
      case 9: {
        Connection::Transaction undone(shop.connection);
        rows.updateBatch();
        EXPECT_EQ(shop.read("SELECT count(*) FROM Lines"), std::to_string(shown.size()));
        break;
      }
      case 10: {
        Connection::Transaction undone(shop.connection);
        rows.moveTo(at);
        rows.remove();
        rows.addNew({{"OrderNo", std::int64_t{99}}});
        EXPECT_EQ(failureOf([&] { rows.updateBatch(); }), ErrorKind::Constraint);
        break;
      }
      case 11: {
        Connection::Transaction undone(shop.connection);
        rows.addNew({{"OrderNo", std::int64_t{99}}});
        rows.setAt(at, rows.fieldIndex("Qty"), quantity);
        rows.moveTo(at);
        rows.remove();
        EXPECT_EQ(failureOf([&] { rows.updateBatch(); }), ErrorKind::Constraint);
        rows.moveLast();
        rows.remove();
        EXPECT_EQ(failureOf([&] {
                    rows.updateBatch();
                    undone.commit();
                  }),
                  ErrorKind::Failed);
        break;
      }
      default:
        if (random() % 4 != 0) break;
        rows.cancelBatch();
        shown = written;
    }
    ASSERT_EQ(shownText(rows.clone()), textOfLines(shown));
    ASSERT_EQ(shop.read("SELECT count(*) FROM Lines"), std::to_string(written.size()));
  }
  rows.updateBatch();
  EXPECT_EQ(shownText(lines(LockType::ReadOnly)), textOfLines(shown));
}

}  // namespace
