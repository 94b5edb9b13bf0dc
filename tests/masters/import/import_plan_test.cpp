#include "masters/import/import_plan.h"

#include "masters/import/import_sheets.h"
#include "masters/import/import_values.h"

namespace velmo::masters {
namespace {

using spreadsheet::CellProblem;
using test::Cells;
using test::sheetOf;
using testing::ElementsAre;

class PlannedImport : public testing::Test {
 protected:
  PlannedImport() {
    books.types = NameLookup({{"120", "Customers"}, {"600", "Expenses"}, {"320", "Accumulated Profit & Loss"}});
    books.subTypes = NameLookup({{"12001", "Trade Customers", "120"},
                                 {"12002", "Other", "120"},
                                 {"60001", "Other", "600"},
                                 {"60002", "60001", "600"}});
    books.lastCodes = {{"12001", "12001041"}, {"12002", "12002998"}, {"HND", "HND07"}, {"FUL", "FUL99"}};
    books.regions = NameLookup({{"1", "General"}, {"2", "North"}, {"3", "South"}});
    books.subRegions = NameLookup({{"1", "General", "1"}, {"4", "Hill", "2"}, {"5", "Port", "3"}, {"6", "Dock", "3"}});
    books.sectors = NameLookup({{"1", "General"}, {"2", "Retail"}});
    books.employees = NameLookup({{"1", "Head Office"}, {"2", "Ali"}, {"3", "Ali"}});
    books.categories = NameLookup({{"HND", "Hand Tools"}, {"FUL", "Full"}});
    books.subCategories = NameLookup({{"HND01", "Hammers", "HND"}, {"HND07", "Saws", "HND"}, {"FUL01", "Saws", "FUL"}});
    books.brands = NameLookup({{"1", "General"}, {"9", "Stanley"}});
  }

  ImportPlan plan(ImportKind kind, std::vector<Cells> rows) {
    const ImportDescriptor& descriptor = importDescriptor(kind);
    const spreadsheet::Sheet sheet = sheetOf(std::move(rows));
    return planImport(descriptor, sheet, guessMapping(descriptor, sheet), options, books).value();
  }
  std::vector<std::string> shown(ImportKind kind, std::vector<Cells> rows) {
    return test::shownPlan(plan(kind, std::move(rows)));
  }

