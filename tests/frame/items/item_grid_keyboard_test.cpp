#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QTableView>
#include <QVBoxLayout>

#include "frame/items/item_grid.h"
#include "frame/picking/pick_list_model.h"
#include "frame/shop_fixture.h"
#include "support/typing.h"

namespace velmo::frame {
namespace {

using test::focus;
using test::press;

class ItemGridKeyboard : public test::Shop {
 protected:
  ItemGridKeyboard() {
    screen.resize(1000, 640);
    auto* column = new QVBoxLayout(&screen);
    column->addWidget(&before);
    column->addWidget(&grid);
    QObject::connect(&grid, &ItemGrid::linesChanged, &screen, [this] { ++changes; });
    QObject::connect(&grid, &ItemGrid::saveRequested, &screen, [this] { ++saves; });
    grid.bind(lines());
    table = screen.findChild<QTableView*>("Grid");
    list = screen.findChild<QListView*>("ItemCodeList");
    panel = screen.findChild<QWidget*>("StockBox");
    focus(*table);
  }

  // To whatever has the focus, as a keyboard does.
  void key(int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {}) {
    press(*QApplication::focusWidget(), code, modifiers, text);
  }
  void keys(const QString& text) {
    for (const QChar c : text) key(c.toUpper().unicode(), Qt::NoModifier, QString(c));
  }
  void entry(const QString& text) {
    keys(text);
    key(Qt::Key_Return);
  }
  std::string cell(int row, GridColumn column) { return grid.sheet().shownText(row, column); }
  int currentColumn() { return table->currentIndex().column(); }
  void rest(int milliseconds) {
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < milliseconds) QApplication::processEvents(QEventLoop::AllEvents, 5);
  }

