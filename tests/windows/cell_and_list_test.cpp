#include <gtest/gtest.h>

#include <QTableView>

#include "support/typing.h"
#include "windows/person.h"

namespace velmo::test {
namespace {

// Its text is refused or asked about, and keys come that neither the cell nor its grid has a use for.
TEST(ACellInEdit, LetsKeysEndWhileItHasNotTheKeyboard) {
  withTheProgram([](Person& person) {
    person.openScreen("SaleInvoicesSimple");
    const std::string code = person.inFile("SELECT ItemCode FROM StockLevel3 WHERE CatID<>'Service' ORDER BY ItemCode");
    person.press("F6");
    person.type(code + "\n\n99999998\n");
    person.waitForMessage();
    person.look([] {
      auto& grid = Person::control<QTableView>("Grid");
      ASSERT_TRUE(Person::control("GridCell").isVisible());
      ASSERT_FALSE(Person::control("GridCell").hasFocus());
      for (const int key : {Qt::Key_F3, Qt::Key_F5}) press(grid, key);
      press(grid, Qt::Key_A, Qt::ControlModifier);
    });
    person.press("Return");
    person.waitUntil("the quantity", [] {
      const auto& grid = Person::control<QTableView>("Grid");
      return grid.model()->index(0, 3).data().toString() == QStringLiteral("99999998.00");
    });
  });
}

}  // namespace
}  // namespace velmo::test
