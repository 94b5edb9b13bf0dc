#include <gtest/gtest.h>

#include "masters/accounts/acc_list_print.h"
#include "masters/catalogue/inv_below_reorder_print.h"
#include "masters/catalogue/stock_hierarchies.h"
#include "masters/catalogue/stock_list1_print.h"
#include "masters/catalogue/stock_list2_print.h"
#include "masters/catalogue/stock_list3_print.h"
#include "masters/catalogue/stock_list4_print.h"
#include "printing/page_lines.h"
#include "printing/page_pictures.h"
#include "schema/company_schema.h"
#include "support/new_company.h"

namespace velmo::masters {
namespace {

using namespace printing;
using printing::test::linesOf;

using Print = Report (*)(const session::LoginContext&, const store::Recordset&, text::DateTime);

class ListPrint : public testing::Test {
 protected:
  ListPrint() {
    context.KORDconn.open(schema::plainConnectionString);
    context.CompanyName = "Harbour Timber";
    context.CompanyAddress = "12 Dock Road";
    context.CompanyTelLine = "Tel: ";
    context.ccode = "Rs.";
    context.UserName = "Ayesha";
    context.FYID = 1;
  }

  void run(const std::string& statement) { context.KORDconn.execute(statement); }
  void addSubType(int code, const std::string& name, int type = 120) {
    run("INSERT INTO AccLevel2 (Level2ID, L2AccName, TypeID) VALUES (" + std::to_string(code) + ", " +
        store::quoted(name) + ", " + std::to_string(type) + ")");
  }
  void addAccount(int code, const std::string& name) {
    run("INSERT INTO AccLevel3 (AccCode, AccName, Level1ID, Level2ID, Contact, Phone) VALUES (" + std::to_string(code) +
        ", " + store::quoted(name) + ", " + std::to_string(code / 100000) + ", " + std::to_string(code / 1000) +
        ", 'Mr. Khan', '555-1')");
  }
  void addCategory(const std::string& code, const std::string& name) {
    run("INSERT INTO StockLevel1 (CatID, CatName) VALUES (" + store::quoted(code) + ", " + store::quoted(name) + ")");
  }
  void addSubCategory(const std::string& code, const std::string& name, const std::string& category) {
    run("INSERT INTO StockLevel2 (SubCatID, SubCatName, CatID) VALUES (" + store::quoted(code) + ", " +
        store::quoted(name) + ", " + store::quoted(category) + ")");
  }
  void addItem(const std::string& code, const std::string& name, const std::string& sub, double price,
               const char* blocked = "No", int brand = 1, double reorderLevel = 0) {
    run("INSERT INTO StockLevel3 (ItemCode, ItemName, Description, BrandID, Unit, Rack, SellingPrice, ReorderLevel, "
        "Status, CatID, SubCatID) SELECT " +
        store::quoted(code) + ", " + store::quoted(name) + ", 'As shown', " + std::to_string(brand) +
        ", 'Pcs', 'R1', " + std::to_string(price) + ", " + std::to_string(reorderLevel) + ", " + blocked +
        ", CatID, SubCatID FROM StockLevel2 WHERE SubCatID = " + store::quoted(sub));
  }
  // Two categories of goods and one of services.
  void addCatalogue() {
    addCategory("TOO", "Tools");
    addCategory("NAI", "Nails");
    addSubCategory("TOO01", "Hammers", "TOO");
    addSubCategory("TOO02", "Saws", "TOO");
    addSubCategory("NAI01", "Wire Nails", "NAI");
    addSubCategory("SER02", "Delivery", "Service");
    run("INSERT INTO Brands (BrandName) VALUES ('Strongarm')");
    addItem("H2", "Sledge Hammer", "TOO01", 1250.5, "Yes", 2);
    addItem("H1", "Claw Hammer", "TOO01", 0.335, "No", 2);
    addItem("S1", "Hand Saw", "TOO02", 80);
    addItem("N1", "Nail", "NAI01", 2);
    addItem("V1", "Van, per trip", "SER02", 400);
  }

  std::vector<Page> print(Print printOut, const std::string& hierarchy, const char* picture = "list") {
    store::Recordset rows;
    rows.openShape(context.KORDconn, hierarchy);
    const Report report = printOut(context, rows, text::DateTime::fromCalendar(2026, 11, 22));
    title = report.title;
    return printing::test::cleanPages(report, picture);
  }

  std::vector<std::string> body(Print printOut, const std::string& hierarchy, const char* picture = "list") {
    return linesOf(print(printOut, hierarchy, picture));
  }

