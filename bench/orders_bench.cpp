#include <benchmark/benchmark.h>

#include <optional>

#include "by_hand.h"
#include "documents/conversions/convert_document.h"
#include "figures.h"
#include "open_shell.h"
#include "schema/document_kinds.h"

namespace velmo::bench {
namespace {

constexpr const char* group = "Orders";
constexpr int linesPerInvoice = 20;
const text::DateTime day = text::DateTime::fromCalendar(2026, 11, 22, 10, 30);

const documents::Conversion& challanOfInvoice() {
  using namespace schema::tran_type;
  for (const documents::Conversion& conversion : documents::conversions())
    if (conversion.from == SaleInvoice && conversion.to == DeliveryChallan) return conversion;
  throw std::logic_error("an invoice is turned into no challan");
}

// An invoice of so many lines.
std::int64_t addInvoice(store::Connection& company) {
  const auto run = [&company](const std::string& sql) {
    if (sqlite3_exec(company.handle(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
      throw std::runtime_error(sqlite3_errmsg(company.handle()));
  };
  run("insert into Transactions (DocNo,DocNo2,TranDate,Nature,EmpID,JobIDFrom,JobIDTo,\"Desc\",TranType,D1,D1Date,D2,"
      "D2Date,PartyCode,PartyCode2,Text1,Text2,Text3,TrAmount,Balance,LocationFrom,LocationTo,FYID,UserAdded,"
      "UserEdited,Cancel,InvLedger) values (900001,'900001','2026-11-22','Net "
      "30',1,0,0,'',32,'PO-9','20-11-2026','','',"
      "40001001,12001001,'Walk-in Customer','1 High Street','555-1',500,500,1,1,1,1,1,0,0)");
  const std::int64_t tranNo = sqlite3_last_insert_rowid(company.handle());
  for (int serial = 1; serial <= linesPerInvoice; ++serial)
    run("insert into StockFlow (TranNo,Serial,ItemCode,ItemName,Packs,PackPcs,StockOut,Unit,Rate,GrossAmt,DiscRate,"
        "DiscAmt,ItemValue,LocationID,JobID) values (" +
        std::to_string(tranNo) + "," + std::to_string(serial) +
        ",'IT000001','Hinge, brass, 75 mm',1,1,2,'Pcs',12.5,25,0,0,25,1,0)");
  return tranNo;
}

// The same rows by hand, of an invoice that is known already.
class HandConversion {
 public:
  HandConversion() : connection_(schema::companyCatalog()) {
    connection_.open(schema::plainConnectionString);
    source_ = addInvoice(connection_);
    const auto prepare = [this](std::optional<HandStatement>& statement, const char* sql) {
      statement.emplace(connection_.handle(), sql);
    };
    prepare(begin_, "begin immediate");
    prepare(commit_, "commit");
    prepare(header_,
            "insert into Transactions (DocNo,DocNo2,TranDate,Nature,EmpID,JobIDFrom,JobIDTo,\"Desc\",TranType,D1,"
            "D1Date,D2,D2Date,PartyCode,PartyCode2,Text1,Text2,Text3,Text4,Text5,Text6,Text7,Text8,Text9,Text10,Text11,"
            "Text12,Numeric1,Numeric2,Discount,Tax1,Tax2,AdditionalTax,Carriage,TrAmount,Received,Balance,WordsAmt,"
            "LocationFrom,LocationTo,FYID,UserAdded,TimeAdded,UserEdited,TimeEdited,Cancel,InvLedger) values "
            "(?1,?1,?2,?3,1,0,0,'',94,?4,?5,'','',?6,?6,?7,?8,?9,'','','10:30:00 AM','','','','','','',0,0,0,0,0,0,0,"
            "?10,0,?10,?11,1,1,1,1,?12,1,?12,0,-1)");
    prepare(line_,
            "insert into StockFlow (TranNo,Serial,ItemCode,ItemName,Packs,PackPcs,StockOut,Unit,Rate,GrossAmt,DiscRate,"
            "DiscAmt,ItemValue,LocationID,JobID) values (?1,?2,?3,?4,1,1,?5,?6,?7,?8,0,?9,?10,?11,0)");
    prepare(mark_, "update Transactions set D2 = ?1, D2Date = ?2 where TranNo = ?3");
  }

  void convert(std::int64_t docNo) {
    const std::string number = std::to_string(docNo);
    constexpr std::int64_t customer = 12001001, location = 1;
    constexpr std::string_view today = "2026-11-22", now = "2026-11-22 10:30:00";
    begin_->run();
    header_->run(docNo, today, std::string_view("Net 30"), std::string_view("PO-9"), std::string_view("20-11-2026"),
                 customer, std::string_view("Walk-in Customer"), std::string_view("1 High Street"),
                 std::string_view("555-1"), 500.0, std::string_view("five hundred and 00/100 only."), now);
    const std::int64_t tranNo = sqlite3_last_insert_rowid(connection_.handle());
    for (std::int64_t serial = 1; serial <= linesPerInvoice; ++serial)
      line_->run(tranNo, serial, std::string_view("IT000001"), std::string_view("Hinge, brass, 75 mm"), 2.0,
                 std::string_view("Pcs"), 12.5, 25.0, 0.0, 25.0, location);
    mark_->run(std::string_view(number), std::string_view("22-11-2026"), source_);
    commit_->run();
  }

  std::int64_t invoice() const { return source_; }
  void checkpoint() { connection_.checkpoint(); }

 private:
  store::Connection connection_;
  std::int64_t source_ = 0;
  std::optional<HandStatement> begin_, commit_, header_, line_, mark_;
};

// The challan of an invoice, turn by turn with the same by hand, each in a copy of the same company.
void ConvertInvoiceOfTwentyLines(benchmark::State& state) {
  enterCompany({.invoices = 20000, .items = 2000, .accounts = 2000});
  const CompanyCopy handCopy;
  HandConversion hand;
  const std::filesystem::path handFolder = std::filesystem::current_path();
  hand.checkpoint();
  const CompanyCopy programCopy;  // with that invoice
  session::LoginContext context(schema::companyCatalog());
  context.KORDconn.open(schema::plainConnectionString);
  session::fillLoginContext(context, session::LoginRecords(context.KORDconn));
  context.UserID = 1;
  context.DCInvLedger = true;
  Durations ours, theirs;
  std::int64_t converted = 0;
  for (auto _ : state) {
    const auto byProgram = [&] {
      ours.measure([&] { documents::convertDocument(context, challanOfInvoice(), hand.invoice(), day); });
    };
    const auto byHand = [&] { theirs.measure([&] { hand.convert(converted + 1); }); };
    if (converted % 2 == 0) byProgram();
    byHand();
    if (converted % 2 != 0) byProgram();
    if (++converted % 200 == 0) {
      context.KORDconn.checkpoint();
      hand.checkpoint();
    }
  }
  requireSameRows(context.KORDconn.handle(), handFolder / "Uninstall" / "Uninstall.MDB",
                  {"Transactions", "StockFlow", "SubTransactions", "AgingDr"});
  const double share = theirs.mean() / ours.mean();
  state.counters["share_of_hand_written"] = theirs.percentile(0.5) / ours.percentile(0.5);
  state.counters["share_of_mean"] = share;
  state.counters["processor_ms"] = ours.processorMean() * 1e3;
  state.counters["processor_ms_by_hand"] = theirs.processorMean() * 1e3;
  // 80 % of the commits in a second are a quarter more of the time.
  tell({.group = group,
        .name = "converting an invoice of 20 lines, beside SQLite by hand",
        .value = 1 / share,
        .unit = "x",
        .goal = 1.25});
}
BENCHMARK(ConvertInvoiceOfTwentyLines)->Iterations(2000)->Unit(benchmark::kMillisecond);

// A year of so many documents of a kind.
void fillYear(sqlite3* company, int tranType) {
  const std::string sql =
      "with recursive n(i) as (select 1 union all select i + 1 from n where i < 200000) insert into Transactions "
      "(DocNo,DocNo2,TranDate,TranType,PartyCode,PartyCode2,Text1,TrAmount,LocationFrom,LocationTo,FYID,UserAdded,"
      "UserEdited,Cancel,InvLedger) select i,i,date('2026-01-01','+'||(i%365)||' days')," +
      std::to_string(tranType) + ",12001001,12001001,'Walk-in Customer',500,1,1,1,1,1,0,-1 from n";
  if (sqlite3_exec(company, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
    throw std::runtime_error(sqlite3_errmsg(company));
}

double openSeconds(OpenShell& shell, const char* screen) {
  shell.open(screen);  // what only the first screen of a kind pays
  shell.closeScreens();
  Durations opened;
  for (int round = 0; round < 9; ++round) {
    opened.measure([&] { shell.open(screen); });
    shell.closeScreens();
  }
  return opened.percentile(0.5);
}

// Each screen in a year of 200,000 of its documents beside a year without any.
void OrdersInALargeYear(benchmark::State& state) {
  for (auto _ : state)
    for (const char* screen :
         {"Quotations", "SaleOrders", "DeliveryChallans", "GatePassesOut", "PurchaseOrders", "GatePassesIn"}) {
      enterCompany({.invoices = 200, .items = 200000, .accounts = 20000});
      const CompanyCopy copy;
      OpenShell shell;
      const double empty = openSeconds(shell, screen);
      fillYear(shell.context().KORDconn.handle(), schema::documentForm(screen).tranType);
      const double full = openSeconds(shell, screen);
      state.counters[screen] = full / empty;
      tell({.group = group,
            .name = std::string("opening ") + screen + " of 200,000, beside an empty year",
            .value = full / empty,
            .unit = "x",
            .goal = 2});
    }
}
BENCHMARK(OrdersInALargeYear)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmo::bench