  QWidget screen;
  QLineEdit before;
  ItemGrid grid{{.stockWarning = StockWarning::Shown, .serialNumbers = SerialNumbers::Kept}, workplace, &screen};
  QTableView* table = nullptr;
  QListView* list = nullptr;
  QWidget* panel = nullptr;
  int changes = 0;
  int saves = 0;
};

TEST_F(ItemGridKeyboard, ALineIsKeyedWithoutTheMouse) {
  entry("100");
  entry("");  // the description stays
  entry("2");
  entry("150");
  entry("10");
  EXPECT_EQ(currentColumn(), static_cast<int>(GridColumn::Discount));
  key(Qt::Key_Return);
  entry("box");
  EXPECT_EQ(table->currentIndex(), table->model()->index(1, 0));
  EXPECT_EQ(cell(0, GridColumn::Description), "Claw Hammer");
  EXPECT_EQ(cell(0, GridColumn::NetAmount), "270.00");
  EXPECT_EQ(cell(0, GridColumn::Packing), "box");
  key(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(saves, 1);
}

TEST_F(ItemGridKeyboard, ARefusedTextKeepsTheUserInItsCell) {
  entry("101");
  grid.setCurrentCell(0, GridColumn::Rate);
  entry("99999999");
  EXPECT_EQ(currentColumn(), static_cast<int>(GridColumn::Rate));
  EXPECT_FALSE(grid.commitEdit());
  key(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(saves, 0);
  before.setFocus();
  QApplication::processEvents();
  EXPECT_FALSE(before.hasFocus());
  const int changesBefore = changes;
  key(Qt::Key_Escape);
  EXPECT_GT(changes, changesBefore);
  EXPECT_EQ(cell(0, GridColumn::Rate), "900.00");
  EXPECT_TRUE(grid.commitEdit());
}

TEST_F(ItemGridKeyboard, TheDropListNarrowsAndFills) {
  keys("sled");
  rest(20);
  ASSERT_TRUE(panel->isVisible());
  EXPECT_EQ(list->model()->rowCount(), 1);
  key(Qt::Key_Down);
  EXPECT_TRUE(list->hasFocus());
  key(Qt::Key_Escape);
  EXPECT_TRUE(panel->isVisible());
  key(Qt::Key_Down);
  key(Qt::Key_Tab);
  EXPECT_FALSE(panel->isVisible());
  EXPECT_EQ(cell(0, GridColumn::ItemCode), "101");
  EXPECT_EQ(cell(0, GridColumn::Rate), "900.00");
  EXPECT_TRUE(table->hasFocus());
}

TEST_F(ItemGridKeyboard, TheDropListShowsWholeRowsOfCodesAndNames) {
  for (const int height : {640, 411, 397}) {
    screen.resize(1000, height);
    rest(20);
    keys("o'n");
    rest(20);
    const int row = list->visualRect(list->model()->index(0, 0)).height();
    EXPECT_EQ(row, table->verticalHeader()->defaultSectionSize());
    EXPECT_GT(list->viewport()->height(), 2 * row) << height;
    EXPECT_EQ(list->viewport()->height() % row, 0) << height;
    EXPECT_EQ(list->model()->index(0, 0).data(PickListModel::Code).toString(), "O'N-1");
    EXPECT_EQ(list->model()->index(0, 0).data(PickListModel::Name).toString(), "O'Neil [steel] 100%_x");
    key(Qt::Key_Escape);
  }
}

TEST_F(ItemGridKeyboard, TheStockPanelShowsTheHighlightedItem) {
  const auto label = [&](const char* name) { return panel->findChild<QLabel*>(name)->text().toStdString(); };
  auto* history = panel->findChild<QTableView*>("DetailGrid");
  keys("100");
  rest(250);
  EXPECT_EQ(label("StockBalance"), "6 Pcs");
  EXPECT_EQ(label("sellingprice"), "150.50");
  EXPECT_EQ(label("ItemCategory"), "Hand Tools (Hammers)");
  EXPECT_EQ(label("HisParty"), "All Parties");
  EXPECT_EQ(history->model()->rowCount(), 1);
  key(Qt::Key_Escape);
  grid.setParty("12001901", "Yard");
  keys("100");
  rest(250);
  EXPECT_EQ(label("HisParty"), "Yard");
  EXPECT_EQ(history->model()->rowCount(), 0);
}

TEST_F(ItemGridKeyboard, AScannerBurstLosesNoKey) {
  // Five whole lines without a pause for events, as a scanner and its script send them.
  for (int i = 0; i < 5; ++i) {
    for (const char* text : {"101", "", "", "", "", "", ""}) entry(text);
  }
  for (int i = 0; i < 5; ++i) EXPECT_EQ(cell(i, GridColumn::Description), "Sledge Hammer") << i;
  EXPECT_EQ(cell(5, GridColumn::ItemCode), "");
  EXPECT_EQ(table->currentIndex(), table->model()->index(5, 0));
}

TEST_F(ItemGridKeyboard, LinesAreRemovedAndSerialsKept) {
  entry("100");
  key(Qt::Key_F4);
  auto* box = screen.findChild<QPlainTextEdit*>("SerialBox");
  ASSERT_TRUE(box->hasFocus());
  box->setPlainText("SN-1; SN-2");
  key(Qt::Key_F4);
  EXPECT_EQ(grid.sheet().productSerials(0), "SN-1; SN-2");
  EXPECT_TRUE(table->hasFocus());
  const int changesBefore = changes;
  key(Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(changes, changesBefore + 1);
  EXPECT_EQ(cell(0, GridColumn::ItemCode), "");
  EXPECT_EQ(table->model()->rowCount(), 12);
}

TEST_F(ItemGridKeyboard, DetachGivesUpTheCellInEdit) {
  auto sheet = lines();
  grid.bind(sheet);
  keys("100");
  grid.detach();
  EXPECT_EQ(sheet.text("ItemCode"), "");
  EXPECT_EQ(table->model()->rowCount(), 0);
  keys("1");  // nothing to type into
  EXPECT_TRUE(grid.commitEdit());
}

// A message takes the keyboard, and on some desktops it comes back a moment after the message was answered.
TEST_F(ItemGridKeyboard, TheKeyboardIsInTheGridAgainAfterAMessage) {
  class Interrupting : public test::QueuedPrompts {
   public:
    session::Answer ask(const session::Prompt& prompt) override {
      QApplication::setActiveWindow(nullptr);
      return test::QueuedPrompts::ask(prompt);
    }
  } interrupting;
  session::Workplace interrupted{context, clock, interrupting, files, screens};
  QWidget window;
  ItemGrid sheet({.stockWarning = StockWarning::Shown}, interrupted, &window);
  QLineEdit behind;
  auto* column = new QVBoxLayout(&window);
  column->addWidget(&sheet);
  column->addWidget(&behind);
  sheet.bind(lines());
  auto* cells = window.findChild<QTableView*>("Grid");
  focus(*cells);
  entry("100");
  entry("");
  interrupting.expect("Short Item Balance", "You do not have required balance of this item in hand.");
  entry("500");
  QApplication::setActiveWindow(&window);
  EXPECT_EQ(QApplication::focusWidget(), cells);
  entry("150");
  EXPECT_EQ(sheet.sheet().shownText(0, GridColumn::GrossAmount), "75000.00");
}

}  // namespace
}  // namespace velmo::frame
