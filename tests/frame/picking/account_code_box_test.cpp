#include "frame/picking/account_code_box.h"

#include <gtest/gtest.h>

#include <QHeaderView>
#include <QTableView>
#include <QThread>
#include <QVBoxLayout>

#include "forms/table_view.h"
#include "frame/shop_fixture.h"
#include "support/typing.h"

namespace velmo::frame {
namespace {

using test::focus;
using test::press;
using test::type;

class AccountCodeBoxes : public test::Shop {
 protected:
  AccountCodeBoxes() {
    screen.resize(800, 600);
    auto* column = new QVBoxLayout(&screen);
    column->addWidget(&party);
    column->addWidget(&income);
    column->addWidget(&other);
    QObject::connect(&party, &AccountCodeBox::moveOn, &other, [this] { other.setFocus(); });
    QObject::connect(&party, &AccountCodeBox::accountCleared, &other, [this] { ++cleared; });
  }

  QWidget screen;
  AccountDropList list{&screen};
  AccountCodeBox party{context, list, {.listCondition = "Level1ID=120 or Level1ID=210"}, &screen};
  AccountCodeBox income{
      context, list, {.listCondition = "Level1ID=400", .withoutAccounts = WithoutAccounts::LeaveAsIs}, &screen};
  QLineEdit other{&screen};
  int cleared = 0;
};

TEST_F(AccountCodeBoxes, PickByKeyboard) {
  focus(party);
  EXPECT_FALSE(list.isVisible());
  type(party, "o'br");
  ASSERT_TRUE(list.isVisible());
  EXPECT_EQ(list.model()->rowCount(), 1);
  press(party, Qt::Key_Down);
  EXPECT_TRUE(list.hasFocus());
  EXPECT_TRUE(list.isVisible());
  press(list, Qt::Key_Return);
  ASSERT_TRUE(party.account().has_value());
  EXPECT_EQ(*party.account(), (Account{.code = 12001900,
                                       .name = "Zed & O'Brien",
                                       .address = "1 Dock Road",
                                       .phone = "555",
                                       .terms = "30 days",
                                       .creditLimit = 5000,
                                       .empId = 1}));
  EXPECT_TRUE(other.hasFocus());
  EXPECT_FALSE(list.isVisible());
}

TEST_F(AccountCodeBoxes, KeepOnlyCodesOfAccounts) {
  const struct {
    const char* typed;
    const char* left;
  } cases[] = {{"12001901", "12001901"},
               {"12,001,901", "12001901"},
               {"12001901.5", ""},
               {"99", ""},
               {"Yard", ""},
               {"1e308", ""},
               {"&HFF", ""},
               {"%", ""},
               {"' or 1=1", ""}};
  for (const auto& c : cases) {
    focus(party);
    party.clear();
    type(party, c.typed);
    focus(other);
    EXPECT_EQ(party.text().toStdString(), c.left) << c.typed;
    EXPECT_EQ(party.account().has_value(), *c.left != '\0') << c.typed;
  }
}

TEST_F(AccountCodeBoxes, EscapeClearsAndTheListFollowsItsOwner) {
  focus(party);
  type(party, "1200190");
  EXPECT_EQ(list.ListOwner(), &party);
  press(party, Qt::Key_Escape);
  EXPECT_EQ(party.text(), "");
  EXPECT_FALSE(list.isVisible());
  EXPECT_GT(cleared, 0);

  focus(income);
  EXPECT_EQ(list.ListOwner(), &income);
  type(income, "4");
  ASSERT_TRUE(list.isVisible());
  for (int i = 0; i < list.model()->rowCount(); ++i)
    EXPECT_EQ(list.model()->index(i, 0).data().toString().left(1), "4");
  press(income, Qt::Key_Down);
  press(list, Qt::Key_Escape);
  EXPECT_TRUE(income.hasFocus());
  EXPECT_EQ(income.text(), "");
}

TEST_F(AccountCodeBoxes, TheListShowsWholeRowsAsHighAsAGrids) {
  QTableView grid;
  forms::dressTable(grid);
  for (const int height : {600, 420, 411, 397}) {
    screen.resize(800, height);
    focus(party);
    party.clear();
    type(party, "12001");
    const int row = list.visualRect(list.model()->index(0, 0)).height();
    EXPECT_EQ(row, grid.verticalHeader()->defaultSectionSize());
    EXPECT_GT(list.viewport()->height(), 2 * row) << height;
    EXPECT_EQ(list.viewport()->height() % row, 0) << height;
  }
  type(party, "900");
  EXPECT_EQ(list.model()->index(0, 0).data(PickListModel::Code).toString(), "12001900");
  EXPECT_EQ(list.model()->index(0, 0).data(PickListModel::Name).toString(), "Zed & O'Brien");
}

TEST_F(AccountCodeBoxes, TheListClosesShortlyAfterTheBoxWasLeft) {
  focus(party);
  type(party, "zed");
  focus(other);
  EXPECT_TRUE(list.isVisible());
  for (int i = 0; i < 100 && list.isVisible(); ++i) {
    QThread::msleep(5);
    QApplication::processEvents();
  }
  EXPECT_FALSE(list.isVisible());
}

}  // namespace
}  // namespace velmo::frame
