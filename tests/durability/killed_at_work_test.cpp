#include <gtest/gtest.h>
#include <signal.h>
#include <sys/mman.h>
#include <unistd.h>

#include <atomic>
#include <chrono>

#include "attack/process.h"
#include "documents/conversions/convert_document.h"
#include "documents/production/production_costs.h"
#include "documents/production/production_posting.h"
#include "documents/production/production_sheets.h"
#include "documents/production/production_type.h"
#include "documents/production/recipe_type.h"
#include "documents/stock/stock_desk.h"
#include "support/dice.h"
#include "support/new_company.h"
#include "support/plain_rows.h"

// Documents other than invoices, whose program is killed at any instant: each is there whole or not at all.
namespace velmo::attack {
namespace {

using Rows = std::vector<std::string>;

const text::DateTime workTime = text::DateTime::fromCalendar(2026, 11, 22, 10, 30);
constexpr std::int64_t order = 9001;

class Worker : protected test::Dice {
 public:
  explicit Worker(unsigned seed) : Dice(seed) {
    context_.KORDconn.open(schema::plainConnectionString);
    context_.FYID = context_.UserID = context_.stocklocationid = 1;
  }

 protected:
  session::LoginContext context_{schema::companyCatalog()};
};

// Adds, reduces and moves stock, every third time in a document that is there.
class Storekeeper : public Worker {
 public:
  using Worker::Worker;

  void step() {
    const int kind = pick(3);
    const std::vector<test::StockLine> lines(static_cast<std::size_t>(1 + pick(12)),
                                             {.code = "H1", .quantity = 1.0 + pick(9), .rate = 2.5});
    desks_[kind].prepare(pick(3) == 0 ? last_[kind] : 0, test::stockValues(workTime.date(), 1, 2), lines);
    last_[kind] = desks_[kind].post(workTime);
  }

 private:
  test::StockDesk desks_[3] = {{context_, documents::inventoryTransfersType()},
                               {context_, documents::addInventoryType()},
                               {context_, documents::reduceInventoryType()}};
  std::int64_t last_[3] = {};
};

// Writes recipes and makes goods, every third time in a document that is there.
class Workshop : public Worker {
 public:
  using Worker::Worker;

  void step() {
    const bool makes = pick(2) == 0;
    const frame::DocumentType& type = makes ? documents::productionType() : documents::billOfMaterialType();
    std::int64_t& last = last_[makes ? 0 : 1];
    const std::int64_t shown = pick(3) == 0 ? last : 0;
    store::Recordset tran(context_.KORDconn, "select * from transactions where tranno = " + std::to_string(shown));
    documents::ProductionSheets sheets;
    sheets.open(context_.KORDconn, shown);
    const double material = fillInputs(sheets.SubTranIn);
    frame::DocumentValues values;
    values.DocNo = shown == 0 ? std::to_string(nextNumber(type.form.tranType)) : tran.text("docno");
    values.TrDate = workTime.date();
    values.Cancel = !makes;
    if (makes) {
      fillProduction(values, sheets.SubTranOut, material);
    } else {
      values.fields = documents::recipeCosts(material, {{"Labour", "5.00"}, {"FOH", "3.00"}}, "Rs.");
      values.fields["ICode"] = values.fields["IName"] = "P1";
      values.fields["QtyBox"] = "1";
    }
    auto document = frame::composeHeader(type, values, context_, workTime,
                                         shown == 0 ? frame::HeaderWrite::Add : frame::HeaderWrite::Update);
    if (makes) document.ledger = documents::productionLedger(values);
    last = frame::writeDocument(context_.KORDconn, document, tran,
                                [&](std::int64_t tranNo) { sheets.write({.tranNo = tranNo, .locationId = 1}); });
  }

