#include <gmock/gmock.h>
#include <sqlite3.h>

#include <set>

#include "documents/invoice_company.h"
#include "documents/invoices/sale_invoice_type.h"
#include "documents/trade/find_screens.h"
#include "frame/document/find_statement.h"
#include "frame/posting/document_number.h"
#include "frame/sheets/ledger_sheet.h"
#include "masters/catalogue/catalogue_levels.h"
#include "masters/labels/bar_code_labels.h"
#include "reports/ledgers/ledger_statements.h"
#include "reports/serials/serial_statements.h"
#include "valuation/closing_stock.h"
#include "vouchers/journal/find_journals.h"
#include "vouchers/settlement/find_settlements.h"
#include "vouchers/settlement/pending_items.h"
#include "vouchers/settlement/rec_pay_statements.h"

// What the screens ask while a person types, pages and saves, and what a report asks of one account, item or party.
// Each must be answered from an index whatever the number of documents.
namespace velmo::shell {
namespace {

// Keeps the SQL of every statement that a connection runs.
class Listener {
 public:
  explicit Listener(store::Connection& connection) : database_(connection.handle()) {
    sqlite3_trace_v2(database_, SQLITE_TRACE_STMT, note, this);
  }
  ~Listener() { sqlite3_trace_v2(database_, 0, nullptr, nullptr); }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;

  // The steps of their plans that read a table whole which grows with the business, with the statement.
  std::vector<std::string> scansOfBigTables() {
    sqlite3_trace_v2(database_, 0, nullptr, nullptr);
    std::vector<std::string> scans;
    for (const std::string& sql : heard_)
      for (const std::string& step : scansOf(sql)) scans.push_back(step + " in " + sql);
    return scans;
  }
  std::size_t count() const { return heard_.size(); }

 private:
  static int note(unsigned, void* listener, void* statement, void*) {
    if (const char* sql = sqlite3_sql(static_cast<sqlite3_stmt*>(statement)))
      static_cast<Listener*>(listener)->heard_.insert(sql);
    return 0;
  }
  std::vector<std::string> scansOf(const std::string& sql) const {
    sqlite3_stmt* plan = nullptr;
    if (sqlite3_prepare_v2(database_, ("EXPLAIN QUERY PLAN " + sql).c_str(), -1, &plan, nullptr) != SQLITE_OK)
      return {sqlite3_errmsg(database_)};
    std::vector<std::string> scans;
    std::vector<std::string> derived;  // tables, which may have the name of one in the file
    while (sqlite3_step(plan) == SQLITE_ROW) {
      const std::string step = reinterpret_cast<const char*>(sqlite3_column_text(plan, 3));
      for (const char* made : {"CO-ROUTINE ", "MATERIALIZE "})
        if (step.starts_with(made)) derived.push_back("SCAN " + step.substr(std::string_view(made).size()));
      if (std::ranges::find(derived, step) != derived.end()) continue;
      if (step.ends_with("_Apart") || step.ends_with("_Groupless")) continue;  // the few lines that no total holds
      for (const char* big :
           {"Transactions", "SubTransactions", "StockFlow", "AgingDr", "AgingCr", "StockLevel3", "AccLevel3"})
        if ((step + " ").starts_with(std::string("SCAN ") + big + " ")) scans.push_back(step);
    }
    sqlite3_finalize(plan);
    return scans;
  }

  sqlite3* database_;
  std::set<std::string> heard_;
};

class Plans : public testing::Test {
 protected:
  store::Connection& books() { return shop_.context.KORDconn; }
  void run(const std::string& statement) { store::Recordset(books(), statement, store::LockType::ReadOnly); }

