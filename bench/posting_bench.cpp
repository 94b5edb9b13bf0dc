#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <random>
#include <stdexcept>

#include "by_hand.h"
#include "documents/invoices/sale_invoice_type.h"
#include "frame/document/compose_document.h"
#include "frame/posting/document_number.h"
#include "kept_triggers.h"
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
  explicit ProgramPosting(std::vector<std::string> items = {"IT000001"}, int fyid = 1)
      : context_(schema::companyCatalog()), items_(std::move(items)) {
    context_.KORDconn.open(schema::plainConnectionString);
    context_.FYID = fyid;
    context_.UserID = 1;
    context_.currencyname = "Rupees";
    tran_.open(context_.KORDconn,
               "SELECT * from transactions where trantype=32 and fyid = " + std::to_string(fyid) + " order by docno",
               store::LockType::Optimistic, store::Fetch::AsNeeded);
  }

  // The number of the next invoice.
  std::int64_t prepare() {
    sheet_ = store::Recordset();
    frame::openSheet(context_.KORDconn, sheet_, 0);
    for (int line = 0; line < linesPerInvoice; ++line) {
      sheet_.moveTo(line);
      sheet_.update({{"itemcode", items_[next_++ % items_.size()]},
                     {"itemname", std::string("Hinge, brass, 75 mm")},
                     {"stockout", 2.0},
                     {"unit", std::string("Pcs")},
                     {"rate", 12.5},
                     {"grossamt", 25.0},
                     {"discamt", 0.0},
                     {"itemvalue", 25.0}});
    }
    values_ = invoiceValues();
    const std::int64_t docNo = frame::nextDocNo(tran_);
    values_.DocNo = std::to_string(docNo);
    values_.totals =
        frame::RecalculateTotals(frame::sumLines(sheet_), {.Discount = "0.00", .Carriage = "0.00", .Received = "0.00"},
                                 frame::ReceivedRule::AsTyped, context_.currencyname);
    return docNo;
  }

  void post() {
    const std::string narrations =
        frame::lineNarrations(sheet_, documents::saleInvoiceKind().lines.quantityField, context_.ccode);
    auto document = frame::composeDocument(documents::saleInvoiceType(), values_, context_, saleTime, narrations,
                                           frame::HeaderWrite::Add);
    if (!document) throw std::logic_error(document.error());
    frame::writeDocument(context_.KORDconn, *document, tran_, sheet_);
  }

  void checkpoint() { context_.KORDconn.checkpoint(); }
  sqlite3* handle() { return context_.KORDconn.handle(); }

 private:
  session::LoginContext context_;
  std::vector<std::string> items_;
  std::size_t next_ = 0;
  store::Recordset tran_;
  store::Recordset sheet_;
  frame::DocumentValues values_;
};

// What a hand-written program would hold of an invoice: the values that change from one to the next.
struct HandInvoice {
  struct Line {
    std::string code, name, unit;
    double quantity, rate, gross, discount, net;
  };
  std::int64_t docNo = 0, incomeCode = 40001001, partyCode = 12001001, location = 1;
  std::string day = "2026-11-22", time = "2026-11-22 10:30:00", party = "Walk-in Customer", income = "Sales";
  std::string words = "five hundred and 00/100 only.", documentNarration, lineNarration = party + " -";
  double total = 500;
  std::vector<Line> lines;

  HandInvoice() {
    for (int number = 0; number < linesPerInvoice; ++number) {
      lines.push_back({"IT000001", "Hinge, brass, 75 mm", "Pcs", 2, 12.5, 25, 0, 25});
      lineNarration += " (Hinge, brass, 75 mm - 2 Pcs @12.5 =Rs.25)";
    }
  }
};

// The same rows by hand: prepared statements, one transaction, the same durability, columns, values and indexes. What
// never changes stands in the statements.
class HandPosting {
 public:
  HandPosting() : connection_(schema::companyCatalog()) {
    connection_.open(schema::plainConnectionString);
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
            "(?1,?1,?2,'',0,0,0,'',32,'','','','',?3,?4,?5,'','','10001001','','','','','','','0','1',0,0,0,0,0,0,0,?6,"
            "0,?6,?7,?8,?8,1,1,?9,1,?9,0,0)");
    prepare(line_,
            "insert into StockFlow (TranNo,Serial,ItemCode,ItemName,Packs,PackPcs,StockOut,Unit,Rate,GrossAmt,DiscAmt,"
            "ItemValue,LocationID,JobID) values (?1,?2,?3,?4,1,1,?5,?6,?7,?8,?9,?10,?11,0)");
    prepare(ledger_,
            "insert into SubTransactions (TranNo,AccCode,AccName,\"Desc\",Debit,Credit) values (?1,?2,?3,?4,?5,?6)");
    prepare(
        aging_,
        "insert into AgingDr (TranNo,DocNo,DocNo2,TranDate,TranDate2,PartyCode,TranType,TrAmount,\"Return\",Payment,"
        "WHTaxRt,WHTax,Discount,AdvAdj,TotPayment,FYID) values (?1,?2,?2,?3,?3,?4,32,?5,0,0,0,0,0,0,0,1)");
  }

  void post(std::int64_t docNo) {
    HandInvoice& sale = invoice_;
    sale.docNo = docNo;
    sale.documentNarration = sale.party + " - Invoice No " + std::to_string(docNo);
    begin_->run();
    header_->run(sale.docNo, sale.day, sale.incomeCode, sale.partyCode, sale.party, sale.total, sale.words,
                 sale.location, sale.time);
    const std::int64_t tranNo = sqlite3_last_insert_rowid(connection_.handle());
    std::int64_t serial = 0;
    for (const HandInvoice::Line& line : sale.lines)
      line_->run(tranNo, ++serial, line.code, line.name, line.quantity, line.unit, line.rate, line.gross, line.discount,
                 line.net, sale.location);
    ledger_->run(tranNo, sale.partyCode, sale.party, sale.documentNarration, sale.total, nullptr);
    ledger_->run(tranNo, sale.incomeCode, sale.income, sale.lineNarration, nullptr, sale.total);
    aging_->run(tranNo, sale.docNo, sale.day, sale.partyCode, sale.total);
    commit_->run();
  }

  void checkpoint() { connection_.checkpoint(); }

 private:
  store::Connection connection_;
  HandInvoice invoice_;
  std::optional<HandStatement> begin_, commit_, header_, line_, ledger_, aging_;
};

