#include "schema/first_rows.h"

#include <gmock/gmock.h>

#include "schema/financial_year.h"
#include "schema/open_company.h"

namespace velmo::schema {
namespace {

using test::OpenCompany;

// The company is only read here, so that all cases can share one.
class FirstRows : public testing::Test {
 protected:
  static void SetUpTestSuite() { company = std::make_unique<OpenCompany>(); }
  static void TearDownTestSuite() { company.reset(); }
  static std::unique_ptr<OpenCompany> company;
};
std::unique_ptr<OpenCompany> FirstRows::company;

TEST_F(FirstRows, HoldEveryAccountThatIsPostedToByNumber) {
  std::vector<std::string> fixed;
  for (store::Recordset accounts = company->rows("select * from AccLevel3 where [Default]=Yes order by AccCode");
       !accounts.eof(); accounts.moveNext())
    fixed.push_back(accounts.text("AccCode") + " " + accounts.text("AccName"));
  EXPECT_THAT(fixed, testing::ElementsAre(
                         "10001001 Cash in Hand", "12001001 Walk-in (Cash) Customer", "13001001 Closing Inventory",
                         "14001001 Advance Income Tax Deducted", "21001001 Retail / Cash Purchase",
                         "22001001 Income Tax Deducted of Other Parties", "32001001 Accumulated Profit & Loss",
                         "40001001 Sales", "40001002 Sale Returns", "40001003 Discount Earned",
                         "50001001 Opening Inventory", "50001002 Purchases", "50001003 Purchase Returns",
                         "50001004 Carriage & Freight Inwards", "50001005 Cost of Inventory Adjusted",
                         "50001006 Closing Inventory", "50001007 Material Used in Production",
                         "50001008 Cost of Goods Produced", "50002001 Labour Wages", "50003001 Factory Overhead",
                         "60001001 Carriage & Freight Outwards", "60001002 Discount Given to Parties"));
}

TEST_F(FirstRows, NumberAccountsByTheirPlaceInTheChart) {
  EXPECT_EQ(0, company->figure("select count(*) from AccLevel2 where Level2ID\\100 <> TypeID"));
  EXPECT_EQ(0, company->figure("select count(*) from AccLevel3 where AccCode\\1000 <> Level2ID or AccCode\\100000 <> "
                               "Level1ID"));
  EXPECT_EQ(0, company->figure("select count(*) from AccLevel2 left join AccLevel3 on AccLevel2.Level2ID = "
                               "AccLevel3.Level2ID where AccLevel3.AccCode is null and AccLevel2.Level2ID <> 11001"));
}

TEST_F(FirstRows, HoldTheTypesThatStatementsNameAndOneInEveryGroup) {
  for (const int type : {100, 110, 120, 130, 140, 210, 220, 320, 400, 500, 600})
    EXPECT_EQ(1, company->figure("select count(*) from AccLevel1 where TypeID=" + std::to_string(type))) << type;
  for (const char* group :
       {"10 or natureid=11", "20 or natureid=21", "30", "40", "50", "60", "61 or natureid=62 or natureid=65"}) {
    // The next type of the group takes the number after the last, which another group must not have taken.
    const double last = company->figure(std::string("select max(TypeID) from AccLevel1 where natureid=") + group);
    ASSERT_GT(last, 0) << group;
    EXPECT_EQ(0, company->figure("select count(*) from AccLevel1 where TypeID=" + std::to_string(int(last) + 1)));
  }
}

TEST_F(FirstRows, PutEveryNatureUnderItsStatement) {
  const std::pair<int, int> sections[] = {{10, 1}, {11, 1}, {20, 2}, {21, 2}, {30, 2}, {40, 3},
                                          {50, 3}, {60, 4}, {61, 4}, {62, 4}, {65, 4}};
  store::Recordset natures =
      company->rows("select FSNature.* from FSNature inner join FS on FSNature.FSID = FS.FSID order by NatureID");
  ASSERT_EQ(static_cast<std::int64_t>(std::size(sections)), natures.recordCount());
  for (const auto& [nature, section] : sections) {
    EXPECT_EQ(nature, natures.integer("NatureID"));
    EXPECT_EQ(section, natures.integer("FSID"));
    EXPECT_FALSE(natures.text("AccNatureTop").empty());
    natures.moveNext();
  }
  EXPECT_EQ(0, company->figure("select count(*) from AccLevel1 left join FSNature on AccLevel1.NatureID = "
                               "FSNature.NatureID where FSNature.NatureID is null"));
}

TEST_F(FirstRows, NameEveryKindOfDocument) {
  store::Recordset types = company->rows("select * from TranType order by TranType");
  std::vector<std::int64_t> codes;
  for (; !types.eof(); types.moveNext()) {
    codes.push_back(types.integer("TranType"));
    EXPECT_FALSE(types.text("Name").empty()) << codes.back();
    EXPECT_LE(types.text("short").size(), 3u) << codes.back();
  }
  EXPECT_THAT(codes, testing::ElementsAre(11, 20, 21, 22, 25, 28, 29, 30, 31, 32, 35, 38, 39, 41, 42, 43, 45, 47, 51,
                                          91, 92, 93, 94, 95));
  EXPECT_EQ(24, company->figure("select count(*) from (select distinct short from TranType) as names"));
}

TEST_F(FirstRows, HoldEveryRightThatIsAskedForAndRefuseNothing) {
  store::Recordset rights = company->rows("SELECT * from userrights order by rightid");
  std::vector<std::int64_t> ids;
  for (; !rights.eof(); rights.moveNext()) {
    ids.push_back(rights.integer("RightID"));
    const std::string words = rights.text("RightType");
    ASSERT_FALSE(words.empty());
    EXPECT_EQ('.', words.back()) << words;
    EXPECT_TRUE(std::islower(static_cast<unsigned char>(words.front()))) << words;
    for (const char* column : {"Operator1", "Operator2", "Operator3", "Operator4", "Operator5", "Operator6",
                               "Operator7", "Operator8", "Operator9"})
      EXPECT_FALSE(rights.yes(column)) << words;
  }
  EXPECT_THAT(ids, testing::ElementsAre(2, 12, 14, 22, 24, 25, 26, 28, 32, 34, 38, 41, 42, 43, 44, 52, 54, 57, 58, 59,
                                        60, 62, 64, 66, 68, 70, 82, 84, 86, 88, 90, 92, 93, 94, 95, 97, 98, 100, 102,
                                        104, 106, 108, 122, 124, 126, 128, 129, 132, 134, 142, 144, 152, 154, 156, 158,
                                        180, 184, 186, 188, 190, 191, 192, 193, 196, 198, 199, 200, 212, 213, 214, 216,
                                        220, 224, 230, 232, 236, 240, 242, 244, 246, 248, 252, 254));
}

TEST_F(FirstRows, HoldTheYearOfTodayWithItsTwoDocuments) {
  store::Recordset year = company->rows("Select * from FinancialYear order by abbreviation");
  ASSERT_EQ(1, year.recordCount());
  EXPECT_EQ("2026-01-01", year.date("FinancialYearStart").iso());
  EXPECT_EQ("2026-12-31", year.date("FinancialYearEnd").iso());
  EXPECT_EQ("2026-26", year.text("Abbreviation"));
  store::Recordset documents = company->rows("select * from Transactions order by TranType");
  ASSERT_EQ(2, documents.recordCount());
  const struct {
    int type;
    const char* date;
    const char* description;
  } expected[] = {{11, "2025-12-31", "Opening Balance"}, {51, "2026-12-31", "Closing Balance"}};
  for (const auto& row : expected) {
    EXPECT_EQ(row.type, documents.integer("TranType"));
    EXPECT_EQ(row.date, documents.date("TranDate").iso());
    EXPECT_EQ(row.description, documents.text("Desc"));
    EXPECT_EQ(std::tuple(1, 1, 1),
              std::tuple(documents.integer("DocNo"), documents.integer("DocNo2"), documents.integer("FYID")));
    EXPECT_EQ(std::tuple(1, 1), std::tuple(documents.integer("UserAdded"), documents.integer("UserEdited")));
    EXPECT_EQ("2026-11-22 14:07:09", documents.date("TimeAdded").iso());
    EXPECT_FALSE(documents.yes("Cancel") || documents.yes("InvLedger"));
    documents.moveNext();
  }
  store::Recordset lines = company->rows(
      "select SubTransactions.* from SubTransactions inner join Transactions on SubTransactions.TranNo = "
      "Transactions.TranNo where TranType=51 order by Serial");
  ASSERT_EQ(2, lines.recordCount());
  EXPECT_EQ(13001001, lines.integer("AccCode"));
  EXPECT_EQ(store::Value(0.0), lines.value("Debit"));
  EXPECT_TRUE(store::isNull(lines.value("Credit")));
  lines.moveNext();
  EXPECT_EQ(50001006, lines.integer("AccCode"));
  EXPECT_EQ(store::Value(0.0), lines.value("Credit"));
  EXPECT_TRUE(store::isNull(lines.value("Debit")));
}

TEST_F(FirstRows, NameTheCurrenciesOfTheWorld) {
  const std::string name = "Curency\xC2\xA0\xC2\xA0", symbol = "CCode\xC2\xA0\xC2\xA0";
  store::Recordset currencies = company->rows("select * from Currencies order by Country");
  EXPECT_GT(currencies.recordCount(), 230);
  EXPECT_LE(currencies.recordCount(), 255);  // BusinessInfo.CSerial is a byte
  const std::tuple<const char*, const char*, const char*> known[] = {{"United States", "US Dollar", "$"},
                                                                     {"United Kingdom", "British Pound", "£"},
                                                                     {"Germany", "Euro", "€"},
                                                                     {"Pakistan", "Pakistani Rupee", "Rs"},
                                                                     {"Japan", "Japanese Yen", "¥"}};
  for (const auto& [country, currency, sign] : known) {
    currencies.moveFirst();
    ASSERT_TRUE(currencies.find(std::string("Country = '") + country + "'")) << country;
    EXPECT_EQ(currency, currencies.text(name));
    EXPECT_EQ(sign, currencies.text(symbol));
  }
}

TEST_F(FirstRows, SelectRowsThatExist) {
  store::Recordset settings = company->rows("select * from businessinfo");
  ASSERT_EQ(1, settings.recordCount());
  EXPECT_FALSE(settings.text("Name").empty());
  EXPECT_EQ(23, settings.integer("StockMovement"));
  const std::tuple<const char*, const char*, const char*> chosen[] = {
      {"UserID", "Users", "UserID"},
      {"FYID", "FinancialYear", "FYID"},
      {"StockLocationID", "StockLocation", "LocationID"},
      {"CSerial", "Currencies", "Serial"}};
  for (const auto& [column, table, key] : chosen)
    EXPECT_EQ(1, company->figure(std::string("select count(*) from ") + table + " where " + key + "=" +
                                 settings.text(column)))
        << column;
  for (const char* format : {"QF", "POF", "DCF", "SIF"}) EXPECT_EQ(1, settings.integer(format)) << format;
  for (const char* table :
       {"Brands where BrandID=1", "Regions1 where Region1ID=1", "Regions2 where Region2ID=1",
        "BizSectors where SectorID=1", "Employees where EmpID=1 and Status=No", "Users where Password=''",
        "StockLevel2 where CatID='Service'", "StockLevel3 where CatID='Service' and Status=No"})
    EXPECT_EQ(1, company->figure(std::string("select count(*) from ") + table)) << table;
}

TEST_F(FirstRows, HelpWithEveryQuestionOfTheWelcomeScreen) {
  store::Recordset help = company->rows("select * from helpindex order by id");
  ASSERT_EQ(6, help.recordCount());
  for (std::int64_t id = 1; !help.eof(); help.moveNext(), ++id) {
    EXPECT_EQ(id, help.integer("ID"));
    EXPECT_GT(help.text("Matter").size(), 400u) << help.text("Heading");
  }
  help.moveTo(4);
  EXPECT_NE(help.text("Matter").find("<i>Set as default</i>"), std::string::npos) << "as the login screen has it";
  help.moveTo(5);
  EXPECT_NE(help.text("Matter").find("<i>Back up now...</i>"), std::string::npos) << "as About has it";
  help.moveFirst();
  EXPECT_EQ("How can I change the date format being displayed in the software?", help.text("Heading"));
}

TEST(FinancialYear, IsNamedByBothItsYears) {
  const auto day = [](int year, int month, int date) { return text::DateTime::fromCalendar(year, month, date); };
  EXPECT_EQ("2024-25", yearAbbreviation(day(2024, 7, 1), day(2025, 6, 30)));
  EXPECT_EQ("1999-00", yearAbbreviation(day(1999, 4, 1), day(2000, 3, 31)));
}

TEST(FinancialYear, CanBeAddedToAYearThatIsThere) {
  OpenCompany company;
  addFinancialYear(company.connection, {.id = 2,
                                        .start = text::DateTime::fromCalendar(2027, 1, 1),
                                        .end = text::DateTime::fromCalendar(2027, 12, 31),
                                        .user = 1,
                                        .now = text::DateTime::fromCalendar(2026, 12, 30)});
  EXPECT_EQ(2, company.figure("select count(*) from Transactions where FYID=2"));
  EXPECT_EQ(4, company.figure("select count(*) from SubTransactions"));
}

}  // namespace
}  // namespace velmo::schema
