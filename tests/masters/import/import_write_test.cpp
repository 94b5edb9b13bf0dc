#include "masters/import/import_write.h"

#include "masters/import/import_sheets.h"
#include "store/recordset/recordset.h"
#include "support/new_company.h"

namespace velmo::masters {
namespace {

using test::Cells;

class WrittenImport : public testing::Test {
 protected:
  WrittenImport() {
    connection.open(schema::plainConnectionString);
    test::NewCompany::run(connection,
                          {"INSERT INTO StockLevel1 (CatID, CatName) VALUES ('HND', 'Hand Tools')",
                           "INSERT INTO StockLevel2 (SubCatID, SubCatName, CatID) VALUES ('HND01', 'Hammers', 'HND')"});
  }

  ImportPlan plan(ImportKind kind, std::vector<Cells> rows, MissingRows missing = MissingRows::Refuse) {
    const ImportDescriptor& descriptor = importDescriptor(kind);
    const spreadsheet::Sheet sheet = test::sheetOf(std::move(rows));
    return planImport(descriptor, sheet, guessMapping(descriptor, sheet), {.missing = missing},
                      readBooks(connection, descriptor))
        .value();
  }
  void expectRefusal(const ImportPlan& made, const std::string& words) {
    try {
      writeImport(connection, made);
      ADD_FAILURE() << "was written";
    } catch (const store::StoreError& failure) {
      EXPECT_EQ(words, failure.what());
    }
    EXPECT_FALSE(connection.inTransaction());
  }
  // The rows of a statement, one line each.
  std::string rows(const std::string& statement) {
    store::Recordset read(connection, statement);
    std::string lines;
    for (std::int64_t at = 0; at < read.recordCount(); ++at) {
      for (std::size_t i = 0; i < read.fields().size(); ++i)
        lines += (i > 0 ? "|" : "") + store::textOf(read.valueAt(at, static_cast<int>(i)));
      lines += '\n';
    }
    return lines;
  }