// Commits per second of the program, as a share of those by hand; turn by turn, each in a copy of the same company, so
// that the disk treats both alike. How near to 1 the share comes depends on how long the disk takes to make a commit
// durable; the processor's times do not.
void PostInvoiceOfTwentyLines(benchmark::State& state) {
  enterCompany({.invoices = 20000, .items = 2000, .accounts = 2000});
  const CompanyCopy handCopy;
  HandPosting hand;
  const std::filesystem::path handFolder = std::filesystem::current_path();
  const CompanyCopy programCopy;
  ProgramPosting program;
  Durations ours, theirs;
  int posted = 0;
  for (auto _ : state) {
    const std::int64_t docNo = program.prepare();
    const auto byProgram = [&] { ours.measure([&] { program.post(); }); };
    const auto byHand = [&] { theirs.measure([&] { hand.post(docNo); }); };
    if (posted % 2 == 0) byProgram();
    byHand();
    if (posted % 2 != 0) byProgram();
    if (++posted % 200 == 0) {  // as the shell does when the till is idle
      program.checkpoint();
      hand.checkpoint();
    }
  }
  requireSameRows(program.handle(), handFolder / "Uninstall" / "Uninstall.MDB",
                  {"Transactions", "StockFlow", "SubTransactions", "AgingDr"});
  state.counters["share_of_hand_written"] = theirs.percentile(0.5) / ours.percentile(0.5);
  state.counters["share_of_mean"] = theirs.mean() / ours.mean();
  state.counters["commits_per_second"] = 1 / ours.mean();
  state.counters["p50_ms"] = ours.percentile(0.5) * 1e3;
  state.counters["p50_ms_by_hand"] = theirs.percentile(0.5) * 1e3;
  state.counters["p99_ms"] = ours.percentile(0.99) * 1e3;
  state.counters["p99_ms_by_hand"] = theirs.percentile(0.99) * 1e3;
  state.counters["processor_ms"] = ours.processorMean() * 1e3;
  state.counters["processor_ms_by_hand"] = theirs.processorMean() * 1e3;
}
BENCHMARK(PostInvoiceOfTwentyLines)->Iterations(2000)->Unit(benchmark::kMillisecond);

// Commits per second while the file keeps totals, as a share of those without.
void PostBesideKeptTotals(benchmark::State& state) {
  enterCompany({.invoices = 20000, .items = 2000, .accounts = 2000});
  const CompanyCopy plainCopy;
  ProgramPosting plain;
  dropTotals(plain.handle());
  const CompanyCopy keptCopy;
  ProgramPosting kept;
  Durations with, without;
  int posted = 0;
  for (auto _ : state) {
    plain.prepare();
    kept.prepare();
    const auto postWith = [&] { with.measure([&] { kept.post(); }); };
    if (posted % 2 == 0) postWith();
    without.measure([&] { plain.post(); });
    if (posted % 2 != 0) postWith();
    if (++posted % 200 == 0) {
      plain.checkpoint();
      kept.checkpoint();
    }
  }
  state.counters["share_of_without"] = without.percentile(0.5) / with.percentile(0.5);
  state.counters["share_of_mean"] = without.mean() / with.mean();
}
BENCHMARK(PostBesideKeptTotals)->Iterations(2000)->Unit(benchmark::kMillisecond);

// What the totals that reports stand on cost a posting of twenty different items, in the shop: as a share of what it
// was with those of accounts, items and receipts.
void PostBesideTotalsOfReports(benchmark::State& state) {
  enterShop();
  std::vector<std::string> items;
  {
    store::Connection books(schema::companyCatalog());
    books.open(schema::plainConnectionString);
    store::Recordset codes(books, "SELECT ItemCode FROM StockLevel3 WHERE ItemCode like '%7'",
                           store::LockType::ReadOnly);
    for (std::int64_t row = 0; row < codes.recordCount(); ++row) items.push_back(store::textOf(codes.valueAt(row, 0)));
    std::shuffle(items.begin(), items.end(), std::mt19937(20261123));
  }
  const CompanyCopy plainCopy;
  ProgramPosting plain(items, 2);
  dropTotals(plain.handle(), {"Place", "Kind", "Open"});
  const CompanyCopy keptCopy;
  ProgramPosting kept(items, 2);
  Durations with, without;
  int posted = 0;
  for (auto _ : state) {
    plain.prepare();
    kept.prepare();
    const auto postWith = [&] { with.measure([&] { kept.post(); }); };
    if (posted % 2 == 0) postWith();
    without.measure([&] { plain.post(); });
    if (posted % 2 != 0) postWith();
    if (++posted % 200 == 0) {
      plain.checkpoint();
      kept.checkpoint();
    }
  }
  state.counters["share_of_before"] = without.percentile(0.5) / with.percentile(0.5);
  state.counters["share_of_mean"] = without.mean() / with.mean();
  state.counters["share_of_processor"] = without.processorMean() / with.processorMean();
}
BENCHMARK(PostBesideTotalsOfReports)->Iterations(1000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmo::bench
