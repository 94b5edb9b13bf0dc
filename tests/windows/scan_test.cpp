#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTableView>
#include <map>
#include <set>

#include "forms/digits_box.h"
#include "forms/number_box.h"
#include "frame/items/item_sheet.h"
#include "schema/company_file.h"
#include "schema/company_schema.h"
#include "store/connection/connection.h"
#include "windows/person.h"

namespace velmo::test {
namespace {

using Texts = std::map<std::string, std::string>;

// What stands in the controls of the screen in front, but for its lines and what is worked out from them.
Texts textsOf(Person& person, const char* screen) {
  return person.look([screen] {
    static const std::set<std::string> workedOut = {"GrossTotal", "DiscTotal",  "NetTotal", "GTotal",
                                                    "Amt",        "SubBalance", "Balance",  "ReceivedTxt"};
    Texts texts;
    const auto& window = Person::control(screen);
    for (const auto* line : window.findChildren<QLineEdit*>())
      if (line->isVisible() && !line->isReadOnly() && !workedOut.contains(line->objectName().toStdString()))
        texts[line->objectName().toStdString()] += line->text().toStdString() + "|";
    for (const auto* list : window.findChildren<QComboBox*>())
      texts[list->objectName().toStdString()] += list->currentText().toStdString() + "|";
    for (const auto* text : window.findChildren<QPlainTextEdit*>())
      texts[text->objectName().toStdString()] += text->toPlainText().toStdString() + "|";
    for (const auto* box : window.findChildren<QCheckBox*>())
      texts[box->objectName().toStdString()] += box->isChecked() ? "x" : "-";
    return texts;
  });
}

// "code*quantity", line by line.
std::string linesOf(Person& person) {
  return person.look([] {
    const auto& grid = Person::control<QTableView>("Grid");
    std::string lines;
    for (int row = 0; row < grid.model()->rowCount(); ++row) {
      const auto cell = [&](int column) { return grid.model()->index(row, column).data().toString().toStdString(); };
      const std::string code = cell(static_cast<int>(frame::GridColumn::ItemCode));
      if (!code.empty())
        lines += (lines.empty() ? "" : " ") + code + "*" + cell(static_cast<int>(frame::GridColumn::Quantity));
    }
    return lines;
  });
}

std::string itemCode(Person& person, int row = 0) {
  return person.inFile("SELECT ItemCode FROM StockLevel3 WHERE CatID<>'Service' ORDER BY ItemCode", row);
}

// The controls of the screen that the focus can go to, in the order of Tab.
std::vector<QPointer<QWidget>> stopsOf(Person& person, const char* screen) {
  return person.look([screen] {
    std::vector<QPointer<QWidget>> stops;
    QWidget& window = Person::control(screen);
    for (QWidget* each : window.findChildren<QWidget*>())
      if (each->isVisible() && each->isEnabled() && (each->focusPolicy() & Qt::TabFocus) && !each->focusProxy())
        stops.emplace_back(each);
    return stops;
  });
}

TEST(ScansAtTheCounter, ReachTheLinesWhereverTheFocusIs) {
  withTheProgram([](Person& person) {
    person.openScreen("SaleInvoicesPOS");
    const std::string code = itemCode(person);
    const Texts before = textsOf(person, "SaleInvoicesPOS");
    int pieces = 0;
    for (const QPointer<QWidget>& stop : stopsOf(person, "SaleInvoicesPOS")) {
      const std::string name = person.look([&] {
        stop->setFocus(Qt::TabFocusReason);
        return stop->objectName().toStdString();
      });
      SCOPED_TRACE(name);
      // One scan each: of this item there is not enough for two, and what it lacks brings a question.
      for (const int gap : {pieces % 2 == 0 ? 5 : 30}) {
        person.scan(code, gap);
        const std::string expected = code + "*" + std::to_string(++pieces) + ".00";
        for (int look = 0; look < 100 && linesOf(person) != expected; ++look) person.settle(20);
        ASSERT_EQ(linesOf(person), expected) << "with " << gap << " ms between the keys";
        person.look([&] { stop->setFocus(Qt::TabFocusReason); });
      }
    }
    EXPECT_GT(pieces, 20);
    EXPECT_EQ(textsOf(person, "SaleInvoicesPOS"), before);
  });
}

TEST(ScansAtTheCounter, WaitForMessagesAndNeverAnswerThem) {
  withTheProgram([](Person& person) {
    person.look([] {
      store::Connection company(schema::companyCatalog());
      company.open(schema::plainConnectionString);
      company.execute("DELETE FROM StockFlow");
    });
    person.openScreen("SaleInvoicesPOS");
    std::string expected;
    for (int item = 0; item < 10; ++item) {
      const std::string code = itemCode(person, item);
      person.scan(code, item % 2 == 0 ? 5 : 30);
      expected += (item == 0 ? "" : " ") + code + "*1.00";
    }
    person.waitForMessage();
    EXPECT_EQ(linesOf(person).find(' '), std::string::npos) << "one line, and its warning stands";
    for (int item = 0; item < 10; ++item) {
      person.waitForMessage();
      person.press("Return");
      person.settle(200);
    }
    person.waitUntil("the last warning answered", [] { return !QApplication::activeModalWidget(); });
    EXPECT_EQ(linesOf(person), expected);
  });
}

TEST(ScansAtTheCounter, WaitForAMessageThatATypedKeyBrings) {
  withTheProgram([](Person& person) {
    person.openScreen("SaleInvoicesPOS");
    const std::string code = itemCode(person);
    person.press({"Tab", "8"});
    person.waitForMessage();
    person.scan(code);
    person.settle();
    EXPECT_EQ(person.messageText().substr(0, 21), "Select inventory item");
    EXPECT_EQ(linesOf(person), "");
    person.press("Return");
    person.settle();
    EXPECT_EQ(linesOf(person), code + "*1.00");
  });
}

TEST(PaymentsAtTheCounter, AreReadableAndTakenByKeys) {
  withTheProgram([](Person& person) {
    const auto pay = [&] {
      person.press("ctrl+s");
      person.waitUntil("the payment", [] { return Person::control("Received").hasFocus(); });
    };
    person.openScreen("SaleInvoicesPOS");
    pay();
    person.press("Escape");
    person.scan(itemCode(person));
    person.settle();
    pay();
    person.look([] {
      for (const char* box : {"Received", "Balance"})
        EXPECT_GE(Person::control(box).height(), Person::control(box).sizeHint().height()) << box;
    });
    person.press("alt+k");
    person.type("1\n");
    person.waitForMessage();
    EXPECT_NE(person.messageText().find("is missing of the total"), std::string::npos);
    person.press("Escape");
    person.settle();
    EXPECT_EQ(person.focus(), "Received");
  });
}

// What is typed goes where it was typed, whatever listens on its way.
TEST(ScansAtTheCounter, AreNotWhatAPersonTypes) {
  withTheProgram([](Person& person) {
    person.openScreen("SaleInvoicesPOS");
    person.look([] { Person::control("PartyNameTxt").setFocus(Qt::TabFocusReason); });
    person.type("ann 20000010\n");
    person.settle();
    EXPECT_EQ(person.look([] { return Person::control<QLineEdit>("PartyNameTxt").text().toStdString(); }),
              "ann 20000010");
    EXPECT_EQ(linesOf(person), "");
  });
}

// As a scan: one piece, and on to the next line, from where Up and Enter lead to the quantity.
TEST(ACodeTypedAtTheCounter, IsOnePieceAndLeadsToTheNextLine) {
  withTheProgram([](Person& person) {
    person.openScreen("SaleInvoicesPOS");
    const std::string code = itemCode(person);
    const auto isInFreeLine = [] {
      const QModelIndex cell = Person::control<QTableView>("Grid").currentIndex();
      return cell.row() == 1 && cell.column() == static_cast<int>(frame::GridColumn::ItemCode);
    };
    person.type(code + "\n");
    person.waitUntil("one piece", [&] { return isInFreeLine(); });
    EXPECT_EQ(linesOf(person), code + "*1.00");
    person.type("nosuch\n");
    person.settle();
    EXPECT_EQ(linesOf(person), code + "*1.00");
    EXPECT_TRUE(person.look(isInFreeLine));
    person.press({"Up", "Return", "Return"});
    person.type("3\n");
    person.settle();
    EXPECT_EQ(linesOf(person), code + "*3.00");
  });
}

TEST(ScansInOtherDocuments, LeaveDaysChoicesAndFiguresAsTheyWere) {
  withTheProgram([](Person& person) {
    for (const char* screen : {"SaleInvoicesSimple", "PurchaseBillsSimple", "SaleReturns"}) {
      person.openScreen(screen);
      const std::string code = itemCode(person);
      const Texts before = textsOf(person, screen);
      for (const QPointer<QWidget>& stop : stopsOf(person, screen)) {
        const bool takesText = person.look([&] {
          stop->setFocus(Qt::TabFocusReason);
          auto* line = qobject_cast<QLineEdit*>(stop.data());
          return qobject_cast<QTableView*>(stop.data()) || qobject_cast<QPlainTextEdit*>(stop.data()) ||
                 (line && !qobject_cast<forms::NumberBox*>(line) && !qobject_cast<forms::DigitsBox*>(line));
        });
        if (takesText) continue;
        SCOPED_TRACE(std::string(screen) + " " + person.focus());
        person.scan(code);
        person.settle(100);
        ASSERT_EQ(textsOf(person, screen), before);
        ASSERT_EQ(person.messageText(), "");
        ASSERT_EQ(linesOf(person), "");
      }
    }
  });
}

}  // namespace
}  // namespace velmo::test
