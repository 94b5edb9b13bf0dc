#include "demo_company/large_company.h"

#include <array>

#include "demo_company/bar_code.h"
#include "demo_company/company_folder.h"
#include "demo_company/dice.h"
#include "demo_company/prepared_insert.h"
#include "schema/company_schema.h"
#include "store/connection/connection.h"
#include "text/amount_in_words.h"

namespace velmo::demo {
namespace {

constexpr std::uint32_t seed = 7;
constexpr int year = 2026;
constexpr int daysOfYear = 365;
constexpr int itemsPerSubCategory = 10000;
constexpr int accountsPerSubType = 900;  // at most 999 take a number

constexpr std::array words = {"Steel", "Brass", "Copper", "Rubber", "Nylon", "Timber", "Granite", "Glass",
                              "Pipe",  "Hinge", "Valve",  "Bolt",   "Cable", "Socket", "Bracket", "Panel",
                              "Blue",  "Black", "White",  "Heavy",  "Light", "Long",   "Short",   "Round"};

std::string threeWords(Dice& dice) {
  return std::string(dice.pick(words)) + " " + dice.pick(words) + " " + dice.pick(words);
}

int customerCode(int index) {
  return (12002 + index / accountsPerSubType) * 1000 + index % accountsPerSubType + 1;
}

std::string itemCode(int index) {
  return articleNumber(100000 + index);
}

class LargeCompanyWriter {
 public:
  LargeCompanyWriter(sqlite3* database, const LargeCompany& size) : database_(database), size_(size), dice_(seed) {}

  void write() {
    run("BEGIN");
    writeAccounts();
    writeItems();
    writeInvoices();
    run("COMMIT");
  }

