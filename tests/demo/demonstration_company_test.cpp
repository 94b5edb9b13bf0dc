#include <gmock/gmock.h>
#include <sqlite3.h>

#include <set>

#include "demo/demonstration_folder.h"
#include "demo_company/large_company.h"
#include "demo_company/shop.h"
#include "schema/company_checks.h"
#include "schema/company_file.h"
#include "schema/company_schema.h"
#include "store/recordset/recordset.h"
#include "store/values/error.h"

namespace velmo::demo {
namespace {

namespace fs = std::filesystem;

using test::demonstrationFolder;
using test::freshFolder;

class DemonstrationCompany : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    connection = std::make_unique<store::Connection>(schema::companyCatalog());
    connection->open(schema::connectionStringFor(test::companyFile(demonstrationFolder())));
  }
  static void TearDownTestSuite() { connection.reset(); }
  static store::Recordset rows(const std::string& statement) {
    return store::Recordset(*connection, statement, store::LockType::ReadOnly);
  }
  static double figure(const std::string& statement) { return store::numberOf(rows(statement).valueAt(0, 0)); }

  static std::unique_ptr<store::Connection> connection;
};
std::unique_ptr<store::Connection> DemonstrationCompany::connection;

TEST_F(DemonstrationCompany, HasWhatAWholesalerHas) {
  const std::pair<const char*, double> counts[] = {
      {"AccLevel3 where Level1ID=120 and [Default]=No", 60},
      {"AccLevel3 where Level1ID=210 and [Default]=No", 30},
      {"AccLevel3 where Level1ID=110", 3},
      {"StockLevel1 where CatID not like 'Service'", 8},
      {"StockLevel3 where CatID not like 'Service'", 400},
      {"StockLevel3 where CatID like 'Service' and SellingPrice>0", 12},
      {"StockLocation", 3},
      {"Employees", 6},
      {"Users", 4},
  };
  for (const auto& [what, count] : counts)
    EXPECT_EQ(count, figure(std::string("select count(*) from ") + what)) << what;
  const std::pair<const char*, double> documents[] = {
      {"TranType=32 and Text12='1'", 300},
      {"TranType=32 and Text12='0'", 300},
      {"TranType=22", 50},
      {"TranType=35", 10},
      {"TranType=25", 5},
      {"TranType=91 and Text9=''", 5},
      {"TranType=91 and Text9<>''", 10},
      {"TranType=93 and Text9=''", 5},
      {"TranType=94 and Text10<>''", 20},
      {"TranType=30", 10},
      {"TranType=92 and Text10<>''", 10},
      {"TranType=20", 10},
      {"TranType=43 and LocationFrom=1", 10},
      {"TranType=43 and LocationTo=1", 3},
      {"TranType=45 and TrAmount>0", 5},
      {"TranType=47 and TrAmount>0", 5},
      {"TranType=95", 4},
      {"TranType=42 and TrAmount>0", 20},
      {"TranType=42 and Balance>0", 3},
  };
  for (const auto& [kind, least] : documents)
    EXPECT_GT(figure(std::string("select count(*) from Transactions where ") + kind), least) << kind;
  EXPECT_GT(figure("select count(*) from StockFlow where ProductSerials is not null and StockOut > 0"), 20);
  std::set<double> refusals;
  for (const char* user : {"Operator1", "Operator2", "Operator3"})
    refusals.insert(figure(std::string("select sum(") + user + ") from UserRights"));
  EXPECT_EQ(3u, refusals.size()) << "two users have the same rights";
}

TEST_F(DemonstrationCompany, GivesItemsCodesThatScannersAccept) {
  for (store::Recordset items = rows("select * from StockLevel3 where CatID not like 'Service'"); !items.eof();
       items.moveNext()) {
    const std::string code = items.text("ItemCode");
    ASSERT_EQ(13u, code.size());
    int sum = 0;
    for (std::size_t at = 0; at < code.size(); ++at) sum += (code[at] - '0') * (at % 2 == 0 ? 1 : 3);
    EXPECT_EQ(0, sum % 10) << code;
    EXPECT_GT(items.number("SellingPrice"), items.number("PurchasePrice")) << code;
  }
}

TEST_F(DemonstrationCompany, SellsOnlyWhatItHasAndInItsYear) {
  EXPECT_EQ(
      0, figure("select count(*) from (select StockFlow.ItemCode, Sum(IIf(IsNull([StockIn]),0,[StockIn])) as Ins, "
                "Sum(IIf(IsNull([StockOut]),0,[StockOut])) as Outs from Transactions inner join (StockFlow inner join "
                "StockLevel3 on StockFlow.ItemCode = StockLevel3.ItemCode) on Transactions.TranNo = "
                "StockFlow.TranNo where Transactions.InvLedger = No and StockLevel3.CatID not like 'Service' group by "
                "StockFlow.ItemCode) as Stock where Ins < Outs"));
  EXPECT_EQ(0, figure("select count(*) from Transactions where TranType=32 and (TranDate<#01-01-2026# or "
                      "TranDate>#11-22-2026#)"));
  EXPECT_EQ(figure("select max(DocNo) from Transactions where TranType=32"),
            figure("select count(*) from (select distinct DocNo from Transactions where TranType=32) as Numbers"));
}

