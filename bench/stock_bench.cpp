#include <benchmark/benchmark.h>

#include <optional>

#include "by_hand.h"
#include "documents/stock/stock_desk.h"
#include "large_company_folder.h"
#include "schema/company_file.h"
#include "schema/company_schema.h"

namespace velmo::bench {
namespace {

constexpr int linesPerTransfer = 20;
const text::DateTime moveTime = text::DateTime::fromCalendar(2026, 11, 22, 10, 30);

// The program's own way: from the sheet of lines to the durable document with the lines that arrive.
class ProgramTransfers {
 public:
  ProgramTransfers() : context_(schema::companyCatalog()) {
    context_.KORDconn.open(schema::plainConnectionString);
    context_.FYID = 1;
    context_.UserID = 1;
    context_.currencyname = "Rupees";
    desk_.emplace(context_, documents::inventoryTransfersType());
  }

  void prepare() {
    const std::vector<test::StockLine> lines(linesPerTransfer, {.code = "IT000001", .quantity = 2, .rate = 12.5});
    desk_->prepare(0, test::stockValues(moveTime.date(), 1, 2), lines);
  }
  void post() { desk_->post(moveTime); }
  void checkpoint() { context_.KORDconn.checkpoint(); }
  sqlite3* handle() { return context_.KORDconn.handle(); }

 private:
  session::LoginContext context_;
  std::optional<test::StockDesk> desk_;
};

// The same rows by hand: prepared statements, one transaction, the same durability, columns, values and indexes.
class HandTransfers {
 public:
  HandTransfers() : connection_(schema::companyCatalog()) {
    connection_.open(schema::plainConnectionString);
    begin_.emplace(connection_.handle(), "begin immediate");
    commit_.emplace(connection_.handle(), "commit");
    header_.emplace(
        connection_.handle(),
        "insert into Transactions (DocNo,DocNo2,TranDate,Nature,EmpID,JobIDFrom,JobIDTo,\"Desc\",TranType,D1,"
        "D1Date,D2,D2Date,PartyCode,PartyCode2,Text1,Text2,Text3,Text4,Text5,Text6,Text7,Text8,Text9,Text10,Text11,"
        "Text12,Numeric1,Numeric2,Discount,Tax1,Tax2,AdditionalTax,Carriage,TrAmount,Received,Balance,WordsAmt,"
        "LocationFrom,LocationTo,FYID,UserAdded,TimeAdded,UserEdited,TimeEdited,Cancel,InvLedger) values "
        "(?1,?1,?2,'',0,0,0,'',43,'','','','',0,0,'','','','','','','','','','','','',0,0,0,0,0,0,0,?3,0,0,?4,?5,?6,"
        "1,1,?7,1,?7,0,0)");
    const auto line = [this](std::optional<HandStatement>& statement, const char* column) {
      statement.emplace(connection_.handle(),
                        (std::string("insert into StockFlow (TranNo,Serial,ItemCode,ItemName,Packs,PackPcs,") + column +
                         ",Unit,Rate,GrossAmt,DiscAmt,ItemValue,LocationID,JobID) values "
                         "(?1,?2,?3,?4,1,1,?5,?6,?7,?8,?9,?10,?11,0)")
                            .c_str());
    };
    line(leaves_, "StockOut");
    line(arrives_, "StockIn");
  }

  void post(std::int64_t docNo) {
    const std::string day = "2026-11-22", time = "2026-11-22 10:30:00", code = "IT000001", name = "Hinge, brass, 75 mm";
    const std::string unit = "Pcs", words = "five hundred and 00/100 only.";
    const std::int64_t from = 1, to = 2;
    begin_->run();
    header_->run(docNo, day, 500.0, words, from, to, time);
    const std::int64_t tranNo = sqlite3_last_insert_rowid(connection_.handle());
    for (auto* statement : {&leaves_, &arrives_})
      for (std::int64_t serial = 1; serial <= linesPerTransfer; ++serial)
        (*statement)
            ->run(tranNo, serial, code, name, 2.0, unit, 12.5, 25.0, 0.0, 25.0, statement == &leaves_ ? from : to);
    commit_->run();
  }
  void checkpoint() { connection_.checkpoint(); }

 private:
  store::Connection connection_;
  std::optional<HandStatement> begin_, commit_, header_, leaves_, arrives_;
};

// Commits per second of the program, as a share of those by hand; turn by turn, each in a copy of the same company.
void PostTransferOfTwentyLines(benchmark::State& state) {
  enterCompany({.invoices = 20000, .items = 2000, .accounts = 2000});
  const CompanyCopy handCopy;
  HandTransfers hand;
  const std::filesystem::path handFolder = std::filesystem::current_path();
  const CompanyCopy programCopy;
  ProgramTransfers program;
  Durations ours, theirs;
  int posted = 0;
  for (auto _ : state) {
    program.prepare();
    const auto byProgram = [&] { ours.measure([&] { program.post(); }); };
    if (posted % 2 == 0) byProgram();
    theirs.measure([&] { hand.post(posted + 1); });
    if (posted % 2 != 0) byProgram();
    if (++posted % 200 == 0) {  // as the shell does in an idle moment
      program.checkpoint();
      hand.checkpoint();
    }
  }
  requireSameRows(program.handle(), handFolder / "Uninstall" / "Uninstall.MDB", {"Transactions", "StockFlow"});
  state.counters["share_of_hand_written"] = theirs.percentile(0.5) / ours.percentile(0.5);
  state.counters["share_of_mean"] = theirs.mean() / ours.mean();
  state.counters["p50_ms"] = ours.percentile(0.5) * 1e3;
  state.counters["p50_ms_by_hand"] = theirs.percentile(0.5) * 1e3;
  state.counters["p99_ms"] = ours.percentile(0.99) * 1e3;
}
BENCHMARK(PostTransferOfTwentyLines)->Iterations(1000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmo::bench
