#include "forms/drop_combo.h"

#include <QLineEdit>

#include "support/new_company.h"
#include "support/typing.h"

namespace velmo::forms {
namespace {

class Choices : public testing::Test {
 protected:
  Choices() {
    connection_.open(schema::plainConnectionString);
    company_.run(connection_,
                 {"delete * from Employees", "insert into Employees (EmpID, EmpName, Status) values (11, 'Karim', no)",
                  "insert into Employees (EmpID, EmpName, Status) values (12, 'Karin (Ann)', no)",
                  "insert into Employees (EmpID, EmpName, Status) values (13, 'O''Brien', no)",
                  "insert into Employees (EmpID, EmpName, Status) values (14, 'Twin', no)",
                  "insert into Employees (EmpID, EmpName, Status) values (15, 'Twin', no)"});
    fill();
  }

  void fill() {
    combo_.setSource(store::Recordset(connection_, "Select Empid, EmpName from Employees order by empname, empid"),
                     "EmpName", "EmpID");
  }
  std::int64_t bound() const { return store::integerOf(combo_.boundValue()); }

  test::NewCompany company_;
  store::Connection connection_{schema::companyCatalog()};
  DropCombo combo_;
};

TEST_F(Choices, AreMatchedByTheirWholeText) {
  struct Row {
    const char* text;
    bool matches;
    std::int64_t bound;
  };
  const Row table[] = {
      {"", false, 0},        {"Karim", true, 11},       {"KARIM", true, 11}, {"Kari", false, 0}, {"Karim ", false, 0},
      {"O'Brien", true, 13}, {"Karin (Ann)", true, 12}, {"%", false, 0},     {"Kar*", false, 0}, {"[Kk]arim", false, 0},
  };
  for (const Row& row : table) {
    combo_.setEditText(QString::fromUtf8(row.text));
    EXPECT_EQ(combo_.matchesEntry(), row.matches) << row.text;
    EXPECT_EQ(bound(), row.bound) << row.text;
    EXPECT_EQ(combo_.currentText(), QString::fromUtf8(row.text));
  }
}

TEST_F(Choices, ShowTheEntryOfAValueWhateverItsNumberType) {
  for (const store::Value& value : {store::Value(std::int64_t{12}), store::Value(12.0)}) {
    combo_.setBoundValue(value);
    EXPECT_EQ(combo_.currentText(), QStringLiteral("Karin (Ann)"));
  }
  combo_.setBoundValue(std::int64_t{15});
  EXPECT_EQ(bound(), 15) << "entries that read alike keep their own value";
  for (const store::Value& value : {store::Value(std::int64_t{0}), store::Value(store::Null{})}) {
    combo_.setBoundValue(value);
    EXPECT_EQ(combo_.currentText(), QString());
    EXPECT_FALSE(combo_.matchesEntry());
    combo_.setEditText(QStringLiteral("Karim"));
  }
}

TEST_F(Choices, AreCompletedWhileTyping) {
  test::focus(combo_);
  test::type(*combo_.lineEdit(), QStringLiteral("karin"));
  EXPECT_EQ(bound(), 12);
  test::type(*combo_.lineEdit(), QStringLiteral("!"));
  EXPECT_FALSE(combo_.matchesEntry());
  EXPECT_EQ(combo_.count(), 5) << "typing adds no entries";
}

TEST_F(Choices, TellWhenAnotherEntryIsMeant) {
  int changes = 0;
  QObject::connect(&combo_, &DropCombo::entryChanged, [&] { ++changes; });
  combo_.setEditText(QStringLiteral("nobody"));
  EXPECT_EQ(changes, 0);
  combo_.setEditText(QStringLiteral("Karim"));
  combo_.setEditText(QStringLiteral("karim"));
  EXPECT_EQ(changes, 1);
  combo_.setBoundValue(std::int64_t{14});
  combo_.setBoundValue(std::int64_t{15});
  EXPECT_EQ(changes, 3);
  combo_.clearEditText();
  EXPECT_EQ(changes, 4);
}

TEST_F(Choices, AreReadAfresh) {
  combo_.setBoundValue(std::int64_t{11});
  company_.run(connection_, {"delete * from Employees where EmpID=11"});
  fill();
  EXPECT_EQ(combo_.count(), 4);
  EXPECT_EQ(combo_.currentText(), QString());
  company_.run(connection_, {"delete * from Employees"});
  fill();
  EXPECT_EQ(combo_.count(), 0);
  EXPECT_FALSE(combo_.matchesEntry());
}

}  // namespace
}  // namespace velmo::forms
