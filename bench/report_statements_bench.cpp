#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <stdexcept>

#include "figures.h"
#include "large_company_folder.h"
#include "schema/company_file.h"
#include "schema/company_schema.h"
#include "store/recordset/recordset.h"
#include "store/sql/statements.h"

// The statements of the reports, word for word, over the shop's second year: read to the last row, beside the best that
// a hand could write for the same file.
namespace velmo::bench {
namespace {

constexpr double mostOfHand = 1.3;
constexpr int runs = 7;

struct Report {
  const char* title;
  const char* statement;  // by its name
  const char* byHand;
};

// clang-format off
const Report reportsOfTheYear[] = {
    {"stock balances by place", "stock balances of a location",
     "select i.ItemCode, i.ItemName, o.bal, c.i - o.i, c.o - o.o, c.bal, i.Unit, i.ValuationCost2, c.bal / 1e4 * "
     "i.ValuationCost2 from (select ItemCode, sum(StockIn) i, sum(StockOut) o, sum(StockIn) - sum(StockOut) bal from "
     "PlaceYears where FYID = 2 and LocationID = 1 group by ItemCode) c left join (select ItemCode, sum(StockIn) i, "
     "sum(StockOut) o, sum(StockIn) - sum(StockOut) bal from (select ItemCode, StockIn, StockOut from PlaceMonths where "
     "FYID = 2 and LocationID = 1 and Month < '2026-03' union all select ItemCode, StockIn, StockOut from PlaceDays "
     "where FYID = 2 and LocationID = 1 and TranDate >= '2026-03' and TranDate < '2026-03-11') group by ItemCode) o on "
     "o.ItemCode = c.ItemCode join StockLevel3 i on i.ItemCode = c.ItemCode where i.CatID <> 'Service' and c.bal <> 0 "
     "order by i.ItemCode"},
    {"weighted cost", "weighted costs of the year",
     "select ItemCode, sum(StockIn) / 1e4, sum(ItemValue) / 1e4, sum(ItemValue) / sum(StockIn) from ReceiptYears join "
     "StockLevel3 using (ItemCode) where FYID = 2 and TranType in (11, 21, 22, 42, 45) and CatID <> 'Service' group by "
     "ItemCode"},
    {"receivables aging", "aged receivables",
     "select a.TranNo, a.DocNo, a.TranDate, a.PartyCode, c.AccName, c.EmpID, o.TrAmount / 1e4, o.TotPayment / 1e4, "
     "(o.TrAmount - o.TotPayment) / 1e4, julianday('2026-11-22') - julianday(a.TranDate) from OpenInvoices o join "
     "AgingDr a on a.PartyCode = o.PartyCode and a.DocNo = o.DocNo and a.TranDate = o.TranDate and a.FYID = 2 and "
     "a.TranType in (11, 31, 32) join Transactions t on t.TranNo = a.TranNo and t.Cancel = 0 join AccLevel3 c on "
     "c.AccCode = a.PartyCode where o.FYID = 2 and o.TrAmount > o.TotPayment order by a.TranDate, a.DocNo"},
    {"payables aging", "aged payables",
     "select a.TranNo, a.DocNo, a.VendorInvNo, a.TranDate, a.PartyCode, c.AccName, o.TrAmount / 1e4, o.TotPayment / 1e4, "
     "(o.TrAmount - o.TotPayment) / 1e4, julianday('2026-11-22') - julianday(a.TranDate) from OpenBills o join "
     "AgingCr a on a.PartyCode = o.PartyCode and a.DocNo = o.DocNo and a.TranDate = o.TranDate and a.FYID = 2 and "
     "a.TranType in (11, 21, 22) join Transactions t on t.TranNo = a.TranNo and t.Cancel = 0 join AccLevel3 c on "
     "c.AccCode = a.PartyCode where o.FYID = 2 and o.TrAmount > o.TotPayment order by a.TranDate, a.VendorInvNo"},
    {"sales by item", "sales by item",
     "select i.ItemCode, i.ItemName, i.CatID, sum(iif(t.TranType = 35, -s.StockIn, s.StockOut)), i.Unit, min(s.Rate), "
     "max(s.Rate), avg(s.Rate), sum(iif(t.TranType = 35, -s.ItemValue, s.ItemValue)) from Transactions t join StockFlow "
     "s on s.TranNo = t.TranNo join StockLevel3 i on i.ItemCode = s.ItemCode where t.TranType in (32, 35) and t.FYID = 2 "
     "and t.Cancel = 0 group by i.ItemCode"},
    {"sales by party", "sales by party",
     "select t.PartyCode2, t.Text1, t.Text2, t.Text4, t.Text5, count(t.DocNo), sum(t.TrAmount), sum(t.Carriage), "
     "sum(t.TrAmount - t.Carriage), sum(t.Discount), sum(iif(t.TranType = 35, -t.TrAmount, t.TrAmount)), "
     "sum(iif(t.TranType = 35, -t.Carriage, t.Carriage)), sum(iif(t.TranType = 35, t.Carriage - t.TrAmount, t.TrAmount - "
     "t.Carriage)), sum(iif(t.TranType = 35, -t.Discount, t.Discount)), sum(iif(t.TranType = 35, -1, 1) * (t.TrAmount - "
     "t.Carriage + t.Discount)) from Transactions t join AccLevel3 a on a.AccCode = t.PartyCode2 where t.TranType in "
     "(32, 35) and t.FYID = 2 and t.Cancel = 0 group by 1, 2, 3, 4, 5 order by t.Text1"},
    {"sale list", "sale summary",
     "select t.TranNo, t.TranType, t.TranDate, k.Short || ' ' || t.DocNo, t.D1, t.Text1, e.EmpName, e.Department, "
     "a.Level2ID, a.Region1ID, a.Region2ID, a.SectorID, t.TrAmount, t.Carriage, t.TrAmount - t.Carriage, t.Discount, "
     "t.TrAmount - t.Carriage + t.Discount from Transactions t join TranType k on k.TranType = t.TranType left join "
     "Employees e on e.EmpID = t.EmpID join AccLevel3 a on a.AccCode = t.PartyCode2 where t.TranType in (32, 35) and "
     "t.FYID = 2 and t.Cancel = 0 order by t.TranDate, t.DocNo"},
    {"invoice activity, a month", "activity by invoice, filtered",
     "select a.TranNo, a.DocNo, a.TranDate, a.PartyCode, c.AccName, e.EmpName, sum(s.TrAmount), sum(s.\"Return\"), "
     "sum(s.Payment), sum(s.WHTax), sum(s.AdvAdj), sum(s.Discount), sum(s.TotPayment) from AgingDr a join Transactions t "
     "on t.TranNo = a.TranNo and t.Cancel = 0 left join Employees e on e.EmpID = t.EmpID join AccLevel3 c on c.AccCode "
     "= a.PartyCode join AgingDr s on s.PartyCode = a.PartyCode and s.DocNo = a.DocNo and s.TranDate = a.TranDate and "
     "s.FYID = 2 join Transactions st on st.TranNo = s.TranNo and st.Cancel = 0 where a.FYID = 2 and a.TranDate >= "
     "'2026-07-01' and a.TranDate <= '2026-07-31' and a.TranType in (11, 31, 32) group by a.Serial order by a.TranDate, "
     "a.DocNo"},
    {"party activity", "activity by customer",
     "select a.PartyCode, c.AccName, c.EmpID, e.EmpName, sum(a.TrAmount), sum(a.\"Return\"), sum(a.Payment), "
     "sum(a.WHTax), sum(a.AdvAdj), sum(a.Discount), sum(a.TotPayment), sum(a.TrAmount) - sum(a.TotPayment) from AgingDr "
     "a join Transactions t on t.TranNo = a.TranNo and t.Cancel = 0 join AccLevel3 c on c.AccCode = a.PartyCode left "
     "join Employees e on e.EmpID = c.EmpID where a.FYID = 2 and a.PartyCode > 0 group by a.PartyCode order by c.AccName"},
    {"item card", "stock card",
     "select t.TranNo, t.TranType, t.TranDate, k.Name || ' No. ' || t.DocNo, k.Short || ' ' || t.DocNo, t.Text1, "
     "s.StockIn, s.StockOut, s.Unit, s.Rate, s.GrossAmt, s.DiscRate, s.DiscAmt, s.ItemValue, s.Balance, l.LocationName "
     "from StockFlow s join Transactions t on t.TranNo = s.TranNo join TranType k on k.TranType = t.TranType join "
     "StockLocation l on l.LocationID = s.LocationID where s.ItemCode = '2000001000014' and t.FYID = 2 and t.Cancel = 0 "
     "and t.InvLedger = 0 order by t.TranDate, s.FlowId"},
    {"profit by invoice", "profit by invoice",
     "select t.TranDate, k.Short || ' ' || t.DocNo, t.PartyCode2, t.Text1, sum(iif(t.TranType = 35, -s.ItemValue, "
     "s.ItemValue)), sum(iif(t.TranType = 35, -s.StockIn, s.StockOut) * i.ValuationCost2) from Transactions t join "
     "TranType k on k.TranType = t.TranType join StockFlow s on s.TranNo = t.TranNo join StockLevel3 i on i.ItemCode = "
     "s.ItemCode where t.TranType in (31, 32, 35) and t.FYID = 2 and t.Cancel = 0 group by t.TranNo order by 1, 2"},
    {"profit by item", "profit by item",
     "select i.ItemCode, i.ItemName, q / 1e4, i.Unit, v / 1e4, i.ValuationCost2, i.CatID, i.SubCatID, q / 1e4 * "
     "i.ValuationCost2, (v - q * i.ValuationCost2) / 1e4 from (select ItemCode, sum(iif(TranType = 35, -StockIn, "
     "StockOut)) q, sum(iif(TranType = 35, -ItemValue, ItemValue)) v from KindYears where FYID = 2 and TranType in (31, "
     "32, 35) group by ItemCode) join StockLevel3 i using (ItemCode) where q <> 0"},
};
// clang-format on

// With the days, the items and the parties that the shop has.
std::string ofTheShop(const char* name) {
  for (const test::NamedStatement& each : test::allStatements()) {
    if (each.name != name) continue;
    std::string statement = each.text;
    for (const auto& [sample, own] :
         {std::pair{"09-01-2025", "03-11-2026"},
          {"06-30-2026", "12-31-2026"},
          {"07-01-2025", "07-01-2026"},
          {"09-30-2025", "07-31-2026"},
          {"11-22-2025", "11-22-2026"},
          {"'A-100'", "'2000001000014'"},
          {" And (Left(AgingDr.PartyCode,5) = 12001) And ((AgingDr.PartyCode) = 12001002) AND ((Transactions.Empid)=1)",
           ""}})
      for (std::size_t at = 0; (at = statement.find(sample, at)) != std::string::npos;)
        statement.replace(at, std::string(sample).size(), own);
    return statement;
  }
  throw std::logic_error(std::string("no statement is called ") + name);
}

std::int64_t readByHand(sqlite3_stmt* statement) {
  std::int64_t rows = 0;
  const int columns = sqlite3_column_count(statement);
  for (; sqlite3_step(statement) == SQLITE_ROW; ++rows)
    for (int column = 0; column < columns; ++column) benchmark::DoNotOptimize(sqlite3_column_text(statement, column));
  sqlite3_reset(statement);
  return rows;
}

void ReportStatements(benchmark::State& state) {
  enterShop();
  store::Connection books(schema::companyCatalog());
  books.open(schema::plainConnectionString);
  books.checkpoint();
  for (auto _ : state) {
    for (const Report& report : reportsOfTheYear) {
      const std::string statement = ofTheShop(report.statement);
      sqlite3_stmt* hand = nullptr;
      if (sqlite3_prepare_v2(books.handle(), report.byHand, -1, &hand, nullptr) != SQLITE_OK)
        throw std::runtime_error(std::string(report.title) + ": " + sqlite3_errmsg(books.handle()));
      Durations ours, theirs;
      std::int64_t rows = 0, handRows = 0;
      for (int run = 0; run <= runs; ++run) {
        Durations warm;
        (run == 0 ? warm : ours).measure([&] {
          const store::Recordset read(books, statement, store::LockType::ReadOnly);
          rows = read.recordCount();
        });
        (run == 0 ? warm : theirs).measure([&] { handRows = readByHand(hand); });
      }
      sqlite3_finalize(hand);
      const double byHand = theirs.percentile(0.5) * 1e3;
      char remark[100];
      std::snprintf(remark, sizeof remark, "%lld rows; by hand %.1f, %lld rows", static_cast<long long>(rows), byHand,
                    static_cast<long long>(handRows));
      tell({.group = "Reports over the shop's year, to the last row",
            .name = report.title,
            .value = ours.percentile(0.5) * 1e3,
            .goal = byHand * mostOfHand,
            .remark = remark});
    }
  }
}
BENCHMARK(ReportStatements)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmo::bench