TEST_F(DemonstrationCompany, IsTheSameEveryTimeAndNeverMadeTwice) {
  EXPECT_THROW(makeDemonstrationCompany(demonstrationFolder(), test::demonstrationNow), store::StoreError);
  const fs::path second = freshFolder("again");
  makeDemonstrationCompany(second, test::demonstrationNow);
  sqlite3* database = connection->handle();
  const std::string attach = "ATTACH '" + test::companyFile(second).string() + "' AS again";
  ASSERT_EQ(SQLITE_OK, sqlite3_exec(database, attach.c_str(), nullptr, nullptr, nullptr));
  for (const store::Table& table : schema::companyCatalog().tables()) {
    const std::string difference =
        "SELECT count(*) FROM (SELECT * FROM main." + table.name + " EXCEPT SELECT * FROM again." + table.name + ")";
    sqlite3_stmt* statement = nullptr;
    ASSERT_EQ(SQLITE_OK, sqlite3_prepare_v2(database, difference.c_str(), -1, &statement, nullptr)) << table.name;
    ASSERT_EQ(SQLITE_ROW, sqlite3_step(statement));
    EXPECT_EQ(0, sqlite3_column_int(statement, 0)) << table.name;
    sqlite3_finalize(statement);
  }
  sqlite3_exec(database, "DETACH again", nullptr, nullptr, nullptr);
  fs::remove_all(second);
}

TEST(LargeCompany, HasTheSizeAskedForAndBalances) {
  const fs::path folder = freshFolder("large");
  makeLargeCompany(folder, {.invoices = 300, .items = 12000, .accounts = 1000});
  store::Connection connection(schema::companyCatalog());
  connection.open(schema::connectionStringFor(test::companyFile(folder)));
  const auto figure = [&connection](const char* statement) {
    return store::numberOf(store::Recordset(connection, statement).valueAt(0, 0));
  };
  EXPECT_EQ(300, figure("select count(*) from Transactions where TranType=32"));
  EXPECT_EQ(1500, figure("select count(*) from SubTransactions inner join Transactions on SubTransactions.TranNo = "
                         "Transactions.TranNo where TranType=32"));
  EXPECT_EQ(12001, figure("select count(*) from StockLevel3"));
  EXPECT_EQ(1001, figure("select count(*) from AccLevel3 where Level1ID=120"));
  EXPECT_EQ(0, figure("select Sum(IIf(IsNull([Debit]),0,[Debit])) - Sum(IIf(IsNull([Credit]),0,[Credit])) as Off from "
                      "SubTransactions"));
  connection.close();
  fs::remove_all(folder);
}

TEST(Shop, HasEveryKindOfDocumentAndBooksThatBalance) {
  const fs::path folder = freshFolder("shop");
  makeShop(folder, 0.01);
  store::Connection connection(schema::companyCatalog());
  connection.open(schema::connectionStringFor(test::companyFile(folder)));
  const auto figure = [&connection](const std::string& statement) {
    return store::numberOf(store::Recordset(connection, statement).valueAt(0, 0));
  };
  const auto documents = [&](const std::string& condition) {
    return figure("select count(*) from Transactions where " + condition);
  };
  EXPECT_NEAR(3300, documents("TranType not in (11, 51)"), 20);
  EXPECT_NEAR(1380, documents("TranType = 32"), 10);
  EXPECT_NEAR(330, documents("TranType not in (11, 51) and FYID = 1"), 10);
  for (const int kind : {11, 22, 25, 28, 29, 35, 38, 39, 41, 51})
    EXPECT_LT(0, documents("FYID = 2 and TranType = " + std::to_string(kind))) << kind;
  EXPECT_NEAR(33, documents("Cancel = Yes"), 20);
  EXPECT_EQ(3, figure("select count(*) from (select distinct LocationID from StockFlow) as Places"));
  EXPECT_LT(8,
            figure("select max(Lines) from (select Count(FlowId) as Lines from StockFlow inner join Transactions on "
                   "StockFlow.TranNo = Transactions.TranNo where TranType = 32 group by StockFlow.TranNo) as Sales"));
  EXPECT_EQ(0, store::Recordset(connection, schema::unbalancedDocuments()).recordCount());
  EXPECT_EQ(0, figure("select count(*) from (select ItemCode, LocationID, Sum(IIf(IsNull([StockIn]),0,[StockIn])) - "
                      "Sum(IIf(IsNull([StockOut]),0,[StockOut])) as There from StockFlow inner join Transactions on "
                      "StockFlow.TranNo = Transactions.TranNo where FYID = 2 and Cancel = No group by ItemCode, "
                      "LocationID) as Stock where There < 0"));
  store::Connection snapshot = connection.snapshot();
  for (const store::IdleCheck& check : schema::companyChecks())
    EXPECT_THAT(check.look(snapshot), testing::IsEmpty()) << check.name;
  connection.close();
  fs::remove_all(folder);
}

}  // namespace
}  // namespace velmo::demo