 private:
  void run(const char* sql) {
    if (sqlite3_exec(database_, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
      throw std::runtime_error(sqlite3_errmsg(database_));
  }

  void writeAccounts() {
    PreparedInsert subTypes(database_, "AccLevel2", "Level2ID,L2AccName,TypeID");
    PreparedInsert accounts(database_, "AccLevel3",
                            "AccCode,AccName,Level1ID,Level2ID,Address,Phone,CreditLimit,CreditTerms,EmpID,SectorID,"
                            "Region1ID,Region2ID");
    for (int index = 0; index < size_.accounts; ++index) {
      const int code = customerCode(index);
      if (index % accountsPerSubType == 0)
        subTypes.run(code / 1000, "Customers " + std::to_string(code / 1000), code / 100000);
      accounts.run(code, threeWords(dice_) + " " + std::to_string(index), code / 100000, code / 1000,
                   std::to_string(index) + " High Street", "555-" + std::to_string(index), 0.0, "30 Days", 1, 1, 1, 1);
    }
  }

  void writeItems() {
    PreparedInsert categories(database_, "StockLevel1", "CatID,CatName");
    PreparedInsert subCategories(database_, "StockLevel2", "SubCatID,SubCatName,CatID");
    PreparedInsert items(database_, "StockLevel3",
                         "ItemCode,ItemName,Description,BrandID,Rack,PurchasePrice,SellingPrice,SellingPrice2,"
                         "SellingPrice3,PackPcs,Unit,ReorderLevel,ValuationCost1,ValuationCost2,ValuationType,Status,"
                         "CatID,SubCatID");
    categories.run("G", "Goods");
    std::string subCategory;
    for (int index = 0; index < size_.items; ++index) {
      if (index % itemsPerSubCategory == 0) {
        const int number = index / itemsPerSubCategory + 1;
        subCategory = "G" + std::string(number < 10 ? "0" : "") + std::to_string(number);
        subCategories.run(subCategory, "Goods " + std::to_string(number), "G");
      }
      const double cost = dice_.between(50, 9000) / 100.0;
      items.run(itemCode(index), threeWords(dice_) + " " + std::to_string(index), "", 1, "", cost, cost * 1.5,
                cost * 1.4, cost * 1.3, 1.0, "Pcs", 0.0, cost, cost, -1, 0, "G", subCategory);
    }
  }

  void writeInvoices() {
    PreparedInsert headers(database_, "Transactions",
                           "TranNo,DocNo,DocNo2,TranDate,Nature,EmpID,JobIDFrom,JobIDTo,\"Desc\",TranType,D1,D1Date,D2,"
                           "D2Date,PartyCode,PartyCode2,Text1,Text2,Text3,Text4,Text5,Text6,Text7,Text8,Text9,Text10,"
                           "Text11,Text12,Numeric1,Numeric2,Discount,Tax1,Tax2,AdditionalTax,Carriage,TrAmount,"
                           "Received,Balance,WordsAmt,LocationFrom,LocationTo,FYID,UserAdded,TimeAdded,UserEdited,"
                           "TimeEdited,Cancel,InvLedger");
    PreparedInsert ledger(database_, "SubTransactions", "TranNo,AccCode,AccName,\"Desc\",Debit,Credit");
    PreparedInsert lines(database_, "StockFlow",
                         "TranNo,Serial,ItemCode,ItemName,Packs,PackPcs,StockOut,Unit,Rate,GrossAmt,DiscRate,DiscAmt,"
                         "ItemValue,LocationID,JobID");
    PreparedInsert openItems(database_, "AgingDr",
                             "TranNo,DocNo,DocNo2,TranDate,TranDate2,PartyCode,TranType,TrAmount,\"Return\",Payment,"
                             "WHTaxRt,WHTax,Discount,AdvAdj,TotPayment,FYID");
    constexpr std::int64_t firstTranNo = 3;  // behind the two fixed documents of the year
    const text::DateTime firstDay = text::DateTime::fromCalendar(year, 1, 1);
    for (int number = 1; number <= size_.invoices; ++number) {
      const std::int64_t tranNo = firstTranNo + number - 1;
      const std::string date =
          firstDay.addDays(static_cast<int>(std::int64_t{number - 1} * daysOfYear / size_.invoices)).iso();
      const int customer = customerCode(dice_.between(0, size_.accounts - 1));
      const std::string name = "Customer " + std::to_string(customer);
      const int quantity = dice_.between(1, 20);
      const double rate = dice_.between(1, 500);
      const double goods = quantity * rate;
      const double carriage = 5;
      const double total = goods + carriage;
      const double received = 2;
      const std::string narration = name + " - Invoice No " + std::to_string(number);
      headers.run(tranNo, number, number, date, "30 Days", 1, 0, 0, "", 32, "", "", "", "", 40001001, customer, name,
                  "", "", "10001001", "", "", "", "", "", "", "0", "1", 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, carriage, total,
                  received, total - received, text::AmountInWords(total) + " only.", 1, 1, 1, 1, date, 1, date, 0, 0);
      ledger.run(tranNo, 10001001, "Cash in Hand", narration, received, nullptr);
      ledger.run(tranNo, customer, name, narration, total, nullptr);
      ledger.run(tranNo, customer, name, narration, nullptr, received);
      ledger.run(tranNo, 40001001, "Sales", narration, nullptr, goods);
      ledger.run(tranNo, 60001001, "Carriage & Freight Outwards", narration, nullptr, carriage);
      const std::string item = itemCode(dice_.between(0, size_.items - 1));
      lines.run(tranNo, 1, item, "Item " + item, 1.0, 1.0, static_cast<double>(quantity), "Pcs", rate, goods, 0.0, 0.0,
                goods, 1, 0);
      openItems.run(tranNo, number, number, date, date, customer, 32, total, 0.0, received, 0.0, 0.0, 0.0, 0.0,
                    received, 1);
    }
  }

  sqlite3* database_;
  LargeCompany size_;
  Dice dice_;
};

}  // namespace

void makeLargeCompany(const std::filesystem::path& folder, const LargeCompany& size) {
  makeCompanyIn(folder, text::DateTime::fromCalendar(year, 12, 31), [&size](const std::string& connectionString) {
    store::Connection connection(schema::companyCatalog());
    connection.open(connectionString);
    LargeCompanyWriter(connection.handle(), size).write();
    connection.close();
  });
}

}  // namespace velmo::demo
