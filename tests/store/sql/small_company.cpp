#include "store/sql/small_company.h"

#include <sqlite3.h>

#include <stdexcept>

#include "schema/company_schema.h"
#include "store/sql/functions/functions.h"
#include "store/sqlite/kept_balances.h"
#include "store/sqlite/kept_totals.h"
#include "store/sqlite/table_sql.h"
#include "text/number.h"

namespace velmo::test {

namespace {

const char* const rows = R"sql(
INSERT INTO FS VALUES (1,'Assets'),(2,'Equity and Liabilities'),(3,'Revenue'),(4,'Expenses');
INSERT INTO FSNature VALUES (10,1,'Current Assets'),(20,2,'Current Liabilities'),(30,2,'Equity'),(40,3,'Income'),
  (50,4,'Cost of Sales'),(60,4,'Expenses');
INSERT INTO AccLevel1 VALUES (100,'Cash',10),(110,'Banks',10),(120,'Customers',10),(130,'Inventory',10),
  (140,'Advances',10),(210,'Vendors',20),(220,'Taxes',20),(320,'Profit & Loss',30),(400,'Income',40),
  (500,'Cost of Sales',50),(600,'Expenses',60);
INSERT INTO AccLevel2 VALUES (10001,'Cash',100),(11001,'Banks',110),(12001,'Local customers',120),
  (12002,'Export customers',120),(13001,'Stock',130),(14001,'Tax',140),(21001,'Vendors',210),(22001,'Tax',220),
  (32001,'Result',320),(40001,'Sales',400),(50001,'Purchases',500),(60001,'Carriage',600);
INSERT INTO AccLevel3 (AccCode,AccName,Level1ID,Level2ID,Phone,CreditLimit,CreditTerms,"Default",EmpID,SectorID,
  Region1ID,Region2ID) VALUES
  (10001001,'Cash in Hand',100,10001,NULL,0,'0',-1,NULL,NULL,NULL,NULL),
  (11001001,'Bank (Acc No. 99)',110,11001,NULL,0,'Bank',0,NULL,NULL,NULL,NULL),
  (12001001,'Walk-in (Cash) Customer',120,12001,NULL,0,'0',-1,1,1,1,1),
  (12001002,'O''Brien & Sons',120,12001,'042-111',5000,'Net 30 days',0,1,1,1,1),
  (12001003,'o''brien & sons ',120,12001,NULL,0,'0',0,NULL,1,2,2),
  (12002001,'Müller 100% GmbH',120,12002,'',0,'0',0,2,2,1,1),
  (13001001,'Closing Inventory',130,13001,NULL,0,'0',-1,NULL,NULL,NULL,NULL),
  (21001001,'Retail / Cash Purchase',210,21001,NULL,0,'0',-1,NULL,NULL,NULL,NULL),
  (21001002,'[Acme]_Steel',210,21001,NULL,0,'0',0,NULL,NULL,NULL,NULL),
  (32001001,'Accumulated Profit & Loss',320,32001,NULL,0,'0',-1,NULL,NULL,NULL,NULL),
  (40001001,'Sales',400,40001,NULL,0,'0',-1,NULL,NULL,NULL,NULL),
  (50001002,'Purchases',500,50001,NULL,0,'0',-1,NULL,NULL,NULL,NULL),
  (50001006,'Closing Inventory',500,50001,NULL,0,'0',-1,NULL,NULL,NULL,NULL),
  (60001001,'Carriage & Freight Outwards',600,60001,NULL,0,'0',-1,NULL,NULL,NULL,NULL);
INSERT INTO StockLevel1 VALUES ('GDS','Goods'),('Service','Services'),('zzz','Unused');
INSERT INTO StockLevel2 VALUES ('GDS01','Bolts','GDS'),('GDS02','Kits','GDS'),('SRV','Repairs','Service');
INSERT INTO Brands VALUES (1,'No brand'),(2,'Acme');
INSERT INTO StockLocation VALUES (1,'Main store'),(2,'Shop');
INSERT INTO StockLevel3 (ItemCode,ItemName,BrandID,PurchasePrice,SellingPrice,Unit,ReorderLevel,ValuationCost1,
  ValuationCost2,ValuationType,Status,CatID,SubCatID) VALUES
  ('A-100','Bolt 5"',2,100,150,'Pcs',50,0,166.666666666667,-1,0,'GDS','GDS01'),
  ('b-200','bolt ''short''',2,10.5,20,'Pcs',0,0,10.5,0,0,'GDS','GDS01'),
  ('C_300','Nut 100%',1,NULL,NULL,'kg',5,0,0,-1,0,'GDS','GDS01'),
  ('KIT','Kit',1,0,500,'Pcs',10,0,250,-1,0,'GDS','GDS02'),
  ('OLD','Blocked',1,1,1,'Pcs',1,0,1,0,-1,'GDS','GDS02'),
  ('SRV-1','Repair',1,0,75,'Job',0,0,0,0,0,'Service','SRV');
INSERT INTO Regions1 VALUES (1,'None'),(2,'North');
INSERT INTO Regions2 VALUES (1,'None',1),(2,'Hills',2);
INSERT INTO BizSectors VALUES (1,'None'),(2,'Trade');
INSERT INTO Employees (EmpID,EmpName,Department,Salary,DateJoin,Status) VALUES (1,'Ahmed Ali','Sales',1000.5,
  '2020-01-31',0),(2,'Zed',NULL,NULL,NULL,0),(3,'Gone','sales ',1,'2019-12-31',-1);
INSERT INTO Jobs (JobID,JobNo,JobDate,JobDesc,InchargeID,Status) VALUES (1,7,'2025-07-01','Fence',1,0),
  (2,8,NULL,NULL,NULL,-1);
INSERT INTO Users VALUES (1,'Admin','',NULL),(2,'Till','x','note');
INSERT INTO UserRights (RightID,RightType,Operator1) VALUES (94,'view sale invoices',-1),(2,'the welcome screen',0);
INSERT INTO FinancialYear VALUES (1,'2024-07-01','2025-06-30','2024-25',NULL),(2,'2025-07-01','2026-06-30','2025-26',NULL);
INSERT INTO BusinessInfo (Name,CurrencyName,CCode,StockMovement,StockLocationID,UserID,FYID) VALUES ('Small & Co.',
  'Rupees','Rs.',23,1,1,2);
INSERT INTO Currencies VALUES (1,'Rs.','Rupees','Pakistan'),(2,'€','Euro','Österreich');
INSERT INTO TranType VALUES (11,'Opening Balance','OB'),(20,'Inward Gate Pass','IGP'),(22,'Purchase','PUR'),
  (25,'Purchase Return','PR'),(28,'Bank Payment','BP'),(29,'Cash Payment','CP'),(30,'Outward Gate Pass','OGP'),
  (31,'Sales Tax Invoice','STI'),(32,'Sale Invoice','INV'),(35,'Sale Return','SR'),(38,'Bank Receipt','BR'),
  (39,'Cash Receipt','CR'),(41,'Journal','GJ'),(42,'Production','PRO'),(43,'Transfer','TRF'),(45,'Added','ADD'),
  (47,'Reduced','RED'),(51,'Closing Stock','CS'),(91,'Quotation','QUO'),(92,'Purchase Order','PO'),
  (93,'Sale Order','SO'),(94,'Delivery Challan','DC'),(95,'Bill of Material','BOM');
INSERT INTO HelpIndex VALUES (1,'Dates','...');
INSERT INTO TempBS VALUES (NULL,9999,30,'Profit / (Loss) For The Period',-12.5),(NULL,100,10,'Cash',0);
INSERT INTO Transactions (TranNo,DocNo,TranDate,TranType,FYID,Nature,EmpID,JobIDFrom,"Desc",D1,D1Date,D2,D2Date,
  PartyCode,PartyCode2,Text1,Text2,Text7,Text8,Text12,Discount,Carriage,TrAmount,Received,Balance,WordsAmt,LocationFrom,
  UserAdded,UserEdited,TimeEdited,Cancel,InvLedger) VALUES
  ( 1,1,'2024-06-30',11,1,'',0,0,'Opening Balance','',NULL,'',NULL,0,0,'','','','','',0,0,0,0,0,'',0,1,1,'2024-06-30 09:00:00',0,0),
  ( 2,1,'2025-06-30',32,1,'CASH',1,0,'last day','',NULL,'',NULL,40001001,12001001,'Walk-in','','','','1',0,0,300,300,0,'three',1,1,1,'2025-06-30 23:59:59',0,0),
  (10,1,'2025-06-30',11,2,'',0,0,'Opening Balance','',NULL,'',NULL,0,0,'','','','','',0,0,0,0,0,'',1,1,1,'2025-07-01 00:00:00',0,0),
  (11,1,'2026-06-30',51,2,'',0,0,'Closing Balance','',NULL,'',NULL,0,0,'','','','','',0,0,0,0,0,'',1,1,1,'2025-07-01 00:00:00',0,0),
  (12,1,'2025-07-01',22,2,'Net 30 days',NULL,0,'first day','V-77','2025-07-01','5','2025-07-01',50001002,21001002,'[Acme]_Steel','','','','',0,0,1105,105,1000,'w',1,1,2,'2025-07-01 10:00:00',0,0),
  (13,2,'2025-08-15',22,2,'CASH',2,0,NULL,'v-77 ',NULL,'',NULL,50001002,21001002,'[Acme]_Steel','','','','',0,10,6010,0,6010,'w',1,1,1,NULL,0,0),
  (14,1,'2025-08-20',25,2,'',0,0,'','V-77',NULL,'1','2025-07-01',50001002,21001002,'[Acme]_Steel','','','','',0,0,200,0,200,'w',1,1,1,NULL,0,0),
  (15,1,'2025-09-01',32,2,'Net 30 days',1,1,'order 1','SO/1','2025-08-31','',NULL,40001001,12001002,'O''Brien & Sons','Lahore','','','1',25,50,1525,500,1025,'one thousand',1,1,1,'2025-09-01 12:30:00',0,0),
  (16,2,'2025-09-01',32,2,'net 30 DAYS',NULL,0,NULL,'',NULL,'',NULL,40001001,12001003,'o''brien & sons ',NULL,'','','1',0,0,150,0,150,'w',1,2,1,NULL,0,0),
  (17,3,'2025-09-02',32,2,'',1,0,'cancelled','',NULL,'',NULL,40001001,12001002,'O''Brien & Sons','','','','1',0,0,9999,0,9999,'w',1,1,1,NULL,-1,0),
  (18,4,'2026-06-30',32,2,'CASH',1,0,'last day','',NULL,'',NULL,40001001,12001001,'Walk-in','','','','0',0,-5,145,145,0,'w',2,1,2,NULL,0,0),
  (19,1,'2025-09-10',35,2,'',1,0,'','1','2025-09-01','',NULL,40001001,12001002,'O''Brien & Sons','','','','',0,0,150,0,150,'w',1,1,1,NULL,0,0),
  (20,1,'2025-09-15',39,2,'Customer Receipt',1,1,'','',NULL,'',NULL,12001002,10001001,'O''Brien & Sons','Cash in Hand','','','',25,50,500,425,0,'w',0,1,1,NULL,0,0),
  (21,1,'2025-09-16',38,2,'Customer Receipt',NULL,0,'','99-1','2025-09-16','',NULL,12001003,11001001,'o''brien & sons ','Bank','','','',0,0,150,150,0,'w',0,1,1,NULL,-1,0),
  (22,1,'2025-09-20',29,2,'Vendor Payment',NULL,0,'','',NULL,'',NULL,21001002,10001001,'[Acme]_Steel','Cash in Hand','','','',0,0,300,300,0,'w',0,1,1,NULL,0,0),
  (23,1,'2025-09-21',28,2,'Petty Payment',2,0,'','99-2',NULL,'',NULL,0,11001001,'','Bank','','','',0,0,40,40,0,'w',0,1,1,NULL,0,0),
  (24,1,'2025-12-31',41,2,'',NULL,0,'count','',NULL,'',NULL,0,0,'','','','','',0,0,1500,0,0,'w',0,1,1,NULL,0,0),
  (25,1,'2025-10-01',42,2,'',1,1,'',NULL,NULL,NULL,NULL,50001002,50001006,'','','','','',500,0,500,0,0,'w',1,1,1,NULL,0,0),
  (26,1,'2025-10-05',43,2,'',NULL,1,'',NULL,NULL,NULL,NULL,0,0,'','','','','',0,0,300,0,0,'w',1,1,1,NULL,0,0),
  (27,1,'2025-10-06',45,2,'',NULL,0,'stock count',NULL,NULL,NULL,NULL,0,0,'','','','','',0,0,1000,0,0,'w',2,1,1,NULL,0,0),
  (28,1,'2025-10-07',47,2,'',NULL,0,NULL,NULL,NULL,NULL,NULL,0,0,'','','','','',0,0,21,0,0,'w',1,1,1,NULL,0,0),
  (29,1,'2025-08-01',91,2,'',1,0,'','Offer',NULL,'',NULL,12002001,12002001,'Müller 100% GmbH','','','','',0,0,1500,0,1500,'w',1,1,1,NULL,0,-1),
  (30,5,'2025-07-01',92,2,'',NULL,0,'','',NULL,'',NULL,21001002,21001002,'[Acme]_Steel','','','','',0,0,1000,0,0,'w',1,1,1,NULL,0,-1),
  (31,1,'2025-08-31',93,2,'',NULL,0,'','SO/1',NULL,'',NULL,12001002,12001002,'O''Brien & Sons','','','','',0,0,1800,0,0,'w',1,1,1,NULL,0,-1),
  (32,1,'2025-09-03',94,2,'',0,0,'','so/1',NULL,'',NULL,12001002,12001002,'O''Brien & Sons','','LEA-1','Ali','',0,0,300,0,0,'w',1,1,1,NULL,0,0),
  (33,1,'2025-09-04',30,2,'',0,0,'','SO/1',NULL,'1','2025-09-03',12001002,12001002,'O''Brien & Sons','','','','',0,0,300,0,0,'w',1,1,1,NULL,0,-1),
  (34,1,'2025-07-01',20,2,'',0,0,'','',NULL,'5',NULL,21001002,21001002,'[Acme]_Steel','','','','',0,0,500,0,0,'w',1,1,1,NULL,0,0),
  (35,1,'2025-07-02',95,2,'',0,0,'','',NULL,'',NULL,0,0,'KIT','Kit','','','',250,0,250,0,0,'w',0,1,1,NULL,-1,-1);
UPDATE Transactions SET DocNo2=DocNo, JobIDTo=JobIDFrom, LocationTo=CASE TranNo WHEN 26 THEN 2 ELSE LocationFrom END,
  Text3='', Text4='', Numeric1=0, Numeric2=0, Tax1=0, Tax2=0, AdditionalTax=0, TimeAdded='2025-07-01 08:00:00';
INSERT INTO SubTransactions (TranNo,AccCode,AccName,"Desc",Debit,Credit,Balance,Status) VALUES
  (2,10001001,'Cash in Hand','',300,NULL,NULL,NULL),(2,40001001,'Sales','',NULL,300,NULL,NULL),
  (10,10001001,'Cash in Hand','Balance Brought Forward',1000,NULL,1000,'Debit'),
  (10,12001002,'O''Brien & Sons','Balance Brought Forward',200,NULL,200,'Debit'),
  (10,21001002,'[Acme]_Steel','Balance Brought Forward',NULL,1200,1200,'Credit'),
  (11,13001001,'Closing Inventory','',0,NULL,NULL,NULL),(11,50001006,'Closing Inventory','',NULL,0,NULL,NULL),
  (12,50001002,'Purchases','steel',1105,NULL,1105,'Debit'),(12,10001001,'Cash in Hand','',NULL,105,895,'Debit'),
  (12,21001002,'[Acme]_Steel','',NULL,1000,2200,'Credit'),
  (13,50001002,'Purchases','steel',6000,NULL,7105,'Debit'),(13,21001002,'[Acme]_Steel','',NULL,6010,8210,'Credit'),
  (15,10001001,'Cash in Hand','',500,NULL,1395,'Debit'),(15,12001002,'O''Brien & Sons','',1525,NULL,1725,'Debit'),
  (15,12001002,'O''Brien & Sons','',NULL,500,1225,'Debit'),(15,40001001,'Sales','',NULL,1475,1475,'Credit'),
  (15,60001001,'Carriage & Freight Outwards','',NULL,50,50,'Credit'),
  (16,12001003,'o''brien & sons ','',150,NULL,NULL,NULL),(16,40001001,'Sales','',NULL,150,NULL,NULL),
  (17,12001002,'O''Brien & Sons','',9999,NULL,NULL,NULL),(17,40001001,'Sales','',NULL,9999,NULL,NULL),
  (18,10001001,'Cash in Hand','',145,NULL,165,'Credit'),(18,40001001,'Sales','',NULL,150,NULL,NULL),
  (18,60001001,'Carriage & Freight Outwards','',5,NULL,NULL,NULL),
  (19,40001001,'Sales','',150,NULL,NULL,NULL),(19,12001002,'O''Brien & Sons','',NULL,150,NULL,NULL),
  (20,10001001,'Cash in Hand','',425,NULL,NULL,NULL),(20,12001002,'O''Brien & Sons','',NULL,500,NULL,NULL),
  (22,21001002,'[Acme]_Steel','',300,NULL,NULL,NULL),(22,10001001,'Cash in Hand','',NULL,300,NULL,NULL),
  (24,12002001,'Müller 100% GmbH','no amount',NULL,NULL,NULL,NULL),(24,60001001,'Carriage','',1500,0,NULL,NULL),
  (24,10001001,'Cash in Hand','',NULL,1500,NULL,NULL);
INSERT INTO StockFlow (TranNo,Serial,ItemCode,ItemName,ProductSerials,StockIn,StockOut,Unit,Rate,GrossAmt,DiscRate,DiscAmt,
  ItemValue,LocationID,JobID,Balance) VALUES
  (10,1,'A-100','Bolt 5"',NULL,20,NULL,'Pcs',150,3000,NULL,0,3000,1,0,20),(10,2,'b-200','bolt',NULL,-3,NULL,'Pcs',10,-30,NULL,0,-30,2,0,-3),
  (12,1,'A-100','Bolt 5"','SN-70, SN-71',10,NULL,'Pcs',100,1000,NULL,0,1000,1,0,30),(12,2,'B-200','bolt',NULL,10,NULL,'Pcs',10.5,105,NULL,0,105,1,0,7),
  (13,1,'a-100','Bolt 5"',NULL,30,NULL,'Pcs',200,6000,NULL,0,6000,1,0,60),(14,1,'A-100','Bolt 5"',NULL,NULL,1,'Pcs',200,200,NULL,0,200,1,0,59),
  (15,1,'A-100','Bolt 5"','sn-70',NULL,10,'Pcs',150,1500,NULL,0,1500,1,1,49),(15,2,'SRV-1','Repair',NULL,NULL,1,'Job',0,0,NULL,0,0,1,1,NULL),
  (16,1,'A-100','Bolt 5" ',NULL,NULL,1,'Pcs',150,150,NULL,0,150,1,0,48),(17,1,'A-100','Bolt 5"','SN-7',NULL,60,'Pcs',166.65,9999,NULL,0,9999,1,0,NULL),
  (18,1,'b-200','bolt ''short''',NULL,NULL,7.5,'Pcs',20,150,2.5,3.75,146.25,2,0,-0.5),(18,2,'Service','odd job',NULL,NULL,1,NULL,0,0,NULL,0,0,2,0,NULL),
  (19,1,'A-100','Bolt 5"',NULL,1,NULL,'Pcs',150,150,NULL,0,150,1,0,49),
  (25,1,'A-100','Bolt 5"',NULL,NULL,2,'Pcs',166.67,333.34,0,0,333.34,1,1,47),(25,1,'KIT','Kit',NULL,2,NULL,'Pcs',250,500,0,0,500,1,1,2),
  (26,1,'A-100','Bolt 5"',NULL,NULL,3,'Pcs',100,300,NULL,0,300,1,1,44),(26,1,'A-100','Bolt 5"',NULL,3,NULL,'Pcs',100,300,NULL,0,300,2,1,47),
  (27,1,'KIT','Kit',NULL,4,NULL,'Pcs',250,1000,10,100,900,2,0,6),(28,1,'b-200','bolt',NULL,NULL,2,'Pcs',10.5,21,NULL,0,21,1,0,-2.5),
  (30,1,'A-100','Bolt 5"',NULL,10,NULL,'Pcs',100,1000,NULL,0,1000,1,0,NULL),(31,1,'A-100','Bolt 5"',NULL,NULL,12,'Pcs',150,1800,NULL,0,1800,1,0,NULL),
  (31,2,'KIT','Kit',NULL,NULL,1,'Pcs',500,500,NULL,0,500,1,0,NULL),(32,1,'a-100','Bolt 5"',NULL,NULL,2,'Pcs',150,300,NULL,0,300,1,0,45),
  (33,1,'A-100','Bolt 5"',NULL,NULL,2,'Pcs',150,300,NULL,0,300,1,0,NULL),(34,1,'A-100','Bolt 5"',NULL,5,NULL,'Pcs',100,500,NULL,0,500,1,0,50),
  (35,1,'A-100','Bolt 5"',NULL,NULL,1,'Pcs',166.67,166.67,NULL,0,166.67,1,0,NULL),(35,2,'C_300','Nut 100%',NULL,NULL,NULL,'kg',NULL,NULL,NULL,NULL,NULL,1,0,NULL);
INSERT INTO AgingDr (TranNo,DocNo,DocNo2,TranDate,TranDate2,PartyCode,TranType,TrAmount,"Return",Payment,WHTaxRt,WHTax,Discount,
  AdvAdj,TotPayment,FYID) VALUES
  (10,77,77,'2025-05-01','2025-05-01',12001002,11,200,0,0,0,0,0,0,0,2),
  (15,1,1,'2025-09-01','2025-09-01',12001002,32,1525,0,500,0,0,0,0,500,2),(16,2,2,'2025-09-01','2025-09-01',12001003,32,150,0,0,0,0,0,0,0,2),
  (19,1,1,'2025-09-01','2025-09-10',12001002,35,0,150,0,0,0,0,0,150,2),(20,1,1,'2025-09-01','2025-09-15',12001002,39,0,0,425,10,50,25,0,500,2),
  (21,2,1,'2025-09-01','2025-09-16',12001003,38,0,0,150,0,0,0,0,150,2),(18,4,4,'2026-06-30','2026-06-30',12001001,32,145,0,145,0,0,0,0,145,2);
INSERT INTO AgingCr (TranNo,DocNo,DocNo2,VendorInvNo,TranDate,TranDate2,PartyCode,TranType,TrAmount,"Return",Payment,WHTaxRt,WHTax,
  Discount,AdvAdj,TotPayment,FYID) VALUES
  (10,5,5,NULL,'2025-06-15','2025-06-15',21001002,11,1200,0,0,0,0,0,0,0,2),(12,1,1,'V-77','2025-07-01','2025-07-01',21001002,22,1105,0,105,0,0,0,0,105,2),
  (13,2,2,'v-77','2025-08-15','2025-08-15',21001002,22,6010,0,0,0,0,0,0,0,2),(14,1,1,'V-77','2025-07-01','2025-08-20',21001002,25,0,200,0,0,0,0,0,200,2),
  (22,1,1,'V-77','2025-07-01','2025-09-20',21001002,29,0,0,300,0,0,0,0,300,2);
)sql";

void bind(sqlite3_stmt* statement, int position, const store::Value& value) {
  struct Binder {
    sqlite3_stmt* statement;
    int position;
    void operator()(store::Null) const { sqlite3_bind_null(statement, position); }
    void operator()(bool yes) const { sqlite3_bind_int(statement, position, yes ? -1 : 0); }
    void operator()(std::int64_t number) const { sqlite3_bind_int64(statement, position, number); }
    void operator()(double number) const { sqlite3_bind_double(statement, position, number); }
    void operator()(const std::string& text) const {
      sqlite3_bind_text(statement, position, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    }
    void operator()(const text::DateTime& date) const { (*this)(date.iso()); }
  };
  std::visit(Binder{statement, position}, value);
}

std::string cell(sqlite3_stmt* statement, int column) {
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
      return "null";
    case SQLITE_INTEGER:
    case SQLITE_FLOAT:
      return text::numberText(sqlite3_column_double(statement, column));
    default:
      return "'" + std::string(reinterpret_cast<const char*>(sqlite3_column_text(statement, column))) + "'";
  }
}

Answer ask(sqlite3* handle, std::string_view sql, const std::vector<store::Value>& parameters) {
  Answer answer;
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(handle, sql.data(), static_cast<int>(sql.size()), &statement, nullptr) != SQLITE_OK) {
    answer.error = std::string("not prepared: ") + sqlite3_errmsg(handle) + " in " + std::string(sql);
    return answer;
  }
  for (std::size_t i = 0; i < parameters.size(); ++i) bind(statement, static_cast<int>(i) + 1, parameters[i]);
  const int width = sqlite3_column_count(statement);
  for (int i = 0; i < width; ++i) answer.columns.emplace_back(sqlite3_column_name(statement, i));
  int step;
  while ((step = sqlite3_step(statement)) == SQLITE_ROW) {
    auto& row = answer.rows.emplace_back();
    for (int i = 0; i < width; ++i) row.push_back(cell(statement, i));
  }
  if (step != SQLITE_DONE) answer.error = std::string("failed: ") + sqlite3_errmsg(handle);
  sqlite3_finalize(statement);
  return answer;
}

