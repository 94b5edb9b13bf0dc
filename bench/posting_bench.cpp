#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <stdexcept>

#include "documents/sale_invoice_type.h"
#include "frame/compose_document.h"
#include "large_company_folder.h"
#include "schema/company_file.h"
#include "schema/company_schema.h"

namespace velmo::bench {
namespace {

constexpr int linesPerInvoice = 20;
const text::DateTime saleTime = text::DateTime::fromCalendar(2026, 11, 22, 10, 30);

frame::DocumentValues invoiceValues() {
  frame::DocumentValues values;
  values.TrDate = saleTime.date();
  values.PartyCodeTxt = "12001001";
  values.PartyNameTxt = "Walk-in Customer";
  values.IncomeCode = "40001001";
  values.IncomeAcc = "Sales";
  values.LocationList = {.text = "Main", .id = 1, .matches = true};
  return values;
}

// The program's own way: from the sheet of lines to the durable document.
class ProgramPosting {
 public:
  ProgramPosting() : context_(schema::companyCatalog()) {
    context_.KORDconn.open(schema::plainConnectionString);
    context_.FYID = 1;
    context_.UserID = 1;
    context_.currencyname = "Rupees";
    tran_.open(context_.KORDconn, "SELECT * from transactions where trantype=32 and fyid = 1 order by docno",
               store::LockType::Optimistic, store::Fetch::AsNeeded);
  }

  void prepare() {
    sheet_ = store::Recordset();
    frame::openSheet(context_.KORDconn, sheet_, 0);
    for (int line = 0; line < linesPerInvoice; ++line) {
      sheet_.moveTo(line);
      sheet_.update({{"itemcode", std::string("IT000001")},
                     {"itemname", std::string("Hinge, brass, 75 mm")},
                     {"stockout", 2.0},
                     {"unit", std::string("Pcs")},
                     {"rate", 12.5},
                     {"grossamt", 25.0},
                     {"discamt", 0.0},
                     {"itemvalue", 25.0}});
    }
    values_ = invoiceValues();
    values_.DocNo = std::to_string(frame::nextDocNo(tran_));
    values_.totals =
        frame::RecalculateTotals(frame::sumLines(sheet_), {.Discount = "0.00", .Carriage = "0.00", .Received = "0.00"},
                                 frame::ReceivedRule::AsTyped, context_.currencyname);
  }

  void post() {
    auto document = frame::composeDocument(documents::saleInvoiceType(), values_, context_, saleTime, sheet_,
                                           frame::HeaderWrite::Add);
    if (!document) throw std::logic_error(document.error());
    frame::writeDocument(context_.KORDconn, *document, tran_, sheet_);
  }

  void checkpoint() { context_.KORDconn.checkpoint(); }

 private:
  session::LoginContext context_;
  store::Recordset tran_;
  store::Recordset sheet_;
  frame::DocumentValues values_;
};

// The same rows by hand: prepared statements, one transaction, the same durability and indexes.
class HandPosting {
 public:
  HandPosting() : connection_(schema::companyCatalog()) {
    connection_.open(schema::plainConnectionString);
    header_ = prepare(
        "insert into Transactions (DocNo,DocNo2,TranDate,Nature,EmpID,JobIDFrom,JobIDTo,\"Desc\",TranType,D1,D1Date,D2,"
        "D2Date,PartyCode,PartyCode2,Text1,Text2,Text3,Text4,Text5,Text6,Text7,Text8,Text9,Text10,Text11,Text12,"
        "Numeric1,Numeric2,Discount,Tax1,Tax2,AdditionalTax,Carriage,TrAmount,Received,Balance,WordsAmt,LocationFrom,"
        "LocationTo,FYID,UserAdded,TimeAdded,UserEdited,TimeEdited,Cancel,InvLedger) values "
        "(?1,?1,'2026-11-22','',0,0,0,"
        "'',32,'',null,'',null,40001001,12001001,'Walk-in "
        "Customer','','','10001001','','','','','','','0','1',0,0,0,0,0,"
        "0,0,500,0,500,'five hundred and 00/100 only.',1,1,1,1,'2026-11-22 10:30:00',1,'2026-11-22 10:30:00',0,0)");
    line_ = prepare(
        "insert into StockFlow (TranNo,Serial,ItemCode,ItemName,Packs,PackPcs,StockOut,Unit,Rate,GrossAmt,DiscAmt,"
        "ItemValue,LocationID,JobID) values (?1,?2,'IT000001','Hinge, brass, 75 mm',1,1,2,'Pcs',12.5,25,0,25,1,0)");
    ledger_ = prepare(
        "insert into SubTransactions (TranNo,AccCode,AccName,\"Desc\",Debit,Credit) values (?1,?2,?3,?4,?5,?6)");
    aging_ = prepare(
        "insert into AgingDr (TranNo,DocNo,DocNo2,TranDate,TranDate2,PartyCode,TranType,TrAmount,\"Return\",Payment,"
        "WHTaxRt,WHTax,Discount,AdvAdj,TotPayment,FYID) values "
        "(?1,?2,?2,'2026-11-22','2026-11-22',12001001,32,500,0,0,0,0,0,0,0,1)");
    begin_ = prepare("begin immediate");
    commit_ = prepare("commit");
    highest_ = prepare("select max(DocNo) from Transactions where TranType = 32 and FYID = 1");
    for (int number = 0; number < linesPerInvoice; ++number)
      narration_ += "(Hinge, brass, 75 mm - 2 Pcs @12.5 =Rs.25) ";
  }