  test::NewCompany company;
  store::Connection connection{schema::companyCatalog()};
};

TEST_F(WrittenImport, WritesAllColumnsOfAnAccount) {
  const ImportPlan made =
      plan(ImportKind::Customers, {{"Name", "Sub type", "Address", "NTN", "Credit limit", "Remarks"},
                                   {"O'Brien & Söhne", "12001", "1 Dock Road", "0123", 5000.0, "=1+1"},
                                   {"Broken", "12001", "", "", "x"},
                                   {"Zed", "Trade Customers"}});
  ASSERT_TRUE(writeImport(connection, made));
  EXPECT_EQ(rows("SELECT AccCode, AccName, Level1ID, Level2ID, Contact, Address, Branch, AccountTitle, AccountNo, "
                 "Phone, Mobile, Fax, EMail, Website, SalesTaxRegnNo, NTN, CreditLimit, CreditTerms, Remarks, "
                 "AccLevel3.Default, EmpID, SectorID, Region1ID, Region2ID FROM AccLevel3 WHERE Level2ID = 12001 AND "
                 "AccCode > 12001001 ORDER BY AccCode"),
            "12001002|O'Brien & Söhne|120|12001||1 Dock Road||||||||||0123|5000|0|=1+1|False|1|1|1|1\n"
            "12001003|Zed|120|12001|||||||||||||0|0||False|1|1|1|1\n");
  EXPECT_EQ(rows("select acccode from acclevel3 where contact is null and level2id = 12001"), "");
  // The next file goes on from there, and knows the names.
  EXPECT_THAT(test::shownPlan(plan(ImportKind::Customers, {{"Name", "Sub type"}, {"zed", "12001"}, {"New", "12001"}})),
              testing::ElementsAre("2 !A customer is already present with the same name.",
                                   "3 12001004 New @12001  Trade Customers"));
}

TEST_F(WrittenImport, WritesItemsWithTheBrandsAndSubCategoriesTheyNeed) {
  const ImportPlan made =
      plan(ImportKind::Items,
           {{"Code", "Name", "Category", "Sub category", "Brand", "Price", "Cost method", "Valuation cost"},
            {"007", "Claw", "HND", "Hammers", "", 150.5},
            {"ä-1", "Nail", "HND", "Nails", "Bosch", 1.0, "Manual", 0.75},
            {"Ä-1", "Nail", "HND", "Nails", "Bosch"},
            {"8", "Service", "Service", "Service01"},
            {"9", "Screw", "HND", "Nails", "Hilti", 2.0}},
           MissingRows::Make);
  EXPECT_EQ(made.problems, 2U);
  ASSERT_TRUE(writeImport(connection, made));
  EXPECT_EQ(rows("select brandname from brands order by brandid"), "General\nBosch\nHilti\n");
  EXPECT_EQ(rows("select subcatid, subcatname from stocklevel2 where catid like 'HND' order by subcatid"),
            "HND01|Hammers\nHND02|Nails\n");
  EXPECT_EQ(rows("SELECT ItemCode, ItemName, Description, BrandName, Rack, PurchasePrice, SellingPrice, SellingPrice2, "
                 "SellingPrice3, PackPcs, Unit, ReorderLevel, ValuationCost1, ValuationCost2, ValuationType, Status, "
                 "CatID, SubCatID FROM StockLevel3 INNER JOIN Brands ON StockLevel3.BrandID = Brands.BrandID WHERE "
                 "CatID like 'HND' ORDER BY ItemName"),
            "007|Claw||General||0|150.5|0|0|1|Pcs|0|0|0|True|False|HND|HND01\n"
            "ä-1|Nail||Bosch||0|1|0|0|1|Pcs|0|0.75|0.75|False|False|HND|HND02\n"
            "9|Screw||Hilti||0|2|0|0|1|Pcs|0|0|0|True|False|HND|HND02\n");
}

TEST_F(WrittenImport, KnowsTheBooksByCodesAndNames) {
  test::NewCompany::run(
      connection,
      {"INSERT INTO Regions1 (Region1ID, Region1Name) VALUES (2, 'North')",
       "INSERT INTO Regions2 (Region2ID, Region2Name, Region1ID) VALUES (2, 'General', 2)",
       "INSERT INTO AccLevel2 (Level2ID, L2AccName, TypeID) VALUES (12002, 'Trade Customers', 120)",
       "INSERT INTO AccLevel3 (AccCode, AccName, Level1ID, Level2ID) VALUES (12002007, 'Ünal', 120, 12002)",
       "INSERT INTO StockLevel3 (ItemCode, ItemName, CatID, SubCatID) VALUES ('Äb-1', 'X', 'HND', 'HND01')"});
  using Outcome = NameLookup::Outcome;
  const ImportBooks customers = readBooks(connection, importDescriptor(ImportKind::Customers));
  EXPECT_EQ(customers.types.rows().size(), 1U);
  EXPECT_EQ(customers.subTypes.find("  TRADE customers").outcome, Outcome::Several);
  EXPECT_EQ(customers.subTypes.find("12002 trade customers").outcome, Outcome::One);
  EXPECT_EQ(customers.subTypes.find("21001").outcome, Outcome::None);
  EXPECT_EQ(customers.subTypes.find("").outcome, Outcome::None);
  EXPECT_EQ(customers.subRegions.find("General").outcome, Outcome::Several);
  EXPECT_EQ(customers.subRegions.findUnder("2", "general").row, 1U);
  EXPECT_EQ(customers.lastCodes.at("12002"), "12002007");
  EXPECT_TRUE(customers.taken.contains(foldedName("üNAL")));
  EXPECT_TRUE(customers.taken.contains(foldedName("Walk-in (Cash) Customer")));
  EXPECT_FALSE(customers.taken.contains(foldedName("Cash in Hand")));

  const ImportBooks accounts = readBooks(connection, importDescriptor(ImportKind::Accounts));
  EXPECT_GT(accounts.types.rows().size(), 10U);
  EXPECT_EQ(accounts.lastCodes.at("60002"), "60002015");
  EXPECT_TRUE(accounts.taken.contains("60002 " + foldedName("rent")));

  const ImportBooks items = readBooks(connection, importDescriptor(ImportKind::Items));
  EXPECT_EQ(items.categories.find("Service").outcome, Outcome::None);
  EXPECT_EQ(items.subCategories.find("General Services").outcome, Outcome::None);
  EXPECT_EQ(items.subCategories.findUnder("HND", "hammers").outcome, Outcome::One);
  EXPECT_EQ(items.lastCodes.at("HND"), "HND01");
  EXPECT_TRUE(items.taken.contains(foldedName("äB-1")));
  EXPECT_TRUE(items.taken.contains(foldedName("srv001"))) << "a service has its code for itself";
}

// What another program adds between the plan and its writing.
TEST_F(WrittenImport, GivesAccountsTheNextCodesWhenOthersTookTheirs) {
  test::NewCompany::run(connection, {"INSERT INTO AccLevel2 (Level2ID, L2AccName, TypeID) VALUES (12002, 'Far', 120)"});
  const ImportPlan made = plan(
      ImportKind::Customers,
      {{"Name", "Sub type"}, {"A", "12001"}, {"Far A", "12002"}, {"B", "12001"}, {"C", "12001"}, {"Far B", "12002"}});
  test::NewCompany::run(
      {"INSERT INTO AccLevel3 (AccCode, AccName, Level1ID, Level2ID) VALUES (12001002, 'Theirs', 120, 12001)",
       "INSERT INTO AccLevel3 (AccCode, AccName, Level1ID, Level2ID) VALUES (12001003, 'Theirs', 120, 12001)"});
  ASSERT_TRUE(writeImport(connection, made));
  EXPECT_EQ(rows("select acccode, accname, level2id from acclevel3 where level1id = 120 and acccode > 12001001 order "
                 "by acccode"),
            "12001002|Theirs|12001\n12001003|Theirs|12001\n12001004|A|12001\n12001005|B|12001\n12001006|C|12001\n"
            "12002001|Far A|12002\n12002002|Far B|12002\n")
      << "in the order of the file, and only where it was in the way";
}

TEST_F(WrittenImport, BringsNothingInWhenASeriesIsFullMeanwhile) {
  const ImportPlan made = plan(ImportKind::Customers, {{"Name", "Sub type"}, {"A", "12001"}, {"B", "12001"}});
  test::NewCompany::run(
      {"INSERT INTO AccLevel3 (AccCode, AccName, Level1ID, Level2ID) VALUES (12001002, 'Theirs', 120, 12001)",
       "INSERT INTO AccLevel3 (AccCode, AccName, Level1ID, Level2ID) VALUES (12001998, 'Theirs', 120, 12001)"});
  expectRefusal(made, "You have added maximum number of customers in the selected sub account type.");
  EXPECT_EQ(rows("select accname from acclevel3 where level2id = 12001 and acccode > 12001001"), "Theirs\nTheirs\n");
}

TEST_F(WrittenImport, PutsItemsUnderTheirOwnNewSubCategoryWhenOthersTookItsCode) {
  const ImportPlan made = plan(ImportKind::Items,
                               {{"Code", "Name", "Category", "Sub category"},
                                {"1", "Claw", "HND", "Hammers"},
                                {"2", "Nail", "HND", "Nails"},
                                {"3", "Screw", "HND", "Screws"}},
                               MissingRows::Make);
  test::NewCompany::run({"INSERT INTO StockLevel2 (SubCatID, SubCatName, CatID) VALUES ('HND03', 'Theirs', 'HND')"});
  ASSERT_TRUE(writeImport(connection, made));
  EXPECT_EQ(rows("SELECT ItemCode, StockLevel3.SubCatID, SubCatName FROM StockLevel3 INNER JOIN StockLevel2 ON "
                 "StockLevel3.SubCatID = StockLevel2.SubCatID WHERE StockLevel3.CatID like 'HND' ORDER BY ItemCode"),
            "1|HND01|Hammers\n2|HND04|Nails\n3|HND05|Screws\n");
}

TEST_F(WrittenImport, WritesAllOrNothing) {
  std::vector<Cells> file = {{"Code", "Name", "Category", "Sub category", "Brand"}};
  for (int i = 0; i < 300; ++i) file.push_back({"C" + std::to_string(i), "Item", "HND", "Nails", "Bosch"});
  const ImportPlan made = plan(ImportKind::Items, file, MissingRows::Make);
  const auto nothing = [this] {
    EXPECT_EQ(rows("select itemcode from stocklevel3 where catid like 'HND'"), "");
    EXPECT_EQ(rows("select brandname from brands"), "General\n");
    EXPECT_EQ(rows("select subcatid from stocklevel2 where catid like 'HND'"), "HND01\n");
  };
  EXPECT_FALSE(writeImport(connection, made, [](std::int64_t row) { return row < 200; }));
  nothing();
  // The books have changed since the plan was made.
  connection.execute(
      "INSERT INTO StockLevel3 (ItemCode, ItemName, CatID, SubCatID) VALUES ('c250', 'Other', 'HND', 'HND01')");
  expectRefusal(
      made,
      "An item is already present with the same item code. Give a different item code. (C250, row 252 of the file.)");
  connection.execute("DELETE FROM StockLevel3 WHERE ItemCode like 'c250'");
  nothing();
  EXPECT_TRUE(writeImport(connection, made));
  EXPECT_EQ(rows("select count(itemcode) as n from stocklevel3 where subcatid like 'HND02'"), "300\n");
}

TEST_F(WrittenImport, RefusesACodeThatBecameLikeAnotherMeanwhile) {
  const ImportPlan made = plan(ImportKind::Items, {{"Code", "Name", "Sub category"}, {"B_1", "Bolt", "HND01"}});
  connection.execute(
      "insert into stocklevel3 (itemcode, itemname, catid, subcatid) values ('B11', 'Other', 'HND', 'HND01')");
  expectRefusal(
      made,
      "An item is already present with the same item code. Give a different item code. (B_1, row 2 of the file.)");
}

}  // namespace
}  // namespace velmo::masters
