#include "session/login.h"

#include "session/stock_movement.h"
#include "support/new_company.h"

namespace velmo::session {
namespace {

using store::Value;

TEST(StockMovement, RaisesTheFlagsOfDocumentsThatDoNotMoveStock) {
  struct Row {
    Value number;
    std::string flags;  // IGP, Bill, OGP, DC, Invoice
  };
  const Row table[] = {
      {std::int64_t{11}, "01011"},  {std::int64_t{12}, "01101"}, {std::int64_t{13}, "01110"},
      {std::int64_t{21}, "10011"},  {std::int64_t{22}, "10101"}, {std::int64_t{23}, "10110"},
      {std::int64_t{0}, "00000"},   {std::int64_t{14}, "00000"}, {std::int64_t{31}, "00000"},
      {std::int64_t{-11}, "00000"}, {store::Null{}, "00000"},
  };
  for (const Row& row : table) {
    LoginContext context(schema::companyCatalog());
    context.IGPInvLedger = context.BillInvLedger = context.OGPInvLedger = context.DCInvLedger = true;
    context.InvoiceInvLedger = true;
    applyStockMovement(context, row.number);
    std::string flags;
    for (bool flag : {context.IGPInvLedger, context.BillInvLedger, context.OGPInvLedger, context.DCInvLedger,
                      context.InvoiceInvLedger})
      flags += flag ? '1' : '0';
    EXPECT_EQ(flags, row.flags) << store::textOf(row.number);
    const auto flagsOf = [&](std::initializer_list<int> tranTypes) {
      std::string all;
      for (const int tranType : tranTypes) all += leavesStock(tranType, context) ? '1' : '0';
      return all;
    };
    EXPECT_EQ(flagsOf({20, 22, 30, 94, 32}), row.flags) << "passes, bill, challan, invoice";
    EXPECT_EQ(flagsOf({25, 35}), std::string(2, row.flags[1])) << "returns follow the bill";
    EXPECT_EQ(flagsOf({91, 92, 93, 95}), "1111") << "never";
    EXPECT_EQ(flagsOf({11, 42, 43, 45, 47, 28, 41}), "0000000") << "always, or without goods";
  }
}

class Login : public testing::Test {
 protected:
  Login() { connection_.open(schema::plainConnectionString); }

  LoginContext filled() {
    LoginRecords records(connection_);
    LoginContext context(schema::companyCatalog());
    fillLoginContext(context, records);
    return context;
  }

