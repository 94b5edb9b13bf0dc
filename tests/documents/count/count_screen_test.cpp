#include "documents/count/count_screen.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QTimeEdit>

#include "documents/count/count_grid.h"
#include "documents/count/count_print.h"
#include "documents/stock/stock_company.h"
#include "forms/date_picker.h"
#include "printing/paginator.h"

namespace {

using namespace velmo;
using namespace velmo::test;
using Rows = std::vector<std::string>;

// A place with 100 hammers at 100 and 20 nails at 0.5, at ten past ten.
class CountDesk : public testing::Test {
 protected:
  CountDesk() {
    NewCompany::run({"delete from Transactions",
                     "update StockLevel3 set ValuationType = No, ValuationCost2 = 0.5 where ItemCode = 'N1'",
                     "INSERT INTO StockLevel1 (CatID, CatName) VALUES ('PAI', 'Paint')",
                     "INSERT INTO StockLevel2 (SubCatID, SubCatName, CatID) VALUES ('PAI01', 'Paint', 'PAI')",
                     "INSERT INTO StockLevel3 (ItemCode, ItemName, Unit, Status, CatID, SubCatID) VALUES ('P1', "
                     "'White', 'Tin', No, 'PAI', 'PAI01')",
                     "INSERT INTO StockLevel2 (SubCatID, SubCatName, CatID) VALUES ('SRV09', 'Work', 'SERVICE')",
                     "INSERT INTO StockLevel3 (ItemCode, ItemName, Unit, Status, CatID, SubCatID) VALUES ('W1', "
                     "'Work', 'h', No, 'SERVICE', 'SRV09')",
                     "INSERT INTO Transactions (TranNo, DocNo, TranDate, TranType, FYID, Cancel, InvLedger, TimeAdded, "
                     "TimeEdited) VALUES (900, 1, #11-01-2026#, 22, 1, No, No, #11-01-2026#, #11-01-2026#)",
                     "INSERT INTO StockFlow (TranNo, ItemCode, StockIn, LocationID) VALUES (900, 'H1', 100, 1)",
                     "INSERT INTO StockFlow (TranNo, ItemCode, StockIn, LocationID) VALUES (900, 'N1', 20, 1)",
                     "INSERT INTO StockFlow (TranNo, ItemCode, StockIn, LocationID) VALUES (900, 'N1', 7, 2)"});
    screen = std::make_unique<documents::CountScreen>(
        office.workplace, [this](session::Workplace&, QWidget*) { return fromFile; }, nullptr);
    screen->resize(1024, 700);
    screen->show();
  }

  template <typename Control>
  Control& control(const char* name) {
    auto* found = screen->findChild<Control*>(name);
    if (!found) throw std::runtime_error(std::string("no control ") + name);
    return *found;
  }
  // Code, book, counted, difference and what moved since.
  Rows shown() {
    const QAbstractItemModel& model = *control<QTableView>("Grid").model();
    Rows rows;
    for (int row = 0; row < model.rowCount(); ++row) {
      std::string text;
      for (const int column : {0, 4, 5, 6, 7})
        text += (column == 0 ? "" : "|") + model.index(row, column).data().toString().toStdString();
      rows.push_back(text);
    }
    return rows;
  }
  bool count(int row, const char* quantity) {
    auto& model = *control<QTableView>("Grid").model();
    return model.setData(model.index(row, 5), quantity);
  }
  void choose(const char* category) { control<forms::DropCombo>("CatList").setBoundValue(std::string(category)); }
  void scan(const char* code) {
    control<QLineEdit>("CodeTxt").setText(code);
    press(control<QLineEdit>("CodeTxt"), Qt::Key_Return);
  }
  void showDifferences(const std::function<void(QDialog&)>& work) {
    bool seen = false;
    QTimer::singleShot(0, screen.get(), [&] {
      auto* dialog = screen->findChild<QDialog*>("CountDifferences");
      ASSERT_NE(dialog, nullptr);
      seen = true;
      work(*dialog);
      if (dialog->isVisible()) dialog->reject();
    });
    control<QPushButton>("DiffBttn").click();
    EXPECT_TRUE(seen);
  }
  void saveDifferences() {
    showDifferences([](QDialog& dialog) { dialog.findChild<QPushButton*>("SaveBttn")->click(); });
  }
  Rows saved() {
    return office.rows(
        "select trantype, docno, trandate, stockin, stockout, rate, itemvalue, itemcode, locationid from transactions "
        "inner join stockflow on transactions.tranno = stockflow.tranno where trantype = 45 or trantype = 47 order by "
        "trantype, docno, serial");
  }

