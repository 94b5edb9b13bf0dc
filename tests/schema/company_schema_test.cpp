#include "schema/company_schema.h"

#include <gmock/gmock.h>

#include "schema/open_company.h"
#include "store/values/error.h"

namespace velmo::schema {
namespace {

using test::OpenCompany;

TEST(CompanySchema, RelatesColumnsThatExist) {
  for (const store::Table& table : companyCatalog().tables()) {
    for (const std::string& key : table.key) EXPECT_NE(nullptr, table.find(key)) << table.name << "." << key;
    for (const store::Relation& relation : table.relations) {
      EXPECT_NE(nullptr, table.find(relation.column)) << table.name << "." << relation.column;
      const store::Table* parent = companyCatalog().find(relation.parentTable);
      ASSERT_NE(nullptr, parent) << table.name;
      EXPECT_THAT(parent->key, testing::ElementsAre(relation.parentColumn)) << table.name;
    }
    for (const store::Index& index : table.indexes)
      for (const std::string& column : index.columns) EXPECT_NE(nullptr, table.find(column)) << index.name;
  }
}

TEST(CompanySchema, RemovesADocumentWithItsOwnRowsAndNoOther) {
  OpenCompany company;
  const auto addRows = [&](int tranNo, int invoice) {
    const std::string no = std::to_string(tranNo), doc = std::to_string(invoice);
    company.connection.execute("insert into Transactions (TranNo, DocNo, TranType, FYID) values (" + no + "," + doc +
                               ",32,1)");
    company.connection.execute("insert into SubTransactions (TranNo, AccCode, Debit) values (" + no + ",10001001,5)");
    company.connection.execute("insert into StockFlow (TranNo, ItemCode, StockOut) values (" + no + ",'SRV001',1)");
    for (const char* table : {"AgingDr", "AgingCr"})
      company.connection.execute(std::string("insert into ") + table + " (TranNo, DocNo, TrAmount) values (" + no +
                                 "," + doc + ",5)");
  };
  addRows(101, 1);
  addRows(102, 1);  // settles document 1 under a number of its own
  EXPECT_EQ(1, company.connection.execute("delete * from transactions where TranNo=101"));
  for (const char* table : {"SubTransactions", "StockFlow", "AgingDr", "AgingCr"}) {
    EXPECT_EQ(0, company.figure(std::string("select count(*) from ") + table + " where TranNo=101")) << table;
    EXPECT_EQ(1, company.figure(std::string("select count(*) from ") + table + " where TranNo=102")) << table;
  }
}

TEST(CompanySchema, RefusesRowsThatHangOnNothing) {
  OpenCompany company;
  EXPECT_THROW(company.connection.execute("insert into SubTransactions (TranNo, AccCode) values (999,10001001)"),
               store::StoreError);
  EXPECT_THROW(company.connection.execute("delete * from StockLevel1 where CatID='Service'"), store::StoreError);
  // Documents name no employee, job or location with 0 or null.
  EXPECT_EQ(1, company.connection.execute("insert into Transactions (DocNo, EmpID, JobIDFrom, LocationFrom) values "
                                          "(1, 0, null, 0)"));
}

}  // namespace
}  // namespace velmo::schema