  ImportBooks books;
  ImportOptions options;
};

TEST_F(PlannedImport, NumbersCustomersInTheOrderOfTheFile) {
  books.taken = {foldedName("Old Friend")};
  const ImportPlan made = plan(ImportKind::Customers, {
                                                          {"Customer", "Sub type", "Phone"},
                                                          {"Zed", "trade customers", 5551234.0},
                                                          {},
                                                          {"OLD  FRIEND", "12001"},
                                                          {"", "12001", "555"},
                                                          {" Ärzte\nGmbH ", "12001  Trade Customers"},
                                                          {"ärzte gmbh", "12001"},
                                                          {"Nobody", "12009"},
                                                          {"No place", ""},
                                                          {"Nine", "12002"},
                                                          {"Ten", "12002"},
                                                          {"Eleven", "Other"},
                                                      });
  EXPECT_THAT(
      test::shownPlan(made),
      ElementsAre("2 12001042 Zed @12001  Trade Customers", "4 !A customer is already present with the same name.",
                  "5 !Enter customer name to save.", "6 12001043 Ärzte GmbH @12001  Trade Customers",
                  "7 !A customer is already present with the same name. (Row 6 of the file.)",
                  "8 !\"12009\": Select correct sub account type.", "9 !Select correct sub account type.",
                  "10 12002999 Nine @12002  Other",
                  "11 !You have added maximum number of customers in the selected sub account type.",
                  "12 !\"Other\": Select correct sub account type. There are several of this name; give the code."));
  EXPECT_EQ(made.problems, 7U);
  EXPECT_EQ(test::valueOf(made, 0, "Phone"), "5551234");
  for (const auto& [column, value] : std::map<std::string, std::string>{{"AccCode", "12001042"},
                                                                        {"Level1ID", "120"},
                                                                        {"Level2ID", "12001"},
                                                                        {"CreditLimit", "0"},
                                                                        {"CreditTerms", "0"},
                                                                        {"Contact", ""},
                                                                        {"Default", "False"},
                                                                        {"EmpID", "1"},
                                                                        {"SectorID", "1"},
                                                                        {"Region1ID", "1"},
                                                                        {"Region2ID", "1"}})
    EXPECT_EQ(test::valueOf(made, 0, column), value) << column;
  options.sameNames = SameNames::Allow;
  EXPECT_THAT(
      shown(ImportKind::Customers, {{"Name", "Sub type"}, {"Old Friend", "12001"}, {"old friend", "12001"}}),
      ElementsAre("2 12001042 Old Friend @12001  Trade Customers", "3 12001043 old friend @12001  Trade Customers"));
}

TEST_F(PlannedImport, ClassifiesCustomersAsTheirDialogDoes) {
  const ImportPlan made = plan(
      ImportKind::Customers, {{"Name", "Sub type", "Region", "Sub region", "Sector", "Account manager", "Credit limit"},
                              {"Hill", "12001", "north", "", "Retail", "Head Office", 5000.0},
                              {"Port", "12001", "", "Port", "", "2", "1,234.50"},
                              {"Both", "12001", "South", "Dock"},
                              {"Choose", "12001", "South"},
                              {"Astray", "12001", "North", "Dock"},
                              {"All wrong", "12001", "East", "", "Wholesale", "Ali", "-5"},
                              {"Comma", "12001", "", "", "", "", "12,50"}});
  EXPECT_THAT(
      test::shownPlan(made),
      ElementsAre(
          "2 12001042 Hill @12001  Trade Customers", "3 12001043 Port @12001  Trade Customers",
          "4 12001044 Both @12001  Trade Customers", "5 !Select correct sub region name.",
          "6 !\"Dock\": Select correct sub region name.",
          "7 !\"East\": Select correct region name. \"Wholesale\": Select correct sector name. \"Ali\": Select correct "
          "account manager name. There are several of this name; give the code. \"-5\": Enter numeric credit limit.",
          "8 !\"12,50\": Enter numeric credit limit."));
  const auto row = [&made](std::size_t at) {
    std::string values;
    for (const char* column : {"Region1ID", "Region2ID", "SectorID", "EmpID", "CreditLimit"})
      values += test::valueOf(made, at, column) + " ";
    return values;
  };
  EXPECT_EQ(row(0), "2 4 2 1 5000 ");
  EXPECT_EQ(row(1), "3 5 1 2 1234.5 ");
  EXPECT_EQ(row(2), "3 6 1 1 0 ");
}

TEST_F(PlannedImport, PlacesAccountsUnderTheirTypes) {
  books.taken = {"60001 " + foldedName("Rent")};
  const ImportPlan made =
      plan(ImportKind::Accounts, {{"Account name", "Account type", "Sub account type", "Bank account no."},
                                  {"Rent", "", "60001"},
                                  {"Rent", "Expenses", "60002", "007"},
                                  {"Rates", "600", "Other"},
                                  {"Rates", "Customers", "Other"},
                                  {"Rates", "", "Other"},
                                  {"Rates", "Income", "60001"},
                                  {"Rates", "120  Customers", "60001"}});
  EXPECT_THAT(
      test::shownPlan(made),
      ElementsAre("2 !An account is already present with the same name in this sub account type.",
                  "3 60002001 Rent @60002  60001", "4 60001001 Rates @60001  Other", "5 12002999 Rates @12002  Other",
                  "6 !\"Other\": Select correct sub account type. There are several of this name; give the code.",
                  "7 !\"Income\": Select correct account type.", "8 !\"60001\": Select correct sub account type."));
  EXPECT_EQ(test::valueOf(made, 1, "AccountNo"), "007");
  EXPECT_EQ(test::valueOf(made, 1, "Level1ID"), "600");
  EXPECT_EQ(test::valueOf(made, 1, "EmpID"), "0");
  EXPECT_THAT(shown(ImportKind::Vendors, {{"Vendor", "Group"}, {"", "12001"}}),
              ElementsAre("2 !Enter supplier name to save."));
}

TEST_F(PlannedImport, TestsItemsInTheWordsOfTheirDialog) {
  books.taken = {foldedName("ab-1")};
  const ImportPlan made =
      plan(ImportKind::Items, {{"Item code", "Item name", "Sub category", "Brand", "Cost price", "Price", "Unit",
                                "Re-order level", "Valuation cost", "Cost method", "Blocked", "Price 2"},
                               {"AB-1", "Taken", "HND01"},
                               {100.0, "Claw Hammer", "Hammers", "stanley", 100.5, "150.50", "Box", 5.0, 90.0,
                                "Manual Valuation Cost", true, 140.0},
                               {"100", "Again", "HND01"},
                               {"x", "Plain", "hnd07"},
                               {"X", "Case", "HND01"},
                               {"", "", "Nails", "Bosch", "ten", "1.2.3", "", "-1", "1 2", "perhaps", "maybe", "n"},
                               {"f", "Formula", "HND01", "", CellProblem{"No result."}},
                               {5901234123457.0, "Bar code", "HND01"},
                               {59012341234570001.0, "Long bar code", "HND01"},
                               {"c", std::string(255, 'x') + "ä", "Saws"},
                               {"u", "Two blanks", " HND01   Hammers "}});
  EXPECT_THAT(
      test::shownPlan(made),
      ElementsAre(
          "2 !An item is already present with the same item code. Give a different item code.",
          "3 100 Claw Hammer @HND01  Hammers",
          "4 !An item is already present with the same item code. Give a different item code. (Row 3 of the file.)",
          "5 x Plain @HND07  Saws",
          "6 !An item is already present with the same item code. Give a different item code. (Row 5 of the file.)",
          "7 !Enter item code to save. Enter item name to save. \"Bosch\": Select correct brand name. \"ten\": Enter a "
          "numeric purchase price. \"1.2.3\": Enter a numeric selling price. \"n\": Enter a numeric selling price. "
          "\"-1\": Enter a numeric re-order quantity. \"1 2\": Enter a numeric valuation cost. \"perhaps\": Give the "
          "cost method as \"Weighted Average Price\" or \"Manual Valuation Cost\". \"maybe\": Give Yes or No. "
          "\"Nails\": Select correct sub category.",
          "8 !Purchase price: No result.", "9 5901234123457 Bar code @HND01  Hammers",
          "10 !Code: The number has more digits than a spreadsheet keeps. Write it as text.",
          "11 !Name: The text is longer than 255 characters. \"Saws\": Select correct sub category. There are several "
          "of this name; give the code.",
          "12 u Two blanks @HND01  Hammers"));
  const auto row = [&made](std::size_t at) {
    std::string values;
    for (const std::string& column : writtenColumns(ImportKind::Items)) values += test::valueOf(made, at, column) + "|";
    return values;
  };
  EXPECT_EQ(row(1), "100|Claw Hammer||9||100.5|150.5|140|0|1|Box|5|90|90|False|True|HND|HND01|");
  EXPECT_EQ(row(3), "x|Plain||1||0|0|0|0|1|Pcs|0|0|0|True|False|HND|HND07|");
}

TEST_F(PlannedImport, MakesMissingBrandsAndSubCategoriesWhenAllowed) {
  options.missing = MissingRows::Make;
  const ImportPlan made = plan(ImportKind::Items, {{"Code", "Name", "Category", "Sub category", "Brand"},
                                                   {"", "No code", "HND", "Lost", "Lost"},
                                                   {"a", "A", "Hand Tools", "Nails", "Bosch"},
                                                   {"b", "B", "HND", "nails", "BOSCH"},
                                                   {"c", "C", "HND", "Screws", "Hilti"},
                                                   {"d", "D", "FUL", "Bolts", "Stanley"},
                                                   {"e", "E", "", "Bolts"},
                                                   {"f", "F", "Toys", "Bolts"},
                                                   {"g", "G", "", "nails"}});
  EXPECT_THAT(test::shownPlan(made),
              ElementsAre("2 !Enter item code to save.", "3 a A @New: HND08  Nails", "4 b B @HND08  Nails",
                          "5 c C @New: HND09  Screws",
                          "6 !You have added maximum number of sub categories in the selected main category.",
                          "7 !\"Bolts\": Select correct sub category. Give the category that it is to be made in.",
                          "8 !\"Toys\": Select correct category.", "9 g G @HND08  Nails"));
  EXPECT_THAT(made.newBrands, ElementsAre("Bosch", "Hilti"));
  EXPECT_EQ(test::valueOf(made, 1, "BrandID") + test::valueOf(made, 2, "BrandID") + test::valueOf(made, 3, "BrandID"),
            "-1-1-2");
  ASSERT_EQ(made.newSubCategories.size(), 2U);
  EXPECT_EQ(made.newSubCategories[1].code + made.newSubCategories[1].name + made.newSubCategories[1].parent,
            "HND09ScrewsHND");
}

TEST_F(PlannedImport, UsesWhatStandsInForEmptyCells) {
  const ImportDescriptor& items = importDescriptor(ImportKind::Items);
  const spreadsheet::Sheet sheet = sheetOf({{"1", "One", ""}, {"2", "Two", "Box"}});
  ImportMapping mapping{.sources = std::vector<FieldSource>(items.fields.size())};
  const auto source = [&](const char* field) -> FieldSource& { return mapping.sources[items.field(field).value()]; };
  source("ItemCode").column = 0;
  source("ItemName").column = 1;
  source("Unit") = {.column = 2, .otherwise = "Kg"};
  source("SubCategory").otherwise = "Hammers";
  source("ValuationType").otherwise = "Manual";
  source("SellingPrice").otherwise = "2.50";
  mapping.decimalSign = DecimalSign::Comma;  // of the file, not of what is typed here
  for (const char* field : {"PurchasePrice", "SellingPrice2", "SellingPrice3", "ReorderLevel", "ValuationCost2"})
    source(field).otherwise = "0";
  const auto made = planImport(items, sheet, mapping, options, books);
  ASSERT_EQ(made->problems, 0U) << made->rows[0].problem;
  EXPECT_EQ(test::valueOf(*made, 0, "Unit") + test::valueOf(*made, 1, "Unit"), "KgBox");
  EXPECT_EQ(test::valueOf(*made, 0, "SellingPrice"), "2.5");
  EXPECT_EQ(test::valueOf(*made, 0, "ValuationType"), "False");
  EXPECT_FALSE(planImport(items, sheet, mapping, options, books, [](std::int64_t) { return false; }));
}

TEST(ImportValues, ReadFiguresWithoutGuessing) {
  struct Case {
    const char* text;
    std::optional<double> point;
    std::optional<double> comma;
  };
  const Case cases[] = {{"1234.5", 1234.5, {}},
                        {"1,234.50", 1234.5, {}},
                        {"1.234,50", {}, 1234.5},
                        {"12,50", {}, 12.5},
                        {"1,234", 1234, 1.234},
                        {"1.234", 1.234, 1234},
                        {"1 234 567", 1234567, 1234567},
                        {"+5", 5, 5},
                        {".5", 0.5, {}},
                        {"5.", 5, {}},
                        {" 7 ", 7, 7},
                        {"", {}, {}},
                        {".", {}, {}},
                        {"-5", {}, {}},
                        {"(5)", {}, {}},
                        {"1,23,456", {}, {}},
                        {"1234,567", {}, 1234.567},
                        {"1 2", {}, {}},
                        {"$5", {}, {}},
                        {"5%", {}, {}},
                        {"1e3", {}, {}},
                        {"12.3.4", {}, {}},
                        {",5", {}, 0.5},
                        {"1,", {}, 1},
                        {"&HFF", {}, {}},
                        {"٣", {}, {}}};
  for (const Case& each : cases) {
    EXPECT_EQ(amountFrom(each.text, DecimalSign::Point), each.point) << each.text;
    EXPECT_EQ(amountFrom(each.text, DecimalSign::Comma), each.comma) << each.text;
  }
}

// As the dialog refuses them: a code that is like another, and not one that another is like.
TEST_F(PlannedImport, RefusesItemCodesThatAreLikeOthers) {
  books.taken = {foldedName("B11"), foldedName("C%")};
  EXPECT_THAT(
      shown(ImportKind::Items, {{"Code", "Name", "Sub category"},
                                {"b_1", "Like one in the books", "HND01"},
                                {"A1", "First", "HND01"},
                                {"A[1]", "Like the first", "HND01"},
                                {"C1", "Not like it", "HND01"},
                                {"X_", "Like none", "HND01"},
                                {"x_", "Again", "HND01"}}),
      ElementsAre(
          "2 !An item is already present with the same item code. Give a different item code.",
          "3 A1 First @HND01  Hammers",
          "4 !An item is already present with the same item code. Give a different item code. (Row 3 of the file.)",
          "5 C1 Not like it @HND01  Hammers", "6 X_ Like none @HND01  Hammers",
          "7 !An item is already present with the same item code. Give a different item code. (Row 6 of the file.)"));
}

TEST_F(PlannedImport, TakesCountsOfGoodsAndNamesWhatIsWrongBesideItsRow) {
  books.goods = NameLookup({{"H1", "Hammer"}, {"N1", "Nail"}, {"P1", "Pin"}});
  const ImportPlan made = plan(ImportKind::Counts, {{"Code", "Qty"},
                                                    {"h1", "97"},
                                                    {"N1", 0.0},
                                                    {"Work", "1"},
                                                    {"X9", "1"},
                                                    {"H1", "3"},
                                                    {"P1", "two"},
                                                    {"P1", ""},
                                                    {"P1", "-1"},
                                                    {"P1", 1e308},
                                                    {"P1", "2.5"}});
  std::vector<std::string> rows;
  for (const PlannedRow& row : made.rows) rows.push_back(row.code + " " + row.place + " " + row.problem);
  EXPECT_THAT(rows, ElementsAre("H1 97.00 ", "N1 0.00 ", "Work  \"Work\": No item that is kept in stock has this code.",
                                "X9  \"X9\": No item that is kept in stock has this code.",
                                "H1  The item is counted in another row. (Row 2 of the file.)",
                                "P1  \"two\": Give the counted quantity as a number, 0 or more.",
                                "P1  Give the counted quantity as a number, 0 or more.",
                                "P1  \"-1\": Give the counted quantity as a number, 0 or more.",
                                testing::StartsWith("P1  \""), "P1 2.50 "));
  EXPECT_EQ(made.good(), 3u);
}

}  // namespace
}  // namespace velmo::masters
