#include "demo_company/large_company.h"

#include "demo_company/company_folder.h"
#include "demo_company/large_masters.h"
#include "demo_company/prepared_insert.h"
#include "schema/company_schema.h"
#include "store/connection/connection.h"
#include "text/amount_in_words.h"

namespace velmo::demo {
namespace {

constexpr std::uint32_t seed = 7;
constexpr int year = 2026;
constexpr int daysOfYear = 365;

AccountRange customers(const LargeCompany& size) {
  return {.firstSubType = 12002, .name = "Customers", .terms = "30 Days", .count = size.accounts};
}

class LargeCompanyWriter {
 public:
  LargeCompanyWriter(sqlite3* database, const LargeCompany& size) : database_(database), size_(size), dice_(seed) {}

  void write() {
    run("BEGIN");
    writeAccounts(database_, dice_, customers(size_));
    writeItems(database_, dice_, size_.items);
    writeInvoices();
    run("COMMIT");
  }

 private:
  void run(const char* sql) {
    if (sqlite3_exec(database_, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
      throw std::runtime_error(sqlite3_errmsg(database_));
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
      const int customer = accountCode(customers(size_), dice_.between(0, size_.accounts - 1));
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