  velmo::test::NewCompany company;
  session::LoginContext context{schema::companyCatalog()};
  std::string title;
};

using Lines = std::vector<std::string>;

TEST_F(ListPrint, AccountsStandUnderTheirSubTypesAndTypes) {
  run("DELETE FROM AccLevel3");
  run("DELETE FROM AccLevel2");
  run("DELETE FROM AccLevel1 WHERE TypeID <> 110 AND TypeID <> 120");
  addSubType(12002, "Builders");
  addSubType(12001, "Walk-in");
  addSubType(11001, "Banks", 110);
  addAccount(12002002, "Zoe");
  addAccount(12002001, "O'Brien & Sons");
  addAccount(11001001, "Harbour Bank");
  const std::string bankType = "= 110|" + [&] {
    store::Recordset type(context.KORDconn, "select type from acclevel1 where typeid = 110");
    return type.text("type");
  }();
  const std::string customers = "= 120|" + [&] {
    store::Recordset type(context.KORDconn, "select type from acclevel1 where typeid = 120");
    return type.text("type");
  }();
  const Lines builders = {"- 12002|Builders", "12002001|O'Brien & Sons|Mr. Khan|555-1", "12002002|Zoe|Mr. Khan|555-1"};
  Lines whole = {bankType, "- 11001|Banks", "11001001|Harbour Bank|Mr. Khan|555-1", customers, "- 12001|Walk-in"};
  whole.insert(whole.end(), builders.begin(), builders.end());
  whole.emplace_back("- Accounts|3");
  EXPECT_EQ(body(accListPrint, wholeChartOfAccounts()), whole);
  EXPECT_EQ(title, "Chart of Accounts");
  Lines ofType(whole.begin() + 3, whole.end() - 1);
  ofType.emplace_back("- Accounts|2");
  EXPECT_EQ(body(accListPrint, accountsOfType(120)), ofType);
  Lines ofSubType = {customers};
  ofSubType.insert(ofSubType.end(), builders.begin(), builders.end());
  ofSubType.emplace_back("- Accounts|2");
  EXPECT_EQ(body(accListPrint, accountsOfSubType(120, 12002)), ofSubType);
  EXPECT_EQ(body(accListPrint, accountsOfType(999)), Lines{"- Accounts|0"});
}

TEST_F(ListPrint, EveryPageSaysWhoseItIs) {
  const std::vector<Page> pages = print(accListPrint, wholeChartOfAccounts(), "chart-of-accounts");
  const std::string texts = printing::test::textsOf(pages.front(), static_cast<int>(pages.size()));
  for (const char* words : {"Harbour Timber", "12 Dock Road", "Chart of Accounts", "Acc Code", "Printed By: Ayesha",
                            "Page  1  of  ", "Date 22-11-2026"})
    EXPECT_NE(texts.find(words), std::string::npos) << words;
  EXPECT_EQ(texts.find("Tel:"), std::string::npos) << "a caption without a number";
}

TEST_F(ListPrint, InventoryByCategoryAndSubCategory) {
  addCatalogue();
  addSubCategory("TOO03", "Empty", "TOO");
  const Lines hammers = {"- TOO01|Hammers", "H1|Claw Hammer|As shown|Pcs|R1",
                         "H2|Sledge Hammer|As shown|Pcs|R1|Blocked"};
  const Lines tools = {"- TOO02|Saws", "S1|Hand Saw|As shown|Pcs|R1", "- TOO03|Empty"};
  Lines whole = {"= NAI|Nails", "- NAI01|Wire Nails", "N1|Nail|As shown|Pcs|R1", "= TOO|Tools"};
  whole.insert(whole.end(), hammers.begin(), hammers.end());
  whole.insert(whole.end(), tools.begin(), tools.end());
  whole.emplace_back("- Items|4");
  EXPECT_EQ(body(stockList1Print, wholeInventory()), whole);
  EXPECT_EQ(title, "Chart of Inventory");
  Lines ofCategory(whole.begin() + 3, whole.end() - 1);
  ofCategory.emplace_back("- Items|3");
  EXPECT_EQ(body(stockList1Print, inventoryOfCategory("too")), ofCategory);
  Lines ofSubCategory = {"= TOO|Tools"};
  ofSubCategory.insert(ofSubCategory.end(), hammers.begin(), hammers.end());
  ofSubCategory.emplace_back("- Items|2");
  EXPECT_EQ(body(stockList1Print, inventoryOfSubCategory("TOO", "TOO01")), ofSubCategory);
  EXPECT_EQ(body(stockList1Print, inventoryOfSubCategory("TOO", "TOO0%")).size(), 2U) << "a sign is a sign";
}

TEST_F(ListPrint, PriceListsShowEveryDecimalOfAPrice) {
  addCatalogue();
  addItem("BIG", "Crane", "TOO02", 9999999999.99);
  EXPECT_EQ(
      body(stockList2Print, inventoryOfCategory("TOO"), "price-list"),
      (Lines{"= TOO|Tools", "- TOO01|Hammers", "H1|Claw Hammer|Pcs|0.335", "H2|Sledge Hammer|Blocked|Pcs|1,250.50",
             "- TOO02|Saws", "BIG|Crane|Pcs|9,999,999,999.99", "S1|Hand Saw|Pcs|80.00", "- Items|4"}));
  EXPECT_EQ(title, "Price List");
  EXPECT_EQ(body(stockList3Print, itemsOfBrand(2), "brand"),
            (Lines{"= Strongarm", "H1|Claw Hammer|0.335", "- Items|1"}))
      << "without the blocked hammer";
  const Lines services = body(stockList4Print, allServices(), "services");
  EXPECT_EQ(services.front().substr(0, 2), "= ");
  EXPECT_NE(std::find(services.begin(), services.end(), "V1|Van, per trip|400.00"), services.end());
  EXPECT_EQ(body(stockList4Print, servicesOfSubCategory("SER02")),
            (Lines{"= SER02|Delivery", "V1|Van, per trip|400.00", "- Services|1"}));
}

// Which items are listed is seen on the screen of the list.
TEST_F(ListPrint, ItemsBelowTheirReorderLevelStandUnderTheirCategories) {
  addCatalogue();
  addItem("H3", "Mallet", "TOO01", 5, "No", 1, 10);
  run("INSERT INTO Transactions (TranNo, TranType, DocNo, TranDate, FYID, Cancel, InvLedger) VALUES (9001, 45, 1, "
      "#11-01-2026#, 1, No, No)");
  for (const char* line : {"'H3', 10, 0", "'N1', 5, 5", "'S1', 0, 3"})
    run(std::string("INSERT INTO StockFlow (TranNo, ItemCode, StockIn, StockOut) VALUES (9001, ") + line + ")");
  EXPECT_EQ(body(invBelowReorderPrint, belowReorderHierarchy(1, ReorderChoice::All), "below-reorder"),
            (Lines{"= NAI|Nails", "N1|Nail|Pcs|0.00|0.00", "= TOO|Tools", "H3|Mallet|Pcs|10.00|10.00",
                   "S1|Hand Saw|Pcs|(3.00)|0.00", "- Items|3"}));
  EXPECT_EQ(title, "Inventory Below Re-Order Level");
  EXPECT_EQ(body(invBelowReorderPrint, belowReorderHierarchy(1, ReorderChoice::NonZero)),
            (Lines{"= TOO|Tools", "H3|Mallet|Pcs|10.00|10.00", "- Items|1"}));
  EXPECT_EQ(body(invBelowReorderPrint, belowReorderHierarchy(7, ReorderChoice::All)), Lines{"- Items|0"});
}

TEST_F(ListPrint, HeadingsAreNeverLeftAloneAndComeAgainOverleaf) {
  const std::string longName = std::string(90, 'W') + " شركة الميناء " + std::string(60, 'x');
  for (int sub = 2; sub < 40; ++sub) {
    addSubType(12000 + sub, "Region " + std::to_string(sub) + (sub % 5 == 0 ? " " + longName : ""));
    for (int account = 1; account <= sub % 7 + (sub == 20 ? 90 : 0); ++account)
      addAccount((12000 + sub) * 1000 + account, "Customer " + std::to_string(account) + (account % 3 ? "" : longName));
  }
  const std::vector<Page> pages = print(accListPrint, accountsOfType(120), "long-chart");
  ASSERT_GT(pages.size(), 4U);
  int continued = 0;
  std::string before;
  for (const Page& page : pages) {
    const Lines lines = linesOf({page});
    ASSERT_GT(lines.size(), 3U);
    EXPECT_TRUE(lines[0].starts_with("= 120|")) << lines[0];
    EXPECT_TRUE(lines[1].starts_with("- ")) << lines[1];
    if (lines[1] == before) ++continued;
    for (const std::string& line : lines)
      if (line.starts_with("- 12")) before = line;
    EXPECT_FALSE(lines.back().starts_with("- 12")) << lines.back();
  }
  EXPECT_GT(continued, 0) << "a sub type over two pages";
}

TEST_F(ListPrint, HostileNamesAreTextLikeAnyOther) {
  const std::string names[] = {"O'Neil {steel} [1] 100%_x",
                               "\"; DROP TABLE StockLevel3; --",
                               "}",
                               "Größe ÄÖÜ ÇŞ قلم لكڑی",
                               std::string(250, 'W'),
                               "%p %P %d %i"};
  int number = 0;
  for (const std::string& name : names) {
    const std::string category = "{'" + std::to_string(++number);
    addCategory(category, name);
    addSubCategory(category + "01", name, category);
    addItem(category + std::string(40, '8'), name, category + "01", 1);
    for (const Print printOut : {stockList1Print, stockList2Print}) {
      const Lines lines = body(printOut, inventoryOfSubCategory(category, category + "01"), "hostile");
      EXPECT_EQ(lines.back(), "- Items|1") << name;
      EXPECT_EQ(lines[0] == "= " + category + "|" + name, name.size() < 60) << lines[0];
    }
  }
}

}  // namespace
}  // namespace velmo::masters