  ~HandPosting() {
    for (sqlite3_stmt* statement : {header_, line_, ledger_, aging_, begin_, commit_, highest_})
      sqlite3_finalize(statement);
  }

  void post() {
    sqlite3_step(highest_);
    const sqlite3_int64 docNo = sqlite3_column_int64(highest_, 0) + 1;
    sqlite3_reset(highest_);
    run(begin_);
    sqlite3_bind_int64(header_, 1, docNo);
    run(header_);
    const sqlite3_int64 tranNo = sqlite3_last_insert_rowid(connection_.handle());
    for (int serial = 1; serial <= linesPerInvoice; ++serial) {
      sqlite3_bind_int64(line_, 1, tranNo);
      sqlite3_bind_int(line_, 2, serial);
      run(line_);
    }
    ledgerLine(tranNo, 12001001, "Walk-in Customer", "Walk-in Customer - Invoice No 1", 5);
    ledgerLine(tranNo, 40001001, "Sales", narration_.c_str(), 6);
    sqlite3_bind_int64(aging_, 1, tranNo);
    sqlite3_bind_int64(aging_, 2, docNo);
    run(aging_);
    run(commit_);
  }

 private:
  sqlite3_stmt* prepare(const char* sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(connection_.handle(), sql, -1, &statement, nullptr) != SQLITE_OK)
      throw std::runtime_error(sqlite3_errmsg(connection_.handle()));
    return statement;
  }

  void run(sqlite3_stmt* statement) {
    if (sqlite3_step(statement) != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(connection_.handle()));
    sqlite3_reset(statement);
  }

  void ledgerLine(sqlite3_int64 tranNo, int account, const char* name, const char* narration, int side) {
    sqlite3_clear_bindings(ledger_);
    sqlite3_bind_int64(ledger_, 1, tranNo);
    sqlite3_bind_int(ledger_, 2, account);
    sqlite3_bind_text(ledger_, 3, name, -1, SQLITE_STATIC);
    sqlite3_bind_text(ledger_, 4, narration, -1, SQLITE_STATIC);
    sqlite3_bind_double(ledger_, side, 500);
    run(ledger_);
  }

  store::Connection connection_;
  std::string narration_;
  sqlite3_stmt* header_;
  sqlite3_stmt* line_;
  sqlite3_stmt* ledger_;
  sqlite3_stmt* aging_;
  sqlite3_stmt* begin_;
  sqlite3_stmt* commit_;
  sqlite3_stmt* highest_;
};

// Commits per second of the program, as a share of those by hand; turn by turn, so that the disk treats both alike.
void PostInvoiceOfTwentyLines(benchmark::State& state) {
  enterCompany({.invoices = 20000, .items = 2000, .accounts = 2000});
  CompanyCopy copy;
  ProgramPosting program;
  HandPosting hand;
  Durations ours, theirs;
  int posted = 0;
  for (auto _ : state) {
    program.prepare();
    ours.measure([&] { program.post(); });
    theirs.measure([&] { hand.post(); });
    if (++posted % 200 == 0) program.checkpoint();  // as the shell does when the till is idle
  }
  state.counters["share_of_hand_written"] = theirs.mean() / ours.mean();
  state.counters["commits_per_second"] = 1 / ours.mean();
  state.counters["p99_ms"] = ours.percentile(0.99) * 1e3;
  state.counters["p99_ms_by_hand"] = theirs.percentile(0.99) * 1e3;
}
BENCHMARK(PostInvoiceOfTwentyLines)->Iterations(2000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmo::bench
