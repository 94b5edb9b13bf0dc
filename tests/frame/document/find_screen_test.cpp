#include "frame/document/find_screen.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "forms/table_view.h"
#include "frame/document/find_columns.h"
#include "frame/shop_fixture.h"
#include "schema/document_kinds.h"
#include "support/typing.h"

namespace {

using namespace velmo;

const frame::FindType type{
    .title = "FIND",
    .select =
        "Transactions.TranNo, Transactions.DocNo, Transactions.TranDate, Transactions.Text1, Employees.EmpName, "
        "iif(Transactions.Cancel=0, '', 'CANCELLED') AS CStatus, Users.UserName AS AddedBy, Transactions.TimeAdded, "
        "Users_1.UserName AS EditedBy, Transactions.TimeEdited",
    .columns = {{"Serial No.", "Transactions.DocNo", frame::FindCondition::Number, "Give a number."},
                {"Name", "Transactions.Text1", frame::FindCondition::Contains, "Give a name."}},
    .result = frame::findColumns({{.caption = "Name", .field = "Text1"}}),
    .location = frame::FindLocation::None};

class FindScreenTest : public test::Shop {
 protected:
  FindScreenTest() {
    test::NewCompany::run(context.KORDconn,
                          {"UPDATE Transactions SET UserAdded = 1, UserEdited = 1, FYID = 1 WHERE TranType = 32",
                           "INSERT INTO Transactions (TranNo, TranType, DocNo, TranDate, FYID, Cancel, Text1, "
                           "UserAdded, UserEdited) VALUES (9003, 32, 8, #10-30-2026#, 1, Yes, 'Yard', 1, 1)"});
    context.UserID = 1;
    find = std::make_unique<frame::FindScreen>(
        type, schema::documentForm("SaleInvoicesSimple"), workplace, [this] { ++shown; }, nullptr);
    find->show();
  }
  std::string numbers() {
    std::string all;
    const QAbstractItemModel& model = *grid().model();
    for (int row = 0; row < model.rowCount(); ++row) all += model.index(row, 0).data().toString().toStdString();
    return all;
  }
  QTableView& grid() { return *find->findChild<QTableView*>("TranGrid"); }
  void search(const char* column, const char* value) {
    find->findChild<QComboBox*>("ColList")->setCurrentText(column);
    find->findChild<QLineEdit*>("ValueBox")->setText(value);
    find->findChild<QPushButton*>("FindBttn")->click();
  }

  int shown = 0;
  std::unique_ptr<frame::FindScreen> find;
};

TEST_F(FindScreenTest, NarrowsSortsAndHandsOverWhatIsPicked) {
  EXPECT_EQ(numbers(), "78");
  EXPECT_EQ(grid().model()->index(1, 4).data(), "CANCELLED");
  search("Name", "yar");
  EXPECT_EQ(numbers(), "8");
  prompts.expect("Cannot Find", "Give a number.");
  search("Serial No.", "x");
  EXPECT_EQ(numbers(), "8") << "what was found stays";
  find->findChild<QPushButton*>("RefBttn")->click();
  Q_EMIT grid().horizontalHeader()->sectionClicked(1);
  EXPECT_EQ(numbers(), "87") << "by date";
  grid().selectRow(0);
  test::press(grid(), Qt::Key_Return);
  EXPECT_EQ(context.OpenTranNo, 9003);
  EXPECT_EQ(shown, 1);
  EXPECT_FALSE(find->isVisible());
}

TEST_F(FindScreenTest, TellsWhatTheFileRefuses) {
  context.KORDconn.close();
  prompts.expectTitle("Cannot Find");
  search("Name", "yar");
}

}  // namespace
