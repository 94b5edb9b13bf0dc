#include "masters/import/import_dialog.h"

#include <zip.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTableView>
#include <fstream>

#include "masters/import/import_sheets.h"
#include "spreadsheet/sheet_reader.h"
#include "support/company_session.h"

namespace velmo::masters {
namespace {

class ImportScreens : public test::CompanySession {
 protected:
  ImportScreens() {
    logIn();
    files.meanwhile = [] { std::filesystem::current_path("/"); };  // as some desktops' dialogs do
    test::NewCompany::run(context->KORDconn,
                          {"INSERT INTO StockLevel1 (CatID, CatName) VALUES ('HND', 'Hand Tools')",
                           "INSERT INTO StockLevel2 (SubCatID, SubCatName, CatID) VALUES ('HND01', 'Hammers', 'HND')"});
  }

  void open(ImportKind kind) {
    auto* made = makeImport(kind, *workplace, nullptr);
    dialog.reset(made);
    import = made;
    dialog->show();
  }
  void choose(const std::string& name, const std::string& bytes) {
    files.name = (company.folder() / name).string();
    std::ofstream(files.name, std::ios::binary) << bytes;
    control<QPushButton>("BrowseBttn").click();
  }
  void next() { control<QPushButton>("NextBttn").click(); }
  std::string step() { return control<QLabel>("StepLbl").text().left(11).toStdString(); }
  std::string summary() { return control<QLabel>("SummaryLbl").text().toStdString(); }
  // The rows of a grid, cells divided by bars.
  std::vector<std::string> grid(const char* name) {
    const QAbstractItemModel& model = *control<QTableView>(name).model();
    std::vector<std::string> rows;
    for (int row = 0; row < model.rowCount(); ++row) {
      QStringList cells;
      for (int column = 0; column < model.columnCount(); ++column)
        cells.append(model.index(row, column).data().toString());
      rows.push_back(cells.join(u'|').toStdString());
    }
    return rows;
  }
  std::int64_t count(const std::string& statement) {
    return store::Recordset(context->KORDconn, statement, store::LockType::ReadOnly).recordCount();
  }

