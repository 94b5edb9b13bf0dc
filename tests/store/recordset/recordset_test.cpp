#include <gtest/gtest.h>

#include "store/small_shop.h"

namespace {

using namespace velmo;
using namespace velmo::store;
using namespace velmo::test;

// What holds for both kinds of cursor.
class EitherCursor : public testing::TestWithParam<Fetch> {
 protected:
  Recordset orders(std::string_view tail = "") {
    return shop.open("SELECT * FROM Orders WHERE [Year] = 1 ORDER BY DocNo" + std::string(tail), LockType::Optimistic,
                     GetParam());
  }
  SmallShop shop;
};

INSTANTIATE_TEST_SUITE_P(Cursors, EitherCursor, testing::Values(Fetch::All, Fetch::AsNeeded),
                         [](const auto& instance) { return instance.param == Fetch::All ? "Held" : "Walked"; });

TEST_P(EitherCursor, AnEmptySetIsBeforeAndBehindItsRowsWhateverMoves) {
  Recordset rows = orders();
  for (const auto move :
       {&Recordset::moveFirst, &Recordset::moveLast, &Recordset::moveNext, &Recordset::movePrevious}) {
    (rows.*move)();
    EXPECT_TRUE(rows.bof());
    EXPECT_TRUE(rows.eof());
  }
  EXPECT_TRUE(rows.isEmpty());
  EXPECT_EQ(rows.recordCount(), 0);
  EXPECT_EQ(failureOf([&] { rows.value("DocNo"); }), ErrorKind::Misuse);
  EXPECT_EQ(failureOf([&] { rows.remove(); }), ErrorKind::Misuse);
}

TEST_P(EitherCursor, WalksForthAndBackOverBothEnds) {
  shop.addOrders(3);
  Recordset rows = orders();
  EXPECT_EQ(column(rows, "DocNo"), "1,2,3");
  EXPECT_TRUE(rows.eof());
  EXPECT_FALSE(rows.bof());
  EXPECT_EQ(rows.position(), -1);
  rows.movePrevious();
  EXPECT_EQ(rows.integer("DocNo"), 3);
  EXPECT_EQ(rows.position(), 2);
  rows.moveFirst();
  rows.movePrevious();
  EXPECT_TRUE(rows.bof());
  rows.moveNext();
  EXPECT_EQ(rows.integer("docno"), 1);
  rows.moveTo(1);
  EXPECT_EQ(rows.text("PARTY"), "P2");
  EXPECT_EQ(textOf(rows.valueAt(2, rows.fieldIndex("amount"))), "30");
  EXPECT_EQ(failureOf([&] { rows.moveTo(3); }), ErrorKind::Misuse);
}

TEST_P(EitherCursor, AddedRowGetsItsKeyAndIsFoundAtTheEndOfTheKeyOrder) {
  shop.addOrders(2);
  Recordset rows = orders();
  rows.addNew({{"DocNo", std::int64_t{1}}, {"Year", std::int64_t{1}}, {"Party", std::string("new  ")}});
  EXPECT_EQ(rows.integer("OrderNo"), 3);
  EXPECT_EQ(rows.text("Party"), "new");  // trailing blanks leave
  EXPECT_EQ(rows.value("Cancel"), Value(false));
  rows.setSort("OrderNo asc");
  rows.moveLast();
  EXPECT_EQ(rows.integer("OrderNo"), 3);
  EXPECT_EQ(rows.sort(), "OrderNo asc");
  EXPECT_EQ(shop.read("SELECT Party FROM Orders WHERE OrderNo = 3"), "new");
}

TEST_P(EitherCursor, KeysAreNeverGivenOutTwice) {
  shop.addOrders(2);
  Recordset rows = orders();
  rows.moveLast();
  rows.remove();
  rows.addNew({{"DocNo", std::int64_t{2}}, {"Year", std::int64_t{1}}});
  EXPECT_EQ(rows.integer("OrderNo"), 3);
}

TEST_P(EitherCursor, EditIsWrittenByUpdateOrByMovingAndDroppedByCancel) {
  shop.addOrders(2);
  Recordset rows = orders();
  rows.set("Party", std::string("first"));
  EXPECT_TRUE(rows.isEditing());
  EXPECT_EQ(rows.text("Party"), "first");
  EXPECT_EQ(shop.read("SELECT Party FROM Orders WHERE OrderNo = 1"), "P1");
  rows.cancelUpdate();
  EXPECT_EQ(rows.text("Party"), "P1");
  rows.set("Party", std::string("second"));
  rows.moveNext();
  EXPECT_FALSE(rows.isEditing());
  EXPECT_EQ(shop.read("SELECT Party FROM Orders WHERE OrderNo = 1"), "second");
  rows.addNew();
  EXPECT_EQ(rows.value("Party"), Value(Null{}));
  rows.set("DocNo", std::string("9"));
  rows.cancelUpdate();
  EXPECT_EQ(rows.integer("DocNo"), 2);
  EXPECT_EQ(rows.recordCount(), 2);
}

TEST_P(EitherCursor, ChangeOfARowThatChangedMeanwhileIsAConflict) {
  shop.addOrders(2);
  Recordset rows = orders();
  shop.connection.execute("UPDATE Orders SET Party = 'theirs' WHERE OrderNo = 1");
  rows.update({{"Amount", 5.0}});  // another column: theirs stands
  EXPECT_EQ(failureOf([&] {
              rows.update({{"Party", std::string("ours")}});
            }),
            GetParam() == Fetch::All ? std::optional(ErrorKind::Conflict) : std::nullopt)
      << "a walked row is read again when it is written";
  Recordset other = orders();
  other.moveLast();
  shop.connection.execute("DELETE FROM Orders WHERE OrderNo = 2");
  EXPECT_EQ(failureOf([&] { other.update({{"Amount", 1.0}}); }), ErrorKind::Conflict);
  EXPECT_EQ(other.number("Amount"), 20);  // as it was before the failure
  EXPECT_FALSE(other.isEditing());
  EXPECT_EQ(failureOf([&] { other.remove(); }), ErrorKind::Conflict);
}

TEST_P(EitherCursor, NullOriginalsAreComparedAsNulls) {
  shop.connection.execute("INSERT INTO Orders (DocNo, [Year]) VALUES (1, 1)");
  Recordset rows = orders();
  rows.update({{"Amount", 4.5}, {"Day", text::DateTime::fromCalendar(2026, 11, 22)}});
  EXPECT_EQ(shop.read("SELECT Amount FROM Orders WHERE Day = #11-22-2026#"), "4.5");
  rows.update({{"Amount", Null{}}});
  EXPECT_EQ(shop.read("SELECT count(*) FROM Orders WHERE Amount IS NULL"), "1");
}

TEST_P(EitherCursor, RemovedRowStaysCurrentButUnreadableUntilAMove) {
  shop.addOrders(3);
  Recordset rows = orders();
  rows.moveNext();
  rows.remove();
  EXPECT_EQ(failureOf([&] { rows.value("DocNo"); }), ErrorKind::Misuse);
  EXPECT_FALSE(rows.eof());
  EXPECT_EQ(rows.recordCount(), 2);
  rows.moveNext();
  EXPECT_EQ(rows.integer("DocNo"), 3);
  rows.remove();
  rows.moveNext();
  EXPECT_TRUE(rows.eof());
  rows.moveFirst();
  rows.remove();
  EXPECT_TRUE(rows.eof());
  EXPECT_EQ(shop.read("SELECT count(*) FROM Orders"), "0");
}

TEST_P(EitherCursor, FindSearchesForwardFromTheCurrentRow) {
  shop.addOrders(4);
  shop.connection.execute("UPDATE Orders SET Party = 'o''Brien' WHERE DocNo = 3");
  struct Case {
    const char* criterion;
    int startAt;
    const char* found;  // DocNo, "" at the end
  };
  for (const Case& c :
       {Case{"OrderNo = 3", 0, "3"}, Case{"orderno=2", 1, "2"}, Case{"OrderNo = 1", 1, ""}, Case{"Amount > 20", 0, "3"},
        Case{"Amount <= 20", 1, "2"}, Case{"Amount <> 10", 0, "2"}, Case{"Party = 'O''BRIEN'", 0, "3"},
        Case{"Party like '*bri*'", 0, "3"}, Case{"Party like 'p%'", 2, "4"}, Case{"Day = #11-22-2026#", 0, ""},
        Case{"Cancel = False", 2, "3"}, Case{"Party = 'none'", 0, ""}}) {
    SCOPED_TRACE(c.criterion);
    Recordset rows = orders();
    rows.moveTo(c.startAt);
    EXPECT_EQ(rows.find(c.criterion), *c.found != '\0');
    EXPECT_EQ(rows.eof() ? "" : rows.text("DocNo"), c.found);
  }
  Recordset rows = orders();
  EXPECT_TRUE(rows.find("Amount > 0", SearchFrom::NextRow));
  EXPECT_EQ(rows.integer("DocNo"), 2);
  EXPECT_EQ(failureOf([&] { rows.find("Amount >< 3"); }), ErrorKind::Statement);
  EXPECT_EQ(failureOf([&] { rows.find("Nobody = 3"); }), ErrorKind::Misuse);
  EXPECT_EQ(failureOf([&] { rows.find("Amount = 'x'"); }), ErrorKind::Statement);
  EXPECT_EQ(rows.integer("DocNo"), 2);
}

TEST_P(EitherCursor, SortAndFilterOrderTheViewAndKeepBookmarks) {
  shop.addOrders(4);
  shop.connection.execute("UPDATE Orders SET Party = 'p0', Amount = NULL WHERE DocNo = 3");
  Recordset rows = orders();
  rows.moveLast();
  const Bookmark last = rows.bookmark();
  struct Case {
    const char* filter;
    const char* sort;
    const char* docNos;
  };
  for (const Case& c :
       {Case{"", "party", "3,1,2,4"}, Case{"", "Amount desc, DocNo", "4,2,1,3"}, Case{"", "Amount", "3,1,2,4"},
        Case{"DocNo > 1 AND Amount < 40", "", "2"}, Case{"DocNo = 1 OR Party like 'P0'", "DocNo desc", "3,1"},
        Case{"(DocNo = 4 AND Amount > 1) OR DocNo = 1", "", "1,4"}, Case{"", "", "1,2,3,4"}}) {
    SCOPED_TRACE(std::string(c.filter) + "|" + c.sort);
    rows.setSort(c.sort);
    rows.setFilter(c.filter);
    EXPECT_EQ(column(rows, "DocNo"), c.docNos);
  }
  rows.setSort("Party desc");
  rows.setBookmark(last);
  EXPECT_EQ(rows.integer("DocNo"), 4);
  EXPECT_EQ(failureOf([&] { rows.setSort("DocNo upwards"); }), ErrorKind::Statement);
  EXPECT_EQ(failureOf([&] { rows.setFilter("(DocNo = 1 OR DocNo = 4) AND Amount >= 40"); }), ErrorKind::Statement);
  EXPECT_EQ(rows.sort(), "Party desc");
}

TEST_P(EitherCursor, RollbackGivesBackRowsAndPlace) {
  shop.addOrders(3);
  Recordset rows = orders();
  rows.moveNext();
  {
    Connection::Transaction transaction(shop.connection);
    rows.addNew({{"DocNo", std::int64_t{50}}, {"Year", std::int64_t{1}}});
    rows.setSort("OrderNo asc");
    rows.moveLast();
    EXPECT_EQ(rows.integer("OrderNo"), 4);
    rows.update({{"Party", std::string("gone")}});
    rows.moveFirst();
    rows.remove();
  }
  EXPECT_EQ(rows.sort(), "");
  EXPECT_EQ(rows.integer("DocNo"), 2);
  EXPECT_EQ(column(rows, "DocNo"), "1,2,3");
  EXPECT_EQ(shop.read("SELECT count(*) FROM Orders"), "3");
}

TEST_P(EitherCursor, CommitIsKept) {
  shop.addOrders(1);
  Recordset rows = orders();
  Connection::Transaction transaction(shop.connection);
  rows.update({{"Party", std::string("kept")}});
  EXPECT_EQ(failureOf([&] { Connection::Transaction inner(shop.connection); }), ErrorKind::Misuse);
  transaction.commit();
  EXPECT_EQ(failureOf([&] { transaction.commit(); }), ErrorKind::Misuse);
  EXPECT_EQ(rows.text("Party"), "kept");
  EXPECT_EQ(shop.read("SELECT Party FROM Orders"), "kept");
}

TEST_P(EitherCursor, ValuesAreFittedToTheirColumns) {
  shop.addOrders(1);
  Recordset rows = orders();
  struct Case {
    const char* field;
    Value given;
    Value kept;
  };
  const auto day = text::DateTime::fromCalendar(2026, 11, 22);
  for (const Case& c : {Case{"Amount", std::string("(5.00)"), -5.0}, Case{"Amount", std::string("1,234.50"), 1234.5},
                        Case{"Amount", std::int64_t{7}, 7.0}, Case{"Grade", std::string("255"), std::int64_t{255}},
                        Case{"Year", 2.5, std::int64_t{2}}, Case{"DocNo", true, std::int64_t{-1}},
                        Case{"Party", 0.5, std::string("0.5")}, Case{"Party", std::string("a  "), std::string("a")},
                        Case{"Party", std::string(""), std::string("")}, Case{"Cancel", std::int64_t{7}, true},
                        Case{"Cancel", Null{}, false}, Case{"Day", std::string("2026-11-22"), day}}) {
    SCOPED_TRACE(c.field + textOf(c.given));
    rows.set(c.field, c.given);
    EXPECT_EQ(rows.value(c.field), c.kept);
    rows.update();
    EXPECT_EQ(shop.open("SELECT * FROM Orders").value(c.field), c.kept);
    rows.update({{"Year", std::int64_t{1}}});
  }
  const std::string withNul("a\0b", 3);
  for (const FieldValue& bad : {FieldValue{"Amount", std::string("")}, FieldValue{"Amount", std::string("abc")},
                                FieldValue{"Grade", std::int64_t{256}}, FieldValue{"Grade", std::int64_t{-1}},
                                FieldValue{"Year", std::int64_t{40000}}, FieldValue{"DocNo", 3e9},
                                FieldValue{"Party", withNul}, FieldValue{"Day", std::string("soon")}}) {
    SCOPED_TRACE(bad.name);
    EXPECT_EQ(failureOf([&] { rows.set(bad.name, bad.value); }), ErrorKind::Value);
    EXPECT_EQ(failureOf([&] { rows.addNew({bad}); }), ErrorKind::Value);
    EXPECT_FALSE(rows.isEditing());
  }
  EXPECT_EQ(failureOf([&] { rows.set("OrderNo", std::int64_t{8}); }), ErrorKind::Misuse);
  EXPECT_EQ(rows.recordCount(), 1);
}

TEST_P(EitherCursor, ReadOnlyAndClosedRecordsetsRefuse) {
  shop.addOrders(1);
  Recordset rows = shop.open("SELECT * FROM Orders", LockType::ReadOnly, GetParam());
  EXPECT_EQ(failureOf([&] { rows.set("Party", std::string("x")); }), ErrorKind::Misuse);
  EXPECT_EQ(failureOf([&] { rows.addNew(); }), ErrorKind::Misuse);
  EXPECT_EQ(failureOf([&] { rows.remove(); }), ErrorKind::Misuse);
  rows.close();
  EXPECT_FALSE(rows.isOpen());
  EXPECT_EQ(failureOf([&] { rows.moveFirst(); }), ErrorKind::Misuse);
}

TEST_P(EitherCursor, CloneStandsOnItsOwnWithoutTheFilter) {
  shop.addOrders(3);
  Recordset rows = orders();
  rows.setFilter("DocNo > 1");
  Recordset twin = rows.clone();
  EXPECT_EQ(twin.recordCount(), 3);
  EXPECT_EQ(twin.integer("DocNo"), 1);
  rows.update({{"Party", std::string("seen")}});
  twin.setBookmark(rows.bookmark());
  EXPECT_EQ(twin.text("Party"), "seen");
  EXPECT_EQ(rows.recordCount(), 2);
}

TEST_P(EitherCursor, RequeryShowsNewRowsAndKeepsSortAndFilter) {
  shop.addOrders(2);
  Recordset rows = orders();
  rows.setSort("DocNo desc");
  rows.setFilter("Amount > 10 AND Party like 'P*'");
  shop.addOrders(3);
  EXPECT_EQ(column(rows, "DocNo"), GetParam() == Fetch::All ? "2" : "3,2,2");
  rows.requery();
  EXPECT_EQ(rows.sort(), "DocNo desc");
  EXPECT_EQ(rows.integer("DocNo"), 3);
  EXPECT_EQ(column(rows, "DocNo"), "3,2,2");
  rows.setFilter("");
  EXPECT_EQ(column(rows, "DocNo"), "3,2,2,1,1");
}

TEST(HeldRows, LargeResultsAreReadAsTheyAreLookedAtAndFinishedBeforeAWrite) {
  SmallShop shop;
  {
    Connection::Transaction transaction(shop.connection);
    shop.addOrders(3000);
    transaction.commit();
  }
  Recordset rows = shop.open("SELECT DocNo, Party, Amount + 1 AS More FROM Orders ORDER BY OrderNo");
  EXPECT_TRUE(rows.hasMoreRows());
  const std::int64_t before = rows.fetchedCount();
  EXPECT_LT(before, 1000);
  rows.fetchMore(500);
  EXPECT_EQ(rows.fetchedCount(), before + 500);
  shop.connection.execute("UPDATE Orders SET Party = 'late'");
  EXPECT_FALSE(rows.hasMoreRows());
  rows.moveLast();
  EXPECT_EQ(rows.text("Party"), "P3000");
  EXPECT_EQ(rows.recordCount(), 3000);
}

TEST(HeldRows, JoinsWriteToTheTableOfTheChangedFieldAndAreNeverDeleted) {
  SmallShop shop;
  shop.addOrders(1);
  shop.connection.execute("INSERT INTO Lines (OrderNo, Item, Qty) VALUES (1, 'A', 2)");
  Recordset rows = shop.open(
      "SELECT Orders.OrderNo, Party, LineNo, Qty, Qty * 2 AS Twice FROM Orders INNER JOIN Lines ON Orders.OrderNo = "
      "Lines.OrderNo");
  rows.update({{"Party", std::string("both")}, {"Qty", 3.0}});
  EXPECT_EQ(shop.read("SELECT Party FROM Orders"), "both");
  EXPECT_EQ(shop.read("SELECT Qty FROM Lines"), "3");
  EXPECT_EQ(failureOf([&] { rows.set("Twice", 1.0); }), ErrorKind::Misuse);
  EXPECT_EQ(failureOf([&] { rows.remove(); }), ErrorKind::Misuse);
  Recordset keyless = shop.open("SELECT Party FROM Orders");
  EXPECT_EQ(failureOf([&] { keyless.update({{"Party", std::string("x")}}); }), ErrorKind::Misuse);
  EXPECT_EQ(keyless.text("Party"), "both");
}

TEST(HeldRows, KeysThatAreTakenOrMissingAreRefused) {
  SmallShop shop;
  Recordset items = shop.open("SELECT * FROM Items");
  items.addNew({{"Item", std::string("A1")}});
  EXPECT_EQ(failureOf([&] { items.addNew({{"Item", std::string("a1")}}); }), ErrorKind::Constraint);
  EXPECT_EQ(failureOf([&] { items.addNew({{"ItemName", std::string("nameless")}}); }), ErrorKind::Constraint);
  EXPECT_EQ(items.recordCount(), 1);
  EXPECT_EQ(items.text("Item"), "A1");
  Recordset lines = shop.open("SELECT * FROM Lines");
  EXPECT_EQ(failureOf([&] { lines.addNew({{"OrderNo", std::int64_t{99}}}); }), ErrorKind::Constraint);
}

}  // namespace