  StockCompany office;
  std::map<std::string, double> fromFile;
  std::unique_ptr<documents::CountScreen> screen;
};

TEST_F(CountDesk, BringsTheBooksToWhatWasCountedAndLeavesTheRest) {
  EXPECT_EQ(shown(), (Rows{"H1|100.00|||", "N1|20.00|||", "P1|0.00|||"})) << "no service, and only this place";
  EXPECT_TRUE(count(0, "97"));
  scan("p1");
  scan("P1");
  EXPECT_EQ(shown(), (Rows{"H1|100.00|97.00|(3.00)|", "N1|20.00|||", "P1|0.00|2.00|2.00|"}));
  showDifferences([this](QDialog& dialog) {
    EXPECT_EQ(dialog.findChild<QLabel*>("SummaryLbl")->text().toStdString(),
              "One document adds with 1 line and a value of 0.00; one document reduces with 1 line and a value of "
              "300.00.");
    EXPECT_EQ(saved(), Rows{}) << "shown before it is saved";
  });
  EXPECT_EQ(saved(), Rows{}) << "and given up";
  saveDifferences();
  EXPECT_EQ(saved(), (Rows{"45|1|11/22/2026|2||0|0|P1|1", "47|1|11/22/2026||3|100|300|H1|1"}));
  EXPECT_EQ(office.rows("select acccode, debit, credit from transactions inner join subtransactions on "
                        "transactions.tranno = subtransactions.tranno where trantype = 47 order by serial"),
            (Rows{"50001005|300|", "50001002||300"}));
  EXPECT_EQ(office.one("select [desc] from transactions where trantype = 47"),
            "Count sheet of Main Store, book quantity as at 22-11-2026 10:30:15");
  EXPECT_EQ(control<QLabel>("ScanLbl").text(), "Inventory Added No. 1 and Inventory Reduced No. 1 were saved.");
  EXPECT_EQ(shown(), (Rows{"H1|97.00|||", "N1|20.00|||", "P1|2.00|||"})) << "a new sheet of the present books";
  office.prompts.expect("Nothing Differs", "What was counted is what the books have. Nothing is to be saved.");
  count(0, "97");
  control<QPushButton>("DiffBttn").click();
}

TEST_F(CountDesk, TakesWhatWasNotCountedAsNilOnlyWhenTold) {
  count(0, "100");
  control<QCheckBox>("NilOption").setChecked(true);
  EXPECT_EQ(shown(), (Rows{"H1|100.00|100.00||", "N1|20.00||(20.00)|", "P1|0.00|||"}));
  choose("TOO");
  saveDifferences();
  EXPECT_EQ(saved(), (Rows{"47|1|11/22/2026||20|0.5|10|N1|1"}));
  EXPECT_FALSE(control<QCheckBox>("NilOption").isChecked()) << "for the next sheet it is asked for again";
}

TEST_F(CountDesk, TellsWhatMovedLaterAndKeepsItApart) {
  NewCompany::run(
      {"INSERT INTO Transactions (TranNo, DocNo, TranDate, TranType, FYID, Cancel, InvLedger, TimeAdded, TimeEdited) "
       "VALUES (901, 17, #11-22-2026#, 32, 1, No, No, #11-22-2026 11:00:00#, #11-22-2026 11:00:00#)",
       "INSERT INTO StockFlow (TranNo, ItemCode, StockOut, LocationID) VALUES (901, 'H1', 5, 1)"});
  count(0, "98");
  showDifferences([](QDialog& dialog) {
    EXPECT_EQ(dialog.findChild<QLabel*>("LaterLbl")->text().toStdString(),
              "Since then saved or changed at this location: Sale Invoice No. 17. They are not in the book quantity of "
              "this sheet; what was changed counts as it stands now.");
  });
  EXPECT_EQ(shown().front(), "H1|100.00|98.00|(2.00)|(5.00)");
  saveDifferences();
  EXPECT_EQ(office.balance("locationid=1"), "93") << "what was sold since is not undone";
  control<QTimeEdit>("TrTime").setTime(QTime(23, 0));
  press(control<QTimeEdit>("TrTime"), Qt::Key_Return);
  EXPECT_EQ(shown().front(), "H1|93.00|||");
}

TEST_F(CountDesk, RefusesWhatIsNoCountAndNoItem) {
  for (const char* typed : {"two", "-1", "1e308", "100000000"}) EXPECT_FALSE(count(0, typed)) << typed;
  EXPECT_TRUE(count(0, "0"));
  EXPECT_TRUE(count(0, ""));
  for (const char* code : {"X9", "W1", "%"}) {
    scan(code);
    EXPECT_EQ(control<QLabel>("ScanLbl").text().toStdString(),
              std::string("No item that is kept in stock has the code ") + code + ".");
  }
  count(0, "1");
  control<forms::DropCombo>("LocationList").setEditText("Nowhere");
  office.prompts.expect("Cannot Save", "Select a correct location of inventory.");
  control<QPushButton>("DiffBttn").click();
  control<forms::DropCombo>("LocationList").setBoundValue(std::int64_t{1});
  control<forms::DatePicker>("TrDate").setDay(text::DateTime::fromCalendar(2027, 1, 2));
  office.prompts.expect("Cannot Save", "Transaction date cannot be after ending date of financial year.");
  control<QPushButton>("DiffBttn").click();
}

TEST_F(CountDesk, KeepsCountsOfOtherCategoriesAndPlacesOnTheSheet) {
  count(0, "3");
  choose("PAI");
  EXPECT_EQ(shown(), (Rows{"H1|100.00|3.00|(97.00)|", "P1|0.00|||"}));
  fromFile = {{"N1", 4}, {"Gone", 1}};
  control<QPushButton>("ImportBttn").click();
  EXPECT_EQ(shown(), (Rows{"H1|100.00|3.00|(97.00)|", "N1|20.00|4.00|(16.00)|", "P1|0.00|||"}));
  control<forms::DropCombo>("LocationList").setBoundValue(std::int64_t{2});
  EXPECT_EQ(shown(), (Rows{"H1|0.00|3.00|3.00|", "N1|7.00|4.00|(3.00)|", "P1|0.00|||"}));
}

TEST_F(CountDesk, AsksBeforeCountsAreDroppedWhenTheUserWantsToBeAsked) {
  EXPECT_TRUE(screen->MayLeave());
  count(0, "3");
  EXPECT_TRUE(screen->MayLeave());
  office.context.AskBeforeDropping = true;
  office.prompts.expect("Not Saved", "What was counted is not in the books yet. Do you want to drop it?",
                        session::Answer::No);
  EXPECT_FALSE(screen->MayLeave());
}

TEST(CountDocuments, HoldFiveHundredLinesEachAndAreThereTogether) {
  StockCompany office;
  constexpr int items = 1201;
  {
    store::Connection::Transaction transaction(office.context.KORDconn);
    for (int item = 0; item < items; ++item)
      office.run("INSERT INTO StockLevel3 (ItemCode, ItemName, Status, CatID, SubCatID, ValuationCost2) VALUES ('C" +
                 std::to_string(10000 + item) + "', 'Many', No, 'TOO', 'TOO01', 1)");
    transaction.commit();
  }
  const documents::CountSave save{.place = {.FYID = 1, .locationId = 1, .moment = office.clock.now()},
                                  .location = "Main",
                                  .now = office.clock.now()};
  documents::CountSheet sheet;
  sheet.setBook(documents::readBook(office.context.KORDconn, save.place));
  for (int item = 0; item < items; ++item) ASSERT_TRUE(sheet.count("C" + std::to_string(10000 + item), 2));
  auto documents = countDocuments(sheet, documents::NotCounted::Stays);
  ASSERT_EQ(documents.size(), 3u);
  EXPECT_EQ(documents.back().lines.size(), 201u);

  const std::string before = office.one("select count(*) as n from transactions");
  office.run("delete from acclevel3 where acccode = 50001005");
  EXPECT_THROW(saveCount(office.context, documents, save), store::StoreError);
  EXPECT_EQ(office.one("select count(*) as n from transactions"), before);
  office.run("INSERT INTO AccLevel3 (AccCode, AccName, Level1ID, Level2ID) VALUES (50001005, 'Adjusted', 500, 50001)");
  EXPECT_EQ(saveCount(office.context, documents, save),
            (Rows{"Inventory Added No. 1", "Inventory Added No. 2", "Inventory Added No. 3"}));
  EXPECT_EQ(office.rows("select tramount from transactions where trantype = 45 order by docno"),
            (Rows{"1000", "1000", "402"}));
}

TEST_F(CountDesk, PrintsPlaceMomentAndItemsWithOrWithoutTheBook) {
  documents::CountSheet sheet;
  const documents::CountPlace place{.FYID = 1, .locationId = 1, .moment = office.clock.now()};
  sheet.setBook(documents::readBook(office.context.KORDconn, place));
  for (const auto book : {documents::BookOnPaper::Shown, documents::BookOnPaper::LeftOut}) {
    std::string all;
    const printing::Report report = countPrint(office.context, sheet, place, "Main", book, office.clock.today());
    printing::Paginator pages(report);
    while (const auto page = pages.next())
      for (const printing::TextRun& run : page->drawing.texts) all += page->drawing.textOf(run).toStdString() + "\n";
    EXPECT_NE(all.find("Count Sheet of Main, as at 22-11-2026 10:30:15"), std::string::npos) << all;
    EXPECT_NE(all.find("Hammer"), std::string::npos) << all;
    EXPECT_EQ(all.find("100.00") != std::string::npos, book == documents::BookOnPaper::Shown) << all;
  }
}

}  // namespace
