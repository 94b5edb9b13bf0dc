#pragma once

#include <gtest/gtest.h>

#include <string>

#include "support/new_company.h"
#include "support/queued_prompts.h"

namespace velmo::test {

// A small company with a few items, two customers and one sale, logged in; messages are answered from a queue.
class Shop : public testing::Test {
 protected:
  Shop() : context(schema::companyCatalog()), workplace{context, clock, prompts, files, screens} {
    context.KORDconn.open(schema::plainConnectionString);
    context.FYID = 1;
    screens.known.emplace();
    NewCompany::run(context.KORDconn,
                    {"INSERT INTO StockLevel1 (CatID, CatName) VALUES ('HND', 'Hand Tools')",
                     "INSERT INTO StockLevel2 (SubCatID, SubCatName, CatID) VALUES ('HND01', 'Hammers', 'HND')"});
    addItem("100", "Claw Hammer", 150.5);
    addItem("101", "Sledge Hammer", 900);
    addItem("O'N-1", "O'Neil [steel] 100%_x", 3.125);
    addItem("Ä-7", "Größe ÄÖÜ ÇŞ", 7);
    NewCompany::run(
        context.KORDconn,
        {"INSERT INTO AccLevel3 (AccCode, AccName, Level1ID, Level2ID, Address, Phone, CreditTerms, CreditLimit, "
         "EmpID) VALUES (12001900, 'Zed & O''Brien', 120, 12001, '1 Dock Road', '555', '30 days', 5000, 1)",
         "INSERT INTO AccLevel3 (AccCode, AccName, Level1ID, Level2ID) VALUES (12001901, 'Yard', 120, 12001)",
         "INSERT INTO Transactions (TranNo, TranType, DocNo, TranDate, FYID, Cancel, InvLedger, partycode2, Text1) "
         "VALUES (9001, 22, 1, #11-01-2026#, 1, No, No, 0, 'Vendor')",
         "INSERT INTO StockFlow (TranNo, Serial, ItemCode, ItemName, StockIn, Unit, Rate) VALUES (9001, 1, '100', "
         "'Claw Hammer', 10, 'Pcs', 100)",
         "INSERT INTO Transactions (TranNo, TranType, DocNo, TranDate, FYID, Cancel, InvLedger, partycode2, Text1) "
         "VALUES (9002, 32, 7, #11-02-2026#, 1, No, No, 12001900, 'Zed')",
         "INSERT INTO StockFlow (TranNo, Serial, ItemCode, ItemName, StockOut, Unit, Rate, GrossAmt) VALUES (9002, 1, "
         "'100', 'Claw Hammer', 4, 'Pcs', 140, 560)"});
    context.ItemsRS.open(context.KORDconn, "SELECT * FROM StockLevel3 ORDER BY ItemCode");
    context.AccountsRS.open(context.KORDconn, "SELECT * from AccLevel3 order by acccode");
  }

  void addItem(const std::string& code, const std::string& name, double price, const char* blocked = "No") {
    context.KORDconn.execute(
        "INSERT INTO StockLevel3 (ItemCode, ItemName, Description, BrandID, SellingPrice, PurchasePrice, Unit, Status, "
        "CatID, SubCatID) VALUES (" +
        store::quoted(code) + ", " + store::quoted(name) + ", 'As shown', 1, " + std::to_string(price) +
        ", 1, 'Pcs', " + blocked + ", 'HND', 'HND01')");
  }

  // The lines of a document, filled up with blank ones.
  store::Recordset lines(int tranNo = 0, int rows = 12) {
    store::Recordset sheet(context.KORDconn,
                           "Select * from stockflow where tranno = " + std::to_string(tranNo) + " order by serial",
                           store::LockType::BatchOptimistic);
    while (sheet.recordCount() < rows) {
      sheet.addNew();
      sheet.update();
    }
    sheet.moveFirst();
    return sheet;
  }

  NewCompany company;
  session::LoginContext context;
  SetClock clock;
  QueuedPrompts prompts;
  NamedFile files;
  NotedScreens screens;
  session::Workplace workplace;
};

}  // namespace velmo::test
