#include "spreadsheet/save_as_spreadsheet.h"

#include <QDate>
#include <QHeaderView>
#include <QProgressDialog>
#include <QStandardItemModel>
#include <QTimer>

#include "forms/table_view.h"
#include "schema/company_schema.h"
#include "spreadsheet/archive.h"
#include "spreadsheet/sheet_files.h"
#include "spreadsheet/table_rows.h"
#include "support/new_company.h"
#include "support/queued_prompts.h"
#include "support/typing.h"

namespace velmo::spreadsheet {
namespace {

class SaveAs : public test::SheetFiles {
 protected:
  SaveAs() {
    connection.open(schema::plainConnectionString);
    store::Connection::Transaction transaction(connection);
    store::Recordset employees(connection, "select * from Employees where EmpID=0");
    for (int i = 0; i < 700; ++i)
      employees.addNew({{"EmpName", "Name " + std::to_string(1000 + i)},
                        {"Salary", i - 2.5},
                        {"NICNo", i == 1 ? "1234.5" : "-"},
                        {"DateJoin", text::DateTime::fromCalendar(2026, 3, 4).addDays(i)},
                        {"Status", i % 2 == 1}});
    transaction.commit();
    table.setObjectName("Grid");
    files.meanwhile = [] { std::filesystem::current_path("/"); };  // as some desktops' dialogs do
  }
  void showEmployees(store::Fetch fetch = store::Fetch::All) {
    model.setRecordset(store::Recordset(connection,
                                        "select * from Employees where EmpName like 'Name %' order by EmpName desc",
                                        store::LockType::ReadOnly, fetch));
    table.showModel(model);
  }