  test::InvoiceCompany shop_;
};

TEST_F(Plans, StatementsOfScreensReadNoBigTableWhole) {
  const text::DateTime day = text::DateTime::fromCalendar(2026, 11, 22);
  Listener listener(books());
  for (const frame::FindType& type :
       {documents::findSalesSimple(), documents::findSalesPOS(), documents::findSReturns(),
        documents::findPurchasesSimple(), documents::findPReturns(), vouchers::findJournals(),
        vouchers::findSettlements(vouchers::cashReceipts()), vouchers::findSettlements(vouchers::bankPayments())})
    for (const frame::FindColumn& column : type.columns) {
      const auto condition = frame::findCondition(column, "7", day);
      ASSERT_TRUE(condition.has_value()) << condition.error();
      run(frame::findStatement(type, 32, 1, *condition));
      run(frame::findCountStatement(type, 32, 1, *condition));
    }
  for (const auto* kind : {&vouchers::cashReceipts(), &vouchers::bankPayments()}) {
    run(vouchers::pendingStatement(*kind, 12001003, 1));
    run(vouchers::pendingListStatement(*kind, 12001003, 1));
    run(vouchers::recPayStatement(*kind, "Rupees", 7));
  }
  run(reports::broughtForwardStatement(12001003, 1, day));
  for (const auto walk : {reports::LedgerWalk::OfAccount, reports::LedgerWalk::OfDays})
    run(reports::ledgerStatement(12001003, 1, "", walk));
  run(reports::dayBookStatement(1, {.from = day, .to = day}));
  run(masters::barCodeStatement("A[1]", "Rs."));
  run(documents::saleInvoiceType().dateLookups.at(0).statement("PO-7", 1));
  for (const char* code : {"A[1]", "Ä-1%", "É_1", "H1"}) frame::itemAvailable(books(), code, 7, 1);
  run(masters::itemLevel({}, {}).statement("B_1"));
  store::Recordset lines;
  frame::openLedgerSheet(books(), lines, 7);
  valuation::postClosingStock(books(), 1, day);
  EXPECT_GT(listener.count(), 40U);
  EXPECT_THAT(listener.scansOfBigTables(), testing::ElementsAre(testing::HasSubstr("ValuationCost2")))
      << "all items have a cost in the closing stock";
}

TEST_F(Plans, SerialNumbersAreLookedForAmongTheLinesThatHaveSome) {
  Listener listener(books());
  for (const auto hits : {reports::SerialHits::Few, reports::SerialHits::Many})
    run(reports::serialStatement(1, "7", hits));
  EXPECT_EQ(reports::serialHits(books(), "7"), reports::SerialHits::Few);
  EXPECT_THAT(listener.scansOfBigTables(),
              testing::AllOf(testing::SizeIs(2), testing::Each(testing::HasSubstr("INDEX StockFlow_Serials"))));
}

TEST_F(Plans, ComposedInScreensReadNoBigTableWhole) {
  Listener listener(books());
  for (const char* statement :
       {"select * from stockflow where itemcode like 'A[[]1]'", "select * from stockflow where itemcode like 'Ä-1[%]'",
        "select itemcode from stocklevel3 where itemcode like 'A1'",
        "select * from subtransactions where acccode = 12001001", "Select * from agingdr where tranno=7",
        "Select * from agingcr where tranno=7", "SELECT * from Acclevel3 where level2id=12001 order by acccode",
        "select * from transactions where fyid=1 and trantype=11",
        "SELECT Sum(IIf([Transactions].[TranType]=35,-[TrAmount],[TrAmount])) AS TotSales From Transactions WHERE "
        "(((Transactions.TranType)=31 Or (Transactions.TranType)=32 Or (Transactions.TranType)=35) AND "
        "((Transactions.TranDate)=#11-22-2026#) AND ((Transactions.Cancel)=No) AND ((Transactions.FYID)=1))",
        "SELECT Transactions.TranNo, StockFlow.StockIn, StockFlow.StockOut FROM TranType INNER JOIN (Transactions "
        "INNER JOIN (StockFlow INNER JOIN StockLocation ON StockFlow.LocationID = StockLocation.LocationID) ON "
        "Transactions.TranNo = StockFlow.TranNo) ON TranType.TranType = Transactions.TranType WHERE "
        "(((Transactions.FYID)=1) AND ((Transactions.Cancel)=No) AND ((Transactions.InvLedger)=No) AND "
        "((StockFlow.LocationID)>0) AND ((StockFlow.ItemCode) Like 'A1')) ORDER BY Transactions.TranDate, "
        "StockFlow.FlowId"})
    run(statement);
  books().execute("delete * from transactions where trantype<>51 and fyid = 2");
  EXPECT_THAT(listener.scansOfBigTables(), testing::IsEmpty());
}

TEST_F(Plans, ADocumentIsTypedSavedAndDeletedWithoutReadingBigTablesWhole) {
  test::InvoiceScreen screen(shop_);
  shop_.prompts.listen();
  Listener listener(books());
  for (int round = 0; round < 2; ++round) {
    screen.type("PartyCodeTxt", "12001003");
    screen.line(0, "H1", "2");
    screen.press("SaveBttn");
    screen.press("PrevBttn");
  }
  screen.press("DelBttn");
  EXPECT_GT(listener.count(), 20U);
  // The list of items below a cell is all items, and the first document of a type is found in the order of their keys.
  EXPECT_THAT(listener.scansOfBigTables(), testing::UnorderedElementsAre(testing::StartsWith("SCAN StockLevel3 USING"),
                                                                         testing::EndsWith("LIMIT 1")));
}

TEST_F(Plans, ShowWhereATableIsReadWhole) {
  Listener listener(books());
  run("select * from transactions where empid = 3");
  EXPECT_THAT(listener.scansOfBigTables(), testing::SizeIs(1));
}

}  // namespace
}  // namespace velmo::shell