void require(sqlite3* handle, const std::string& sql) {
  if (sqlite3_exec(handle, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
    throw std::runtime_error(std::string("small company: ") + sqlite3_errmsg(handle));
}

}  // namespace

std::string Answer::describe() const {
  if (!error.empty()) return error;
  std::string text;
  const auto line = [&](const std::vector<std::string>& cells) {
    for (const auto& each : cells) text += each + " | ";
    text += "\n";
  };
  line(columns);
  for (const auto& row : rows) line(row);
  return text;
}

SmallCompany::SmallCompany() {
  sqlite3_open(":memory:", &handle_);
  store::sql::registerFunctions(handle_);
  for (const auto& table : schema::companyCatalog().tables()) {
    require(handle_, store::createTableSql(table));
    for (const auto& index : store::createIndexSql(table)) require(handle_, index);
  }
  require(handle_, "PRAGMA foreign_keys = ON");
  for (const auto& kept : schema::companyCatalog().keptTotals()) store::makeKeptTotals(handle_, kept);
  for (const auto& kept : schema::companyCatalog().keptBalances()) store::makeKeptBalances(handle_, kept);
  require(handle_, rows);
}

SmallCompany::~SmallCompany() {
  sqlite3_close(handle_);
}

Answer SmallCompany::run(const store::sql::CompiledStatement& compiled) const {
  return ask(handle_, compiled.sql, compiled.parameters);
}

Answer SmallCompany::compileAndRun(std::string_view statement) const {
  const auto compiled = store::sql::compile(statement, schema::companyCatalog());
  if (!compiled) return {.columns = {}, .rows = {}, .error = "refused: " + compiled.error().describe(statement)};
  return run(*compiled);
}

Answer SmallCompany::runPlain(std::string_view sql) const {
  return ask(handle_, sql, {});
}

}  // namespace velmo::test
