#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTableView>
#include <map>
#include <set>

#include "frame/item_sheet.h"
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

std::string itemCode(Person& person) {
  return person.inFile("SELECT TOP 1 ItemCode FROM StockLevel3 WHERE CatID<>'Service' ORDER BY ItemCode");
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
      for (const int gap : {5, 30}) {
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

}  // namespace
}  // namespace velmo::test