 private:
  std::int64_t nextNumber(int tranType) {
    const store::Recordset last(context_.KORDconn, "select Max(DocNo) as LastNo from transactions where trantype = " +
                                                       std::to_string(tranType));
    return last.integer("LastNo") + 1;
  }
  static void put(store::Recordset& sheet, std::int64_t row, const char* code, const char* field, double quantity,
                  double amount) {
    const std::pair<const char*, store::Value> cells[] = {
        {"itemcode", std::string(code)}, {field, quantity}, {"grossamt", amount}, {"itemvalue", amount}};
    for (const auto& [name, value] : cells) sheet.setAt(row, sheet.fieldIndex(name), value);
  }
  double fillInputs(store::Recordset& sheet) {
    double material = 0;
    for (int row = 0, count = 1 + pick(12); row < count; ++row)
      put(sheet, row, "H1", "stockout", 1, 2.5 * (1 + pick(9)));
    for (std::int64_t row = 0; row < sheet.recordCount(); ++row)
      material += store::numberOf(sheet.valueAt(row, sheet.fieldIndex("grossamt")));
    return material;
  }
  static void fillProduction(frame::DocumentValues& values, store::Recordset& sheet, double material) {
    values.fields = documents::productionCosts(material, material + 16,
                                               {{"TotL", "5.00"}, {"TotFOH", "3.00"}, {"TotOS", "8.00"}}, "Rs.");
    put(sheet, 0, "P1", "stockin", 4, material + 16);
    values.IncomeCode = "50001002";
    values.ACodeTxt = "50001008";
    values.PartyCodeTxt = "12001001";
    values.LocationList.id = 1;
  }

  std::int64_t last_[2] = {};
};

// Makes one challan of the order after another.
class Converter : public Worker {
 public:
  using Worker::Worker;

  void step() {
    using namespace schema::tran_type;
    for (const documents::Conversion& way : documents::conversions())
      if (way.from == SaleOrder && way.to == DeliveryChallan)
        documents::convertDocument(context_, way, order, workTime);
  }
};

// Torn documents, as anybody sees them who only adds up.
Rows torn(test::PlainFile& file, const std::string& condition) {
  return test::plainTexts(
      file,
      "with lines as (select TranNo, sum(StockIn is not null) as Ins, sum(StockOut is not null) as Outs, "
      "coalesce(sum(iif(StockIn is null, 0, GrossAmt)), 0) as Made, coalesce(sum(iif(StockOut is null, 0, GrossAmt)), "
      "0) as Spent from StockFlow group by TranNo), posted as (select TranNo, count(*) as Ledger, sum(coalesce(Debit, "
      "0)) as Debits, sum(coalesce(Credit, 0)) as Credits from SubTransactions group by TranNo) select TranNo, "
      "TranType, TrAmount, Discount, Made, Spent, Debits, Credits from Transactions left join lines using (TranNo) "
      "left "
      "join posted using (TranNo) where " +
          condition);
}

// The header's total is that of the lines that a person typed, what leaves arrives, and the ledger has both sides.
Rows tornStock(test::PlainFile& file) {
  return torn(
      file,
      "(TranType = 43 and (Outs is not Ins or Ledger is not null or abs(TrAmount - Spent) > 0.001)) or (TranType "
      "in (45, 47) and (Ledger is not 2 or abs(TrAmount - Made - Spent) > 0.001 or abs(Debits - TrAmount) > "
      "0.001 or abs(Credits - TrAmount) > 0.001)) or (TranType in (43, 45, 47) and Outs is null)");
}
Rows tornProduction(test::PlainFile& file) {
  return torn(
      file,
      "(TranType in (42, 95) and (Spent is null or abs(Discount - Spent) > 0.001)) or (TranType = 95 and (Ledger "
      "is not null or Cancel = 0 or abs(TrAmount - Spent - 8) > 0.001)) or (TranType = 42 and (Ledger is null or "
      "abs(TrAmount - Made) > 0.001 or abs(Debits - Made) > 0.001 or abs(Credits - Made) > 0.001 or abs(Made - "
      "Spent - 16) > 0.001))");
}
// The new document, the last of them, and the mark of it on the order.
Rows tornConversion(test::PlainFile& file) {
  return test::plainTexts(
      file,
      "select Challans, LastNo, Text9, Lines from (select count(*) as Challans, coalesce(max(DocNo), 0) as LastNo from "
      "Transactions where TranType = 94), (select count(*) as Lines from StockFlow where TranNo > 9001), Transactions "
      "where TranNo = 9001 and (LastNo <> Challans or Lines <> 2 * Challans or coalesce(Text9, '') <> iif(Challans = "
      "0, "
      "'', 'D.C. No. ' || Challans))");
}

// How many documents a program beside the test has worked; it says so here.
class Steps {
 public:
  Steps()
      : done_(static_cast<std::atomic<int>*>(
            ::mmap(nullptr, sizeof(std::atomic<int>), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))) {}
  ~Steps() { ::munmap(done_, sizeof(std::atomic<int>)); }
  Steps(const Steps&) = delete;
  Steps& operator=(const Steps&) = delete;