  test::NewCompany company_;
  store::Connection connection_{schema::companyCatalog()};
};

TEST_F(Login, FillsTheContextFromTheChosenRows) {
  company_.run(connection_, {"update businessinfo set [Name]='O''Brien & Sons', Address='1 Quay', Telephones='555 1', "
                             "Fax='555 2', EMail='a@b.c', QF=1, QTM=2, POF=3, POTM=4, DCF=5, DCTM=6, SIF=7, SITM=8, "
                             "CSerial=9, CurrencyName='Rupees', CCode='Rs.', StockLocationID=1, StockMovement=12",
                             "insert into users (UserID, UserName, [Password]) values (3, 'Zoe', 'pw')"});
  LoginRecords records(connection_);
  ASSERT_TRUE(records.users.find("userid = 3"));
  LoginContext context(schema::companyCatalog());
  fillLoginContext(context, records);

  EXPECT_EQ(context.UserName, "Zoe");
  EXPECT_EQ(context.UserID, 3);
  EXPECT_EQ(context.FYID, records.financialYears.integer("FYID"));
  EXPECT_LE(context.FinancialYearStart, text::DateTime::fromCalendar(2026, 11, 22));
  EXPECT_GE(context.FinancialYearEnd, text::DateTime::fromCalendar(2026, 11, 22));
  EXPECT_EQ(context.CompanyName, "O'Brien & Sons");
  EXPECT_EQ(context.CompanyAddress, "1 Quay");
  EXPECT_EQ(context.CompanyTelLine, "Tel: 555 1   Fax: 555 2");
  EXPECT_EQ(context.CompanyEmailLine, "E-Mail: a@b.c");
  const int settings[] = {context.qf,   context.qtm, context.pof,  context.potm,   context.dcf,
                          context.dctm, context.sif, context.sitm, context.cserial};
  for (int i = 0; i < 9; ++i) EXPECT_EQ(settings[i], i + 1);
  EXPECT_EQ(context.currencyname, "Rupees");
  EXPECT_EQ(context.ccode, "Rs.");
  EXPECT_EQ(context.stocklocationid, 1);
  EXPECT_TRUE(context.BillInvLedger && context.OGPInvLedger && context.InvoiceInvLedger);
  EXPECT_FALSE(context.IGPInvLedger || context.DCInvLedger);
  EXPECT_FALSE(context.KORDconn.isOpen());
}

TEST_F(Login, LeavesOutTheFaxWhenThereIsNone) {
  for (const char* fax : {"null", "''"}) {
    company_.run(connection_, {("update businessinfo set Telephones='555 1', Fax=" + std::string(fax)).c_str()});
    EXPECT_EQ(filled().CompanyTelLine, "Tel: 555 1") << fax;
  }
}

TEST_F(Login, NamesTheYearForTheStatusBar) {
  LoginContext context(schema::companyCatalog());
  context.FinancialYearStart = text::DateTime::fromCalendar(2026, 7, 1);
  context.FinancialYearEnd = text::DateTime::fromCalendar(2027, 6, 30);
  EXPECT_EQ(financialYearLine(context), "Financial Year Starting From  Jul 1, 2026  To  Jun 30, 2027");
}

TEST_F(Login, ComparesPasswordsAsExactText) {
  company_.run(connection_, {"insert into users (UserID, UserName, [Password]) values (2, 'a', 'Secret')",
                             "insert into users (UserID, UserName, [Password]) values (3, 'b', '')",
                             "insert into users (UserID, UserName, [Password]) values (4, 'c', null)",
                             "insert into users (UserID, UserName, [Password]) values (5, 'd', '%')"});
  struct Row {
    int user;
    std::string typed;
    bool fits;
  };
  const Row table[] = {
      {2, "Secret", true},
      {2, "secret", false},
      {2, "Secret ", true},  // the file keeps no blanks at the end of a text
      {2, " Secret", false},
      {2, "", false},
      {2, "' or '1'='1", false},
      {2, std::string("Secret\0x", 8), false},
      {2, std::string(10000, 'S'), false},
      {3, "", true},
      {3, " ", true},
      {4, "", true},
      {4, "null", false},
      {5, "%", true},
      {5, "anything", false},
  };
  LoginRecords records(connection_);
  for (const Row& row : table) {
    records.users.moveFirst();
    ASSERT_TRUE(records.users.find("userid = " + std::to_string(row.user)));
    EXPECT_EQ(passwordFits(records.users, row.typed), row.fits) << row.user << " " << row.typed.substr(0, 20);
  }
}

TEST_F(Login, WritesTheDefaultsInTheFile) {
  company_.run(connection_, {"insert into users (UserID, UserName) values (7, 'Seventh')"});
  saveDefaultLogin(connection_, 7, LoginRecords(connection_).financialYears.integer("FYID"));
  store::Connection again(schema::companyCatalog());
  again.open(schema::plainConnectionString);
  EXPECT_EQ(LoginRecords(again).businessInfo.integer("UserID"), 7);
}

TEST_F(Login, RemovesHalfWrittenMastersOnly) {
  const auto count = [this](const char* table) {
    return store::Recordset(connection_, std::string("select * from ") + table).recordCount();
  };
  const char* const tables[] = {"acclevel3", "acclevel2", "stocklevel3", "stocklevel2"};
  std::vector<std::int64_t> sound;
  for (const char* table : tables) sound.push_back(count(table));
  company_.run(connection_, {"insert into acclevel3 (AccCode, AccName) values (99999001, 'no owners')",
                             "insert into acclevel2 (Level2ID, L2AccName) values (99999, 'no owner')",
                             "insert into stocklevel3 (ItemCode, ItemName) values ('HALF', 'no owners')",
                             "insert into stocklevel2 (SubCatID, SubCatName) values ('HALF', 'no owner')"});
  cleanUpMasters(connection_);
  for (std::size_t i = 0; i < std::size(tables); ++i) EXPECT_EQ(count(tables[i]), sound[i]) << tables[i];
}

}  // namespace
}  // namespace velmo::session
