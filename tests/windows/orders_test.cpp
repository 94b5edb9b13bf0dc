#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

#include "printing/preview_window.h"
#include "windows/person.h"

namespace velmo::test {
namespace {

template <typename Control>
Control& in(const char* screen, const char* name) {
  if (auto* found = Person::control(screen).findChild<Control*>(QLatin1String(name))) return *found;
  throw std::runtime_error(std::string("no control ") + name);
}

void convert(Person& person, const char* screen, const char* command, const char* target) {
  person.look([=] { QTimer::singleShot(0, qApp, [=] { in<QPushButton>(screen, command).click(); }); });
  person.waitUntil(target, [=] {
    auto* shown = qApp->focusWidget();
    return shown && Person::control(target).isVisible() && !in<QLineEdit>(target, "PartyNameTxt").text().isEmpty();
  });
  EXPECT_EQ(person.messageText(), "");
}

// From an offer to the gate and to the invoice, with a print-out in the middle and a change that nobody has saved.
TEST(OrdersAtTheKeyboard, ArePrintedInTheMiddleAndBecomeOneAnother) {
  withTheProgram([](Person& person) {
    person.openScreen("Quotations");
    person.waitUntil("the customer", [] { return Person::control("PartyCodeTxt").hasFocus(); });
    person.type("12001003\n");
    person.press("F6");
    person.type("ham");
    person.settle();
    person.press({"Down", "Return", "Return", "Return"});
    person.type("4\n12345678.91\n");
    person.press("ctrl+p");
    person.waitUntil("the preview in front",
                     [] { return qobject_cast<printing::PreviewWindow*>(QApplication::activeWindow()) != nullptr; });
    EXPECT_EQ(person.look([] {
      return qobject_cast<printing::PreviewWindow*>(QApplication::activeWindow())
          ->pages()
          .report()
          .variables.at("NetTotalAmt");
    }),
              "49,382,715.64");
    person.press("Escape");
    person.waitUntil("a new quotation", [] { return Person::control<QLineEdit>("PartyCodeTxt").hasFocus(); });
    person.press("ctrl+Page_Up");
    person.settle();
    person.press({"Tab", "Tab", "Tab", "Tab", "Tab"});
    person.type("new shed");
    convert(person, "Quotations", "ConvertBttn2", "DeliveryChallans");
    convert(person, "DeliveryChallans", "ConvertBttn5", "GatePassesOut");
    convert(person, "GatePassesOut", "ConvertBttn4", "SaleInvoicesSimple");
    EXPECT_EQ(person.inFile("SELECT TOP 1 D1 FROM Transactions WHERE TranType = 91 ORDER BY TranNo DESC"), "new shed");
    const char* made = "SELECT TOP 4 TranType & ' ' & TrAmount FROM Transactions ORDER BY TranNo DESC";
    const char* expected[] = {"32 49382715.64", "30 49382715.64", "94 49382715.64", "91 49382715.64"};
    for (int row = 0; row < 4; ++row) EXPECT_EQ(person.inFile(made, row), expected[row]);
  });
}

}  // namespace
}  // namespace velmo::test
