#include <gtest/gtest.h>

#include <QLabel>
#include <QTableView>
#include <cstdlib>

#include "windows/person.h"

namespace velmo::test {
namespace {

// For whoever wants to look: pictures into the folder of this name.
void picture(Person& person, const char* name) {
  if (const char* folder = std::getenv("VELMO_PICTURES"))
    person.look([&] {
      QWidget* front =
          QApplication::activeModalWidget() ? QApplication::activeModalWidget() : QApplication::activeWindow();
      if (front) front->grab().save(QString::fromLocal8Bit(folder) + "/" + name + ".png");
    });
}

std::string scannedWords(Person& person) {
  return person.look([] { return Person::control<QLabel>("ScanLbl").text().toStdString(); });
}

std::string cell(Person& person, int row, int column) {
  return person.look(
      [&] { return Person::control<QTableView>("Grid").model()->index(row, column).data().toString().toStdString(); });
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
    EXPECT_EQ(cell(person, 0, 0), "") << "no item has it";
    picture(person, "refused-code");
    person.press({"Escape", "Escape"});
    person.type(code + "\n");
    person.type("\n7\n");
    picture(person, "transfer");
    person.press("ctrl+s");
    person.waitUntil("a new document", [&] { return cell(person, 0, 0).empty(); });
    const char* const rows =
        "SELECT StockFlow.Serial & '|' & IIf(IsNull(StockOut), '', StockOut) & '|' & IIf(IsNull(StockIn), '', StockIn) "
        "& "
        "'|' & LocationID FROM Transactions INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo WHERE "
        "TranType = 43 ORDER BY StockFlow.FlowID DESC";
    EXPECT_EQ(person.inFile(rows, 1), "1|7||1");
    EXPECT_EQ(person.inFile(rows, 0), "1||7|3");

    person.openScreen("CountSheet");
    person.settle(500);
    for (const char* stop : {"LocationList", "TrDate", "TrTime", "NilOption", "Grid"}) {
      person.look([stop] { Person::control(stop).setFocus(Qt::TabFocusReason); });
      person.scan(code);
      person.settle();
    }
    person.waitUntil("five pieces", [&] { return scannedWords(person).ends_with(": 5 counted"); });
    person.scan("0815-4711");
    person.waitUntil("a refusal", [&] { return scannedWords(person).ends_with("0815-4711."); });
    EXPECT_EQ(cell(person, 2, 5), "5.00");
    picture(person, "count");
    person.press("ctrl+s");
    person.waitUntil("the differences", [&] {
      return person.look([] {
        return QApplication::activeModalWidget() &&
               QApplication::activeModalWidget()->objectName() == QLatin1String("CountDifferences");
      });
    });
    picture(person, "differences");
    person.press("Return");
    person.waitUntil("what was saved", [&] { return scannedWords(person).ends_with("was saved."); });
    EXPECT_EQ(cell(person, 2, 4), "5.00") << "the books have what was counted";
    EXPECT_EQ(cell(person, 2, 5), "");
  });
}

}  // namespace
}  // namespace velmo::test
