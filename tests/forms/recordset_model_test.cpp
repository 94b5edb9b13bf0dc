#include "forms/recordset_model.h"

#include "forms/table_view.h"
#include "support/new_company.h"
#include "support/typing.h"
#include "support/waiting.h"

namespace velmo::forms {
namespace {

class Lists : public testing::Test {
 protected:
  Lists() { connection_.open(schema::plainConnectionString); }

  void addEmployees(int count) {
    store::Connection::Transaction transaction(connection_);
    store::Recordset employees(connection_, "select * from Employees where EmpID=0");
    for (int i = 1; i <= count; ++i)
      employees.addNew({{"EmpName", "Name " + std::to_string(1000 + i)},
                        {"Salary", i - 2.5},
                        {"DateJoin", text::DateTime::fromCalendar(2026, 3, 4).addDays(i)},
                        {"Status", false}});
    transaction.commit();
  }
  store::Recordset employees() {
    return store::Recordset(connection_, "select * from Employees where EmpName like 'Name %' order by empname");
  }
  QString shown(int row, int column) const { return model_.index(row, column).data().toString(); }

  test::NewCompany company_;
  store::Connection connection_{schema::companyCatalog()};
  RecordsetModel model_{{{.caption = "Name", .field = "EmpName", .use = ColumnUse::Editable},
                         {.caption = "Salary",
                          .field = "Salary",
                          .format = "0.00;(0.00)",
                          .alignment = ColumnAlignment::Right,
                          .use = ColumnUse::Editable},
                         {.caption = "Joined", .field = "DateJoin", .format = "dd-mm-yyyy"},
                         {.caption = "Unknown", .field = "nosuch"}}};
};

TEST_F(Lists, ShowFieldsInTheirFormats) {
  addEmployees(3);
  model_.setRecordset(employees());
  ASSERT_EQ(model_.rowCount(), 3);
  EXPECT_EQ(shown(0, 0), QStringLiteral("Name 1001"));
  EXPECT_EQ(shown(0, 1), QStringLiteral("(1.50)"));
  EXPECT_EQ(model_.index(0, 1).data(Qt::EditRole).toString(), QStringLiteral("-1.5"));
  EXPECT_EQ(shown(2, 2), QStringLiteral("07-03-2026"));
  EXPECT_EQ(shown(0, 3), QString());
  EXPECT_TRUE(model_.index(0, 1).data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
}

// The row has all of it.
TEST_F(Lists, ShowTheBeginningOfAVeryLongText) {
  std::string name = "Name 1 ";
  while (name.size() < 1'000'000) name += " \u00FCber \U0001F600";
  store::Recordset(connection_, "select * from Employees where EmpID=0").addNew({{"EmpName", name}, {"Status", false}});
  model_.setRecordset(employees());
  EXPECT_LE(shown(0, 0).size(), 301);
  EXPECT_TRUE(QString::fromStdString(name).startsWith(shown(0, 0).chopped(1)));
  EXPECT_TRUE(shown(0, 0).endsWith(QChar(0x2026)));
  EXPECT_TRUE(employees().text("EmpName") == name);
}

TEST_F(Lists, HandRowsToTheViewInPortions) {
  addEmployees(600);
  model_.setRecordset(employees());
  EXPECT_LT(model_.rowCount(), 600);
  TableView view;
  view.showModel(model_);
  test::focus(view);
  test::press(view, Qt::Key_End);
  EXPECT_TRUE(test::waitFor([this] { return model_.rowCount() == 600; }));
  EXPECT_EQ(view.currentIndex().data().toString(), QStringLiteral("Name 1600"));
  EXPECT_FALSE(model_.canFetchMore({}));
}

TEST_F(Lists, GoToTheEndOfALongListWithoutHoldingUpAKey) {
  addEmployees(20000);
  TableView view;
  view.showModel(model_);
  test::focus(view);
  for (const bool isStopped : {true, false}) {
    model_.setRecordset(employees());
    test::press(view, Qt::Key_End);
    ASSERT_LT(model_.rowCount(), 20000) << "of so many only some are fetched before the next key";
    if (isStopped) test::press(view, Qt::Key_Home);
    EXPECT_EQ(test::waitFor([&] { return view.currentIndex().row() == 19999; }, isStopped ? 300 : 20000), !isStopped);
  }
}

TEST_F(Lists, ReadAndWriteWithoutMovingTheCursor) {
  addEmployees(5);
  store::Recordset rows = employees();
  model_.setRecordset(rows);
  rows.moveTo(3);
  EXPECT_TRUE(model_.setData(model_.index(1, 1), QStringLiteral("12.5")));
  EXPECT_EQ(shown(1, 1), QStringLiteral("12.50"));
  EXPECT_EQ(rows.position(), 3);
  EXPECT_FALSE(model_.setData(model_.index(1, 2), QStringLiteral("01-01-2026"))) << "the column is not editable";
}

TEST_F(Lists, RefuseTextThatDoesNotFitTheColumn) {
  addEmployees(2);
  model_.setRecordset(employees());
  QString sentence;
  QObject::connect(&model_, &RecordsetModel::refused, [&](const QString& told) { sentence = told; });
  EXPECT_FALSE(model_.setData(model_.index(0, 1), QStringLiteral("twelve")));
  EXPECT_FALSE(sentence.isEmpty());
  EXPECT_EQ(shown(0, 1), QStringLiteral("(1.50)"));
}

TEST_F(Lists, FollowTheRecordsetsOrderAndFilter) {
  addEmployees(4);
  store::Recordset rows = employees();
  model_.setRecordset(rows);
  model_.sort(1, Qt::DescendingOrder);
  EXPECT_EQ(shown(0, 0), QStringLiteral("Name 1004"));
  const qlonglong bookmark = model_.index(0, 0).data(Qt::UserRole).toLongLong();
  rows.setBookmark(bookmark);
  EXPECT_EQ(rows.text("EmpName"), "Name 1004");
  rows.setFilter("Salary > 0");
  model_.reload();
  EXPECT_EQ(model_.rowCount(), 2);
  model_.setRecordset(store::Recordset());
  EXPECT_EQ(model_.rowCount(), 0);
}

TEST_F(Lists, PickARowByEnterOrDoubleClick) {
  addEmployees(3);
  model_.setRecordset(employees());
  TableView view;
  view.showModel(model_);
  test::focus(view);
  std::vector<int> picked;
  QObject::connect(&view, &TableView::picked, [&](const QModelIndex& index) { picked.push_back(index.row()); });
  view.setCurrentIndex({});
  test::press(view, Qt::Key_Return);
  EXPECT_TRUE(picked.empty()) << "no row is current yet";
  view.setCurrentIndex(model_.index(2, 0));
  test::press(view, Qt::Key_Return);
  Q_EMIT view.doubleClicked(model_.index(1, 1));
  EXPECT_EQ(picked, (std::vector<int>{2, 1}));
}

}  // namespace
}  // namespace velmo::forms
