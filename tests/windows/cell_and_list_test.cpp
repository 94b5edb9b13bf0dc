#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTableView>

#include "frame/picking/account_code_box.h"
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

// The list of accounts that lies over a screen; empty when none does.
std::string openList(Person& person, const char* screen) {
  return person.look([screen] {
    for (const auto* list : Person::control(screen).findChildren<frame::AccountDropList*>())
      if (list->isVisible()) return list->objectName().toStdString();
    return std::string();
  });
}

TEST(AnUnknownCode, LeavesNoListOpen) {
  withTheProgram([](Person& person) {
    const struct {
      const char* screen;
      const char* box;
      const char* leaving;  // a key, or a scan
    } cases[] = {{"SaleInvoicesPOS", "ACodeTxt", "scan"},
                 {"SaleInvoicesPOS", "ACodeTxt", "Return"},
                 {"SaleInvoicesPOS", "ACodeTxt", "ctrl+n"},
                 {"SaleInvoicesSimple", "PartyCodeTxt", "ctrl+s"},
                 {"SaleInvoicesSimple", "IncomeCode", "Tab"},
                 {"BankReceipts", "BankCode", "ctrl+s"},
                 {"AccLedgers", "ACodeTxt", "F5"},
                 {"GeneralJournal", "Grid", "Return"},
                 {"GeneralJournal", "Grid", "ctrl+s"}};
    for (const auto& c : cases) {
      SCOPED_TRACE(std::string(c.screen) + " " + c.box + " " + c.leaving);
      person.openScreen(c.screen);
      person.look([&c] {
        QWidget& box = *Person::control(c.screen).findChild<QWidget*>(c.box);
        box.setFocus(Qt::TabFocusReason);
        if (auto* line = qobject_cast<QLineEdit*>(&box)) line->clear();
      });
      person.type("99999999");
      person.settle(100);
      EXPECT_NE(openList(person, c.screen), "");
      std::string(c.leaving) == "scan" ? person.scan("88888888") : person.press(c.leaving);
      person.settle();
      if (!person.messageText().empty()) person.press("Return");
      person.settle();
      EXPECT_EQ(openList(person, c.screen), "");
      EXPECT_EQ(person.messageText(), "");
    }
  });
}

}  // namespace
}  // namespace velmo::test