  QDialog* import = nullptr;
};

TEST_F(ImportScreens, LeadFromTheFileToTheBooksByKeyboard) {
  open(ImportKind::Items);
  EXPECT_EQ(dialog->objectName(), "ImportItems");
  test::focus(*dialog);
  files.name = (company.folder() / "items.csv").string();
  std::ofstream(files.name)
      << "Price list\n\nCode;Product;Price;Group\n007;Claw;1.234,50;Hammers\n008;Nail;0,75;Nails\n";
  test::press(*dialog, Qt::Key_Return);  // without a file, going on is choosing one
  EXPECT_EQ(std::filesystem::current_path(), company.folder());
  EXPECT_EQ(step(), "Step 1 of 3");
  EXPECT_THAT(grid("PreviewGrid"), testing::ElementsAre("Price list|||", "|||", "Code|Product|Price|Group",
                                                        "007|Claw|1.234,50|Hammers", "008|Nail|0,75|Nails"));
  test::press(*dialog, Qt::Key_Return);
  EXPECT_EQ(step(), "Step 2 of 3");
  EXPECT_EQ(control<QSpinBox>("HeadingRow").value(), 3);
  EXPECT_EQ(control<QComboBox>("Column_SellingPrice").currentText(), "Price");
  EXPECT_EQ(control<QLabel>("Sample_SellingPrice").text(), "1.234,50  ·  0,75");
  EXPECT_EQ(control<QComboBox>("DecimalList").currentText(), "Comma: 1.234,50");
  EXPECT_TRUE(control<QComboBox>("Column_ItemCode").hasFocus());
  control<QCheckBox>("MakeMissing").setChecked(true);
  control<QComboBox>("Otherwise_Category").setCurrentText("Hand Tools");
  test::press(*dialog, Qt::Key_Return);
  EXPECT_EQ(step(), "Step 3 of 3");
  EXPECT_THAT(grid("CheckGrid"), testing::ElementsAre("4|007|Claw|HND01  Hammers|", "5|008|Nail|New: HND02  Nails|"));
  EXPECT_EQ(summary(), "2 new items can be made, with 1 new sub category.");
  EXPECT_EQ(control<QPushButton>("NextBttn").text(), "&Import 2 items");
  EXPECT_EQ(count("select itemcode from stocklevel3 where catid like 'HND'"), 0);
  prompts.expect("Import Items", "2 items were brought in.");
  control<QPushButton>("NextBttn").setFocus();
  test::press(control<QPushButton>("NextBttn"), Qt::Key_Return);
  EXPECT_EQ(import->result(), QDialog::Accepted);
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_EQ(count("select itemcode from stocklevel3 where sellingprice = 1234.5 and subcatid like 'HND01'"), 1);
}

TEST_F(ImportScreens, LeaveOutRowsWithProblemsOnlyWhenTold) {
  open(ImportKind::Customers);
  choose("customers.csv", "Customer,Credit limit,Region\nZed,1000,General\nYard,ten,\n,5,\nXen,,West\n");
  next();
  // The only sub type there is stands in for the column that is not there.
  EXPECT_EQ(control<QComboBox>("Otherwise_SubType").currentText(), "12001  Trade Customers");
  next();
  EXPECT_EQ(summary(), "1 new customer can be made. 3 rows have problems.");
  EXPECT_THAT(grid("CheckGrid"),
              testing::ElementsAre("3||Yard|12001  Trade Customers|\"ten\": Enter numeric credit limit.",
                                   "4|||12001  Trade Customers|Enter customer name to save.",
                                   "5||Xen|12001  Trade Customers|\"West\": Select correct region name."));
  control<QCheckBox>("OnlyProblems").setChecked(false);
  EXPECT_EQ(grid("CheckGrid").size(), 4U);
  EXPECT_FALSE(control<QPushButton>("NextBttn").isEnabled());
  EXPECT_EQ(control<QLabel>("ReasonLbl").text(), "Leave out the rows with problems, or mend them in the file.");
  files.name = (company.folder() / "problems.xlsx").string();
  prompts.expect("Spreadsheet Saved", "4 rows were saved in \"" + files.name + "\".");
  control<QTableView>("CheckGrid").actions().front()->trigger();
  EXPECT_EQ(spreadsheet::readSheet(files.name)->at(1, 1), spreadsheet::Cell("12001002"));

  // Back, another choice, and forth again: the plan is made anew.
  control<QPushButton>("BackBttn").click();
  control<QComboBox>("Column_Region1ID").setCurrentIndex(0);
  next();
  EXPECT_EQ(summary(), "2 new customers can be made. 2 rows have problems.");
  control<QCheckBox>("LeaveOut").setChecked(true);
  EXPECT_TRUE(control<QPushButton>("NextBttn").isEnabled());
  EXPECT_EQ(control<QLabel>("ReasonLbl").text(), "");
  prompts.expect("Import Customers", "2 customers were brought in.");
  next();
  EXPECT_EQ(count("select acccode from acclevel3 where level2id = 12001"), 3);
}

TEST_F(ImportScreens, TellWhatIsWrongWithAFileAndGoOnWithAnother) {
  open(ImportKind::Accounts);
  prompts.expect("Cannot Read File", "The file is empty.");
  choose("empty.csv", "");
  files.name.clear();
  next();  // asks for a file again; none is chosen
  EXPECT_EQ(step(), "Step 1 of 3");
  prompts.expect("Cannot Read File", "The sheet holds no rows.");
  choose("blank.csv", "\n\n");
  choose("accounts.csv", "caf\xE9;rent\n");
  EXPECT_THAT(grid("PreviewGrid"), testing::ElementsAre("café|rent"));
  auto& encodings = control<QComboBox>("EncodingList");
  encodings.setCurrentIndex(encodings.findText("Cyrillic"));
  Q_EMIT encodings.activated(encodings.currentIndex());
  EXPECT_THAT(grid("PreviewGrid"), testing::ElementsAre("cafй|rent"));
  next();
  prompts.expect("Cannot Import", "Choose the column of \"Name\".");
  next();
  EXPECT_EQ(dialog->focusWidget(), &control<QComboBox>("Column_AccName"));
  control<QComboBox>("Column_AccName").setCurrentIndex(1);
  control<QComboBox>("Otherwise_SubType").setCurrentText("60002");
  prompts.expect("Cannot Import", "There are no rows behind the headings.");
  next();
  control<QSpinBox>("HeadingRow").setValue(0);
  EXPECT_EQ(control<QComboBox>("Column_AccName").itemText(1), "Column A");
  control<QComboBox>("Column_AccName").setCurrentIndex(1);
  control<QComboBox>("Otherwise_SubType").setCurrentText("60002");
  next();
  EXPECT_EQ(summary(), "1 new account can be made.");
  import->reject();
  EXPECT_EQ(count("select acccode from acclevel3 where accname like 'caf%'"), 0);
}

TEST_F(ImportScreens, ShowTheSheetsOfAWorkbookAndWhatItsCellsLack) {
  const auto row = [](const char* cells) { return std::string("<d:table-row>") + cells + "</d:table-row>"; };
  const std::string text = "<d:table-cell d:value-type='string'><d:p>";
  const std::string end = "</d:p></d:table-cell>";
  const std::string formula = "<d:table-cell d:formula='of:=A1'/>";
  const std::string content = "<d:document-content xmlns:d='d'><d:body><d:spreadsheet><d:table d:name='Notes'>" +
                              row((text + "hello" + end).c_str()) + "</d:table><d:table d:name='Vendors'>" +
                              row((text + "Vendor" + end + text + "Credit limit" + end).c_str()) +
                              row((text + "Zed" + end + formula).c_str()) +
                              "</d:table></d:spreadsheet></d:body></d:document-content>";
  files.name = (company.folder() / "book.ods").string();
  const std::string type = "application/vnd.oasis.opendocument.spreadsheet";
  zip_t* archive = zip_open(files.name.c_str(), ZIP_CREATE, nullptr);
  zip_file_add(archive, "mimetype", zip_source_buffer(archive, type.data(), type.size(), 0), 0);
  zip_file_add(archive, "content.xml", zip_source_buffer(archive, content.data(), content.size(), 0), 0);
  ASSERT_EQ(zip_close(archive), 0);

  open(ImportKind::Vendors);
  control<QPushButton>("BrowseBttn").click();
  EXPECT_THAT(grid("PreviewGrid"), testing::ElementsAre("hello"));
  EXPECT_FALSE(control<QComboBox>("SeparatorList").isVisible());
  auto& sheets = control<QComboBox>("SheetList");
  ASSERT_TRUE(sheets.isVisible());
  sheets.setCurrentIndex(1);
  Q_EMIT sheets.activated(1);
  next();
  next();
  EXPECT_EQ(summary(), "0 new suppliers can be made. 1 row has a problem.");
  EXPECT_EQ(control<QLabel>("ProblemLbl").text(),
            "Credit limit: The formula has no stored result. Open the file in its own program and save it again.");
  control<QCheckBox>("LeaveOut").setChecked(true);
  EXPECT_FALSE(control<QPushButton>("NextBttn").isEnabled());
  // The same file again: what was chosen is guessed anew for another sheet only.
  control<QPushButton>("BackBttn").click();
  control<QComboBox>("Column_CreditLimit").setCurrentIndex(0);
  control<QPushButton>("BackBttn").click();
  next();
  EXPECT_EQ(control<QComboBox>("Column_CreditLimit").currentIndex(), 0);
  next();
  EXPECT_EQ(summary(), "1 new supplier can be made.");
}

TEST_F(ImportScreens, WriteNothingWhenTheBooksRefuse) {
  open(ImportKind::Items);
  choose("items.csv", "Code,Name,Sub category\n1,One,Hammers\n2,Two,Hammers\n");
  next();
  next();
  context->KORDconn.execute(
      "INSERT INTO StockLevel3 (ItemCode, ItemName, CatID, SubCatID) VALUES ('2', 'T', 'HND', 'HND01')");
  prompts.expect(
      "Cannot Import",
      "An item is already present with the same item code. Give a different item code. (2, row 3 of the file.)");
  next();
  EXPECT_EQ(step(), "Step 3 of 3");
  EXPECT_EQ(count("select itemcode from stocklevel3 where itemcode like '1'"), 0);
}

TEST_F(ImportScreens, SaveAnEmptyListThatTheyTakeBack) {
  for (const ImportKind kind : {ImportKind::Accounts, ImportKind::Customers, ImportKind::Vendors, ImportKind::Items}) {
    open(kind);
    const ImportDescriptor& descriptor = importDescriptor(kind);
    files.name = (company.folder() / "empty.xlsx").string();
    prompts.expect("Spreadsheet Saved", "0 rows were saved in \"" + files.name + "\".");
    control<QPushButton>("EmptyListBttn").click();
    EXPECT_EQ(files.proposedName, descriptor.title + ".xlsx");
    control<QPushButton>("BrowseBttn").click();
    next();
    for (std::size_t i = 0; i < descriptor.fields.size(); ++i)
      EXPECT_EQ(control<QComboBox>(("Column_" + descriptor.fields[i].name).c_str()).currentIndex(),
                static_cast<int>(i + 1))
          << descriptor.fields[i].name;
    std::filesystem::remove(files.name);
  }
}

}  // namespace
}  // namespace velmo::masters