  test::NewCompany company;
  store::Connection connection{schema::companyCatalog()};
  forms::RecordsetModel model{
      {{.caption = "Name", .field = "EmpName"},
       {.caption = "Salary", .field = "Salary", .format = "0.00;(0.00)", .alignment = forms::ColumnAlignment::Right},
       {.caption = "Number", .field = "NICNo", .format = "0.00"},
       {.caption = "Joined", .field = "DateJoin", .format = "dd-mm-yyyy"},
       {.caption = "Left", .field = "Status"},
       {.caption = "Unknown", .field = "nosuch"}}};
  forms::TableView table;
  test::NamedFile files;
  test::QueuedPrompts prompts;
};

TEST_F(SaveAs, SavesTheListAsTheTableShowsIt) {
  QAction* action = addSaveAsSpreadsheet(table, "Staff: all/none", files, prompts);
  for (const store::Fetch fetch : {store::Fetch::All, store::Fetch::AsNeeded}) {
    showEmployees(fetch);
    table.horizontalHeader()->moveSection(3, 0);
    table.setColumnHidden(5, true);
    ASSERT_LT(model.rowCount(), 700);
    files.name = (folder / "staff.xlsx").string();
    prompts.expect("Spreadsheet Saved", "700 rows were saved in \"" + files.name + "\".");
    action->trigger();
    EXPECT_EQ(files.proposedName, "Staff- all-none.xlsx");
    EXPECT_EQ(std::filesystem::current_path(), company.folder());
    const auto sheet = readSheet(files.name);
    ASSERT_TRUE(sheet) << sheet.error();
    ASSERT_EQ(sheet->rows.size(), 701U);
    const std::string cells = shown(*sheet);
    EXPECT_THAT(cells, testing::StartsWith("Joined|Name|Salary|Number|Left\n2028-02-01|Name 1699|696.5|-|Yes\n"));
    EXPECT_THAT(cells, testing::EndsWith("2026-03-05|Name 1001|-1.5|1234.50|Yes\n2026-03-04|Name 1000|-2.5|-|No\n"));
    std::filesystem::remove(files.name);
    table.horizontalHeader()->moveSection(0, 3);
  }
}

TEST_F(SaveAs, ACellHoldsTheAmountThatIsShownAndOfOtherFiguresEveryDigitThatIsKnown) {
  connection.execute("DELETE FROM Employees WHERE EmpName not like 'Name 1000'");
  connection.execute("UPDATE Employees SET Salary = 204.6999999999998 WHERE EmpName = 'Name 1000'");
  forms::RecordsetModel columns(
      {{.caption = "Amount", .field = "Salary", .format = "0.00;(0.00)"},
       {.caption = "Grouped", .field = "Salary", .format = "#,##0.00;(#,##0.00)"},
       {.caption = "Rate", .field = "Salary", .format = "0.00", .figures = forms::FigureKind::Exact},
       {.caption = "Plain", .field = "Salary"}});
  columns.setRecordset(store::Recordset(connection, "select * from Employees", store::LockType::ReadOnly));
  table.setModel(&columns);
  // As the file itself has them: a reader would round.
  const auto cells = [&](const std::string& stored) {
    connection.execute("UPDATE Employees SET Salary = " + stored);
    columns.rows().requery();
    columns.reload();
    std::string written;
    for (const char* ending : {"xlsx", "csv"}) {
      files.name = (folder / ("figures." + std::string(ending))).string();
      prompts.expect("Spreadsheet Saved", "1 row was saved in \"" + files.name + "\".");
      saveAsSpreadsheet(table, "Figures", files, prompts);
      if (std::string(ending) == "csv") {
        const std::string bytes = bytesOf(files.name);
        written += bytes.substr(bytes.find('\n') + 1);
        continue;
      }
      const Archive archive(files.name);
      const std::string sheet = archive.open("xl/worksheets/sheet1.xml")->read(1 << 20).toStdString();
      for (std::size_t at = sheet.find("<v>", sheet.find("r=\"A2\"")); at != std::string::npos;
           at = sheet.find("<v>", at + 1))
        written += sheet.substr(at + 3, sheet.find('<', at + 3) - at - 3) + " ";
    }
    return written;
  };
  EXPECT_EQ(cells("204.6999999999998"), "204.7 204.7 204.7 204.7 204.7,204.7,204.7,204.7\r\n");
  EXPECT_EQ(cells("-1234.5678"), "-1234.57 -1234.57 -1234.5678 -1234.5678 -1234.57,-1234.57,-1234.5678,-1234.5678\r\n");
  EXPECT_EQ(cells("0.335"), "0.34 0.34 0.335 0.335 0.34,0.34,0.335,0.335\r\n");
  EXPECT_EQ(cells("0.00000012345678"), "0 0 1.2345678E-07 1.2345678E-07 0,0,1.2345678E-07,1.2345678E-07\r\n");
}

TEST_F(SaveAs, SavesTheListOfAnyModel) {
  QStandardItemModel items(2, 2);
  items.setHorizontalHeaderLabels({"Code", "Stock"});
  items.setItem(0, 0, new QStandardItem("007"));
  items.setItem(1, 0, new QStandardItem("=A1"));
  items.setData(items.index(0, 1), 12.5, Qt::EditRole);
  items.setData(items.index(1, 1), QDate(2026, 11, 22), Qt::EditRole);
  table.setModel(&items);
  files.name = (folder / "stock.xlsx").string();
  prompts.expect("Spreadsheet Saved", "2 rows were saved in \"" + files.name + "\".");
  saveAsSpreadsheet(table, "Stock", files, prompts);
  EXPECT_EQ(read(files.name), "Code|Stock\n007|12.5\n=A1|2026-11-22\n");
}

TEST_F(SaveAs, IsStoppedAsItsRowsArePacked) {
  const TableRows list{.design = {.title = "Numbers", .columns = {{.caption = "Number"}, {.caption = "Half"}}},
                       .count = 150'000,
                       .rows = [number = 0](std::span<store::Value> cells) mutable {
                         cells[0] = number;
                         cells[1] = number * 0.5;
                         return ++number <= 150'000;
                       }};
  files.answer = written("numbers.xlsx", "older").string();
  QWidget window;
  int reached = 0;  // of 1,000
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, [&] {
    auto* progress = window.findChild<QProgressDialog*>();
    if (!progress) return;
    reached = progress->value();
    if (reached > 600) progress->cancel();
  });
  watch.start(1);
  saveAsSpreadsheet(list, &window, files, prompts);
  EXPECT_GT(reached, 600);
  EXPECT_LT(reached, 1000);
  EXPECT_EQ(bytesOf(files.answer), "older");
  EXPECT_EQ(std::ranges::distance(std::filesystem::directory_iterator(folder)), 1) << "nothing else is left";
}

TEST_F(SaveAs, AsksBeforeItReplacesAndTellsWhatFailed) {
  showEmployees();
  addSaveAsSpreadsheet(table, "Staff", files, prompts);
  test::focus(table);
  const auto command = [this] { test::press(table, Qt::Key_E, Qt::ControlModifier); };
  files.name = "";
  command();
  EXPECT_EQ(files.proposedName, "Staff.xlsx");

  written("staff.xlsx", "older");
  files.name = (folder / "staff").string();
  const std::string question = "The file \"" + files.name + ".xlsx\" is already there. Do you want to replace it?";
  prompts.expect("Save as Spreadsheet", question, session::Answer::No);
  command();
  EXPECT_EQ(bytesOf(folder / "staff.xlsx"), "older");
  prompts.expect("Save as Spreadsheet", question, session::Answer::Yes);
  prompts.expect("Spreadsheet Saved", "700 rows were saved in \"" + files.name + ".xlsx\".");
  command();
  EXPECT_EQ(readSheet(folder / "staff.xlsx")->rows.size(), 701U);

  files.name = (folder / "none" / "staff.xlsx").string();
  prompts.expect("Spreadsheet Not Saved", "There is no folder \"" + (folder / "none").string() + "\".");
  command();
}

}  // namespace
}  // namespace velmo::spreadsheet