  std::atomic<int>& done() { return *done_; }
  // Microseconds until there are so many.
  std::int64_t waitFor(int steps) const {
    const auto began = std::chrono::steady_clock::now();
    while (done_->load() < steps && std::chrono::steady_clock::now() - began < std::chrono::seconds(20)) ::usleep(200);
    return (std::chrono::steady_clock::now() - began) / std::chrono::microseconds(1);
  }

 private:
  std::atomic<int>* done_;
};

template <typename Kind>
void workWithoutEnd(unsigned seed, std::atomic<int>& done) {
  Kind worker(seed);
  for (done = 1;; ++done) worker.step();
}

struct Work {
  const char* name;
  void (*run)(unsigned seed, std::atomic<int>& done);
  Rows (*torn)(test::PlainFile&);
  int kills;
};

class WorkAfterKill : public testing::TestWithParam<Work> {};

TEST_P(WorkAfterKill, EveryDocumentIsThereWholeOrNotAtAll) {
  const auto& [name, run, torn, kills] = GetParam();
  const test::NewCompany company;
  test::NewCompany::run(
      {"INSERT INTO Transactions (TranNo, DocNo, TranType, FYID, TranDate, Text1, Cancel, InvLedger) "
       "VALUES (9001, 1, 93, 1, #11-20-2026#, 'A customer', No, Yes)",
       "INSERT INTO StockFlow (TranNo, Serial, ItemCode, StockOut) VALUES (9001, 1, 'H1', 2)",
       "INSERT INTO StockFlow (TranNo, Serial, ItemCode, StockOut) VALUES (9001, 2, 'H2', 3)"});
  std::mt19937 random(20261122);
  std::int64_t before = 0;
  int grown = 0;
  std::int64_t longest = 10000;  // microseconds, a document
  for (int kill = 0; kill < kills && !HasFailure(); ++kill) {
    SCOPED_TRACE("kill " + std::to_string(kill));
    Steps steps;
    Process program([&, run = run, seed = static_cast<unsigned>(random())] { run(seed, steps.done()); });
    // Within the first document, or behind it within one of the next.
    steps.waitFor(1);
    if (kill % 2 == 1) longest = std::max<std::int64_t>(steps.waitFor(2), 1000);
    ::usleep(static_cast<useconds_t>(std::uniform_int_distribution<std::int64_t>(0, 2 * longest)(random)));
    program.send(SIGKILL);
    EXPECT_EQ(program.status(), -SIGKILL) << "it ended by itself";
    test::PlainFile file(company.file());
    EXPECT_EQ(torn(file), Rows{});
    const std::int64_t now = std::stoll(test::plainTexts(file, "select count(*) from Transactions").front());
    grown += now > before ? 1 : 0;
    before = now;
  }
  EXPECT_GE(grown, kills / 2) << "the kills missed the saves and have shown nothing";
}

INSTANTIATE_TEST_SUITE_P(Works, WorkAfterKill,
                         testing::Values(Work{"Stock", workWithoutEnd<Storekeeper>, tornStock, 60},
                                         Work{"Workshop", workWithoutEnd<Workshop>, tornProduction, 60},
                                         Work{"Conversion", workWithoutEnd<Converter>, tornConversion, 40}),
                         [](const auto& work) { return std::string(work.param.name); });

}  // namespace
}  // namespace velmo::attack
