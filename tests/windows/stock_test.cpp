#include <gtest/gtest.h>

#include <QLabel>
#include <QTableView>

#include "windows/person.h"

namespace velmo::test {
namespace {

// In the program only.
std::string scannedWords() {
  return Person::control<QLabel>("ScanLbl").text().toStdString();
}
std::string shownCell(const char* screen, int row, int column) {
  // Screens behind the one in front count as visible.
  auto& shown = Person::control(screen);
  return shown.findChild<QTableView*>("Grid")->model()->index(row, column).data().toString().toStdString();
}

std::string cell(Person& person, const char* screen, int row, int column) {
  return person.look([&] { return shownCell(screen, row, column); });
}

TEST(StockInAWindow, IsMovedAndCountedByKeysAndScansAlone) {
  withTheProgram([](Person& person) {
    const std::string code =
        person.inFile("SELECT ItemCode FROM StockLevel3 WHERE CatID<>'Service' ORDER BY ItemCode", 2);
    person.openScreen("InventoryTransfers");
    person.look([] { Person::control("LocationList2").setFocus(Qt::TabFocusReason); });
    person.type("Y");
    person.press("Tab");
    person.look([] { Person::control("Grid").setFocus(Qt::TabFocusReason); });
    person.type("Service\n");
    person.settle();
    EXPECT_EQ(cell(person, "InventoryTransfers", 0, 0), "") << "no item has it";
    person.press({"Escape", "Escape"});
    person.type(code + "\n");
    person.type("\n7\n");
    person.press("ctrl+s");
    person.waitUntil("a new document", [] { return shownCell("InventoryTransfers", 0, 0).empty(); });
    const char* const rows =
        "SELECT StockFlow.Serial & '|' & IIf(IsNull(StockOut), '', StockOut) & '|' & IIf(IsNull(StockIn), '', StockIn) "
        "& '|' & LocationID FROM Transactions INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo WHERE "
        "TranType = 43 ORDER BY StockFlow.FlowID DESC";
    EXPECT_EQ(person.inFile(rows, 1), "1|7||1");
    EXPECT_EQ(person.inFile(rows, 0), "1||7|3");

    for (const char* screen : {"AddInventory", "BillofMaterial", "Production", "CountSheet"}) person.openScreen(screen);
    person.settle(500);
    for (const char* stop : {"LocationList", "CatList", "TrTime", "NilOption", "CodeTxt"}) {
      person.look([stop] { Person::control("CountSheet").findChild<QWidget*>(stop)->setFocus(Qt::TabFocusReason); });
      person.scan(code);
      person.settle();
    }
    person.waitUntil("five pieces", [] { return scannedWords().ends_with(": 5 counted"); });
    person.scan("0815-4711");
    person.waitUntil("a refusal", [] { return scannedWords().ends_with("0815-4711."); });
    EXPECT_EQ(cell(person, "CountSheet", 2, 5), "5.00");
    person.look([] { Person::control("BookOption").setFocus(Qt::TabFocusReason); });
    person.press("ctrl+s");
    person.waitUntil("the differences", [] {
      return QApplication::activeModalWidget() &&
             QApplication::activeModalWidget()->objectName() == QLatin1String("CountDifferences");
    });
    person.press("Return");
    person.waitUntil("what was saved", [] { return scannedWords().ends_with("was saved."); });
    EXPECT_EQ(cell(person, "CountSheet", 2, 4), "5.00") << "the books have what was counted";
    EXPECT_EQ(cell(person, "CountSheet", 2, 5), "");
  });
}

}  // namespace
}  // namespace velmo::test
