#include <gtest/gtest.h>

#include "masters/accounts/modify_accounts.h"
#include "masters/accounts/modify_parties.h"
#include "masters/catalogue/modify_inventory.h"
#include "masters/catalogue/modify_services.h"
#include "masters/lists/simple_lists.h"
#include "masters/master_company.h"
#include "masters/people/user_logins.h"
#include "support/rival.h"

// Codes that another program takes while a row is added here.
namespace velmo::masters {
namespace {

// The commands' suffix, the box of the code and the box of the name.
struct Level {
  const char* suffix;
  const char* code;
  const char* name;
};
constexpr Level first{"", "CatCode", "CatCodeTxt"};
constexpr Level second{"2", "SubCatCode", "SubCatCodeTxt"};
constexpr Level types{"", "MainCode", "CatCodeTxt"};
constexpr Level subTypes{"2", "SubCode", "SubCatCodeTxt"};
constexpr Level accounts{"3", "AccCode", "AccCodeTxt"};
constexpr Level items{"3", "InvTxt_0", "InvTxt_1"};
constexpr Level names{"", "LID", "LocName"};
constexpr Level users{"", "UserID", "LoginTxt"};

std::string subType(const char* code, const char* type) {
  return std::string("insert into acclevel2 (level2id, l2accname, typeid) values (") + code + ", 'Theirs', " + type +
         ")";
}

std::string account(const char* code, const char* type, const char* subType) {
  return std::string("insert into acclevel3 (acccode, accname, level1id, level2id) values (") + code + ", 'Theirs', " +
         type + ", " + subType + ")";
}

std::string subCategory(const char* code, const char* category) {
  return std::string("insert into stocklevel2 (subcatid, subcatname, catid) values ('") + code + "', 'Theirs', '" +
         category + "')";
}

std::string item(const char* code, const char* category, const char* subCategory) {
  return std::string("insert into stocklevel3 (itemcode, itemname, catid, subcatid) values ('") + code +
         "', 'Theirs', '" + category + "', '" + subCategory + "')";
}

class TakenCodes : public test::MasterCompany {
 protected:
  void SetUp() override {
    logIn();
    run({"insert into stocklevel1 (catid, catname) values ('HND', 'Hand tools')",
         "insert into stocklevel2 (subcatid, subcatname, catid) values ('HND01', 'Hammers', 'HND')",
         "insert into stocklevel3 (itemcode, itemname, brandid, purchaseprice, sellingprice, unit, reorderlevel, "
         "valuationcost2, catid, subcatid) values ('OWN', 'Ours', 1, 0, 0, 'Pcs', 0, 0, 'HND', 'HND01')",
         "insert into regions1 (region1id, region1name) values (2, 'North')"});
  }
  void click(const Level& level, const char* command) {
    CompanySession::click((command + std::string(level.suffix)).c_str());
  }
  void begin(const Level& level) {
    click(level, "AddBttn");
    write(level.name, "Ours");
  }
  // Another program writes between the tests of the save and the save itself.
  void saveAgainst(const std::string& statement, const Level& level) {
    const test::Rival rival(context->KORDconn, {statement});
    click(level, "SaveBttn");
  }
  // "The code that was proposed > the one that the row was saved and is shown under".
  std::string add(const Level& level, const std::string& rival) {
    begin(level);
    const std::string proposed = read(level.code);
    saveAgainst(rival, level);
    EXPECT_EQ(read(level.name), "Ours");
    return proposed + " > " + read(level.code);
  }
  void expectRefused(const Level& level, const std::string& rival, const std::string& words) {
    SCOPED_TRACE(rival);
    prompts.expect("Cannot Save", words);
    saveAgainst(rival, level);
    EXPECT_FALSE(context->KORDconn.inTransaction());
    EXPECT_EQ(read(level.name), "Ours") << "what was typed stays";
  }
  std::string one(const std::string& statement) {
    store::Recordset found = rows(statement);
    return found.recordCount() == 1 ? found.text(found.fields().front().name)
                                    : std::to_string(found.recordCount()) + " rows";
  }
};

TEST_F(TakenCodes, ThatTheProgramGaveBecomeTheNextFreeOnes) {
  open(makeModifyAccounts);
  choose("L1List", "130");
  EXPECT_EQ(add(subTypes, subType("13002", "130")), "13002 > 13003");
  EXPECT_EQ(one("select level2id from acclevel2 where l2accname = 'Ours'"), "13003");
  choose("L1List", "110");
  EXPECT_EQ(add(accounts, account("11001001", "110", "11001")), "11001001 > 11001002");
  EXPECT_EQ(one("select acccode from acclevel3 where accname = 'Ours'"), "11001002");
  open(makeModifySuppliers);
  EXPECT_EQ(add(accounts, account("21001005", "210", "21001")), "21001002 > 21001002") << "nobody took it";

  open(makeModifyInventory);
  choose("L1List", "HND");
  EXPECT_EQ(add(second, subCategory("hnd02", "HND")), "HND02 > HND03");
  EXPECT_EQ(one("select subcatid from stocklevel2 where subcatname = 'Ours'"), "HND03");

  open(makeRegions);
  EXPECT_EQ(add(second, "insert into regions2 (region2id, region2name, region1id) values (2, 'Theirs', 1)"), "2 > 3");
  EXPECT_EQ(one("select region2id from regions2 where region2name = 'Ours'"), "3");
  EXPECT_EQ(add(first, "insert into regions1 (region1id, region1name) values (3, 'Theirs')"), "3 > 4");
  EXPECT_EQ(one("select region1id from regions1 where region1name = 'Ours'"), "4");
  open(makeSectors);
  EXPECT_EQ(add(names, "insert into bizsectors (sectorid, sectorname) values (2, 'Theirs')"), "2 > 3");
  EXPECT_EQ(one("select sectorid from bizsectors where sectorname = 'Ours'"), "3");
  open(makeUserLogins);
  EXPECT_EQ(add(users, "insert into users (userid, username) values (2, 'Theirs')"), "2 > 3");
  EXPECT_EQ(one("select userid from users where username = 'Ours'"), "3");
}

TEST_F(TakenCodes, ThatCountThemselvesNeedNoHelp) {
  open(makeInvLocations);
  EXPECT_EQ(add(names, "insert into stocklocation (locationname) values ('Theirs')"), "2 > 3");
  EXPECT_EQ(one("select locationid from stocklocation where locationname = 'Ours'"), "3");
}

TEST_F(TakenCodes, OfAFullSeriesAreRefusedInTheWordsOfTheLevel) {
  run({"insert into acclevel2 (level2id, l2accname, typeid) values (10098, 'Late', 100)",
       "insert into acclevel3 (acccode, accname, level1id, level2id) values (12001998, 'Late', 120, 12001)"});
  for (int id = 2; id <= 9; ++id)
    context->KORDconn.execute("insert into users (userid, username) values (" + std::to_string(id) + ", 'Operator')");
  const auto expectFull = [this](const Level& level, const std::string& rival, const std::string& words) {
    begin(level);
    EXPECT_NE(read(level.code), "");
    expectRefused(level, rival, words);
    EXPECT_EQ(read(level.code), "");
    click(level, "CancelBttn");
  };
  open(makeModifyAccounts);
  choose("L1List", "100");
  expectFull(subTypes, subType("10099", "100"),
             "You have added maximum number of sub account types in the selected main account type.");
  choose("L1List", "120");
  expectFull(accounts, account("12001999", "120", "12001"),
             "You have added maximum number of accounts in the selected sub account type.");
  open(makeUserLogins);
  expectFull(users, "insert into users (userid, username) values (10, 'Theirs')",
             "You have already created maximum number of user logins allowed.");
  EXPECT_EQ(rows("select userid from users").recordCount(), 10);
}

TEST_F(TakenCodes, OfAUserFillTheGapOfAnOldFile) {
  run({"insert into users (userid, username) values (2, 'Operator')",
       "insert into users (userid, username) values (4, 'Operator')"});
  open(makeUserLogins);
  EXPECT_EQ(add(users, "insert into users (userid, username) values (3, 'Theirs')"), "3 > 5");
}

TEST_F(TakenCodes, OfATypeFollowTheLastOfItsSeriesAsItIsNow) {
  run({"insert into acclevel1 (typeid, type, natureid) values (598, 'Late', 50)"});
  open(makeModifyAccounts);
  begin(types);
  pick("FSList", std::int64_t{40});
  EXPECT_EQ(read("MainCode"), "401");
  saveAgainst("insert into acclevel1 (typeid, type, natureid) values (401, 'Theirs', 40)", types);
  EXPECT_EQ(read("MainCode"), "402");
  EXPECT_EQ(one("select typeid from acclevel1 where type = 'Ours'"), "402");

  begin(types);
  pick("FSList", std::int64_t{50});
  EXPECT_EQ(read("MainCode"), "599");
  expectRefused(types, "insert into acclevel1 (typeid, type, natureid) values (599, 'Theirs', 50)",
                "Select correct financial statements component to save or you may have added maximum number of account "
                "types in the selected component.");
  EXPECT_EQ(one("select typeid from acclevel1 where type = 'Ours'"), "402");
}

// Of sub categories alone the tests before the save tell; the box then has the next code.
TEST_F(TakenCodes, OfASubCategoryAreToldWhenTheyWereTakenBeforeTheSave) {
  open(makeModifyInventory);
  choose("L1List", "HND");
  begin(second);
  test::NewCompany::run({subCategory("HND02", "HND").c_str()});
  refused("SaveBttn2", "Cannot Save", "A sub category is already present with the same code. Give a different code.");
  EXPECT_EQ(read("SubCatCode"), "HND03");
  click(second, "SaveBttn");
  EXPECT_EQ(one("select subcatid from stocklevel2 where subcatname = 'Ours'"), "HND03");
}

TEST_F(TakenCodes, ThatWereTypedAreRefused) {
  const auto expectTaken = [this](const Level& level, const char* code, const std::string& rival, const char* words) {
    begin(level);
    write(level.code, code);
    expectRefused(level, rival, words);
    EXPECT_EQ(read(level.code), code);
    EXPECT_TRUE(control<QLineEdit>(level.code).hasFocus());
    write(level.code, "Ano");
    click(level, "SaveBttn");
    EXPECT_EQ(read(level.code) + "|" + read(level.name), "Ano|Ours");
  };
  const char* const category = "A category is already present with the same code. Give a different code.";
  open(makeModifyInventory);
  expectTaken(first, "NEW", "insert into stocklevel1 (catid, catname) values ('new', 'Theirs')", category);
  choose("L1List", "HND");
  expectTaken(items, "NEW", item("new", "HND", "HND01"),
              "An item is already present with the same item code. Give a different item code.");
  open(makeModifyServices);
  expectTaken(second, "NEW", subCategory("new", "Service"), category);
  run({"delete * from stocklevel3 where itemcode = 'Ano'"});
  expectTaken(items, "VAN", item("VAN", "Service", "Service01"),
              "A service is already present with the same service code. Give a different service code.");
  for (const char* theirs : {"select catname from stocklevel1 where catid = 'NEW'",
                             "select itemname from stocklevel3 where itemcode = 'NEW'",
                             "select subcatname from stocklevel2 where subcatid = 'NEW'",
                             "select itemname from stocklevel3 where itemcode = 'VAN'"})
    EXPECT_EQ(one(theirs), "Theirs");
}

TEST_F(TakenCodes, OfAnItemAreRefusedWhenItIsRenamed) {
  run({"insert into transactions (tranno, docno, fyid, trantype) values (7, 1, 1, 45)",
       "insert into stockflow (tranno, itemcode, stockin) values (7, 'OWN', 5)"});
  open(makeModifyInventory);
  choose("L1List", "HND");
  write("InvTxt_0", "NEW");
  expectRefused(items, item("NEW", "HND", "HND01"),
                "An item is already present with the same item code. Give a different item code.");
  EXPECT_EQ(one("select itemcode from stockflow where tranno = 7"), "OWN");
  EXPECT_EQ(read("InvTxt_0"), "NEW");
  write("InvTxt_0", "NEWER");
  click(items, "SaveBttn");
  EXPECT_EQ(one("select itemcode from stockflow where tranno = 7"), "NEWER");
}

}  // namespace
}  // namespace velmo::masters
