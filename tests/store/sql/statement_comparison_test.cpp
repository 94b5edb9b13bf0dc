#include <gtest/gtest.h>

#include <algorithm>

#include "schema/company_checks.h"
#include "store/sql/small_company.h"
#include "store/sql/statements.h"

namespace velmo::test {
namespace {

// Statements against SQLite written by hand for what they mean. The right side uses nothing of the program's own.
struct Comparison {
  const char* name;
  std::string statement;
  std::string plain;
  bool ordered = true;
};

std::string collected(std::string_view name, std::size_t command = 0) {
  for (const auto& each : allStatements())
    if (each.name == name) return commandsOf(each.text).at(command);
  throw std::out_of_range("no statement is called " + std::string(name));
}

// Common sources: the ledger lines and the item lines that count in year 2.
const std::string ledger =
    R"(WITH line AS (SELECT t.TranNo, t.TranDate AS day, s.* FROM Transactions t JOIN SubTransactions s ON s.TranNo = t.TranNo WHERE t.FYID = 2 AND t.Cancel = 0) )";
const std::string stock =
    R"(WITH line AS (SELECT t.TranDate AS day, t.TranType AS type, f.*, ifnull(f.StockIn, 0) AS i, ifnull(f.StockOut, 0) AS o FROM Transactions t JOIN StockFlow f ON f.TranNo = t.TranNo WHERE t.FYID = 2 AND t.Cancel = 0 AND t.InvLedger = 0) )";

std::vector<Comparison> comparisons() {
  return {
      {"an alias means its expression before and behind its definition, and wins over a column",
       R"(SELECT Hours*2 AS Twice, Gross+Net AS Hours, Rate AS Gross, StockFlow.StockOut AS Net FROM StockFlow WHERE TranNo=15 ORDER BY FlowId)",
       "SELECT (Rate+StockOut)*2, Rate+StockOut, Rate, StockOut FROM StockFlow WHERE TranNo=15 ORDER BY FlowId"},
      {"an alias of an aggregate is summed once",
       R"(SELECT AccCode, Sum(Debit) AS D, [D]*2 AS Double2, [Double2]-[D] AS Again, Count(Credit) AS C FROM SubTransactions GROUP BY AccCode ORDER BY AccCode)",
       R"(SELECT AccCode, sum(Debit), sum(Debit)*2, sum(Debit), count(Credit) FROM SubTransactions GROUP BY AccCode ORDER BY 1)"},
      {"an alias that stands in its own definition means the column there", collected("print of a production"),
       R"(SELECT TranNo, FlowId, Serial, ItemCode, ItemName, iif(StockIn IS NULL, format('%.15g', StockOut), ''), iif(StockIn IS NULL, Unit, ''), iif(StockIn IS NULL, format('%.15g', Rate), ''), iif(StockIn IS NULL, format('%.15g', GrossAmt), ''), iif(StockIn IS NULL, GrossAmt, 0), iif(StockOut IS NULL, format('%.15g', StockIn), ''), iif(StockOut IS NULL, Unit, ''), iif(StockOut IS NULL, format('%.15g', Rate), ''), iif(StockOut IS NULL, format('%.15g', GrossAmt), ''), iif(StockOut IS NULL, GrossAmt, 0) FROM StockFlow WHERE TranNo = 25 ORDER BY StockOut, Serial)"},
      {"a party's balance formats its absolute difference", collected("balance of a party"),
       "SELECT 12001002, 1725, 1150, 575, '575.00 Dr'"},
      {"a trial balance of two halves with bracketed selects inside", collected("trial balance"),
       ledger +
           R"(SELECT c.AccCode, c.AccName, od - oc, abs(od - oc), iif(od < oc, 'Credit', 'Debit'), cd - od, cc - oc, cd - cc, abs(cd - cc), iif(cd < cc, 'Credit', 'Debit'), Level1ID, Level2ID FROM (SELECT a.*, (SELECT total(Debit) FROM line WHERE AccCode = a.AccCode AND day < '2025-09-01') od, (SELECT total(Credit) FROM line WHERE AccCode = a.AccCode AND day < '2025-09-01') oc, (SELECT total(Debit) FROM line WHERE AccCode = a.AccCode AND day <= '2026-06-30') cd, (SELECT total(Credit) FROM line WHERE AccCode = a.AccCode AND day <= '2026-06-30') cc FROM AccLevel3 a WHERE Level1ID > 0) c WHERE cd <> cc ORDER BY AccCode)"},
      {"an IIf without its third part gives null", collected("trial balance in two columns"),
       ledger +
           R"(SELECT AccCode, (SELECT AccName FROM AccLevel3 a WHERE a.AccCode = line.AccCode), total(Debit), total(Credit), total(Debit) - total(Credit), CASE WHEN total(Debit) >= total(Credit) THEN total(Debit) - total(Credit) END, CASE WHEN total(Debit) < total(Credit) THEN total(Credit) - total(Debit) END FROM line GROUP BY AccCode HAVING total(Debit) <> total(Credit))",
       false},
      {"the last balance of an account follows date and line, the opening one where there is none",
       collected("ledgers of all accounts"),
       ledger +
           R"(SELECT AccCode, AccName, abs(opening), iif(opening < 0, 'Credit', 'Debit'), ifnull(closing, abs(opening)), ifnull(status, iif(opening < 0, 'Credit', 'Debit')) FROM (SELECT a.*, (SELECT total(Debit) - total(Credit) FROM line WHERE AccCode = a.AccCode AND day < '2025-09-01') opening, (SELECT Balance FROM line WHERE AccCode = a.AccCode ORDER BY day DESC, Serial DESC LIMIT 1) closing, (SELECT Status FROM line WHERE AccCode = a.AccCode ORDER BY day DESC, Serial DESC LIMIT 1) status FROM AccLevel3 a) ORDER BY AccCode)"},
      {"the last quantity of an item follows date and line, through a right join",
       collected("stock cards of all items"),
       stock +
           R"(SELECT ItemCode, ItemName, ItemCode || '   ' || ItemName, opening, ifnull(closing, opening) FROM (SELECT s.*, (SELECT total(i) - total(o) FROM line WHERE ItemCode = s.ItemCode AND day < '2025-09-01') opening, (SELECT Balance FROM line WHERE ItemCode = s.ItemCode ORDER BY day DESC, FlowId DESC LIMIT 1) closing FROM StockLevel3 s WHERE CatID <> 'Service') ORDER BY ItemCode)"},
      {"pending invoices of a customer leave out cancelled receipts and settled invoices",
       collected("pending invoices of a customer"),
       "SELECT 10, 77, '2025-05-01', 12001002, 200, 200 UNION ALL SELECT 15, 1, '2025-09-01', 12001002, 1525, 375"},
      {"ages are days between dates and each row stands in one bucket of each scheme",
       collected("aged receivables"), R"(WITH open AS (SELECT b.DocNo, b.TranDate, b.PartyCode, sum(b.TrAmount) total, sum(b.TotPayment) paid FROM AgingDr b JOIN Transactions t ON t.TranNo = b.TranNo WHERE t.Cancel = 0 AND b.FYID = 2 GROUP BY 1, 2, 3), row AS (SELECT a.TranNo, a.DocNo, a.TranDate, a.PartyCode, p.AccName, p.EmpID, total, paid, total - paid AS bal, format('%.15g', total - paid) AS shown, julianday('2025-11-22') - julianday(a.TranDate) AS age FROM AgingDr a JOIN Transactions t ON t.TranNo = a.TranNo AND t.Cancel = 0 JOIN AccLevel3 p ON p.AccCode = a.PartyCode JOIN open o ON o.DocNo = a.DocNo AND o.TranDate = a.TranDate AND o.PartyCode = a.PartyCode WHERE a.TranType IN (11, 31, 32) AND a.FYID = 2 AND total - paid > 0) SELECT TranNo, DocNo, TranDate, PartyCode, AccName, EmpID, 0, total, paid, bal, age, iif(age <= 10, shown, ''), iif(age > 10 AND age <= 20, shown, ''), iif(age > 20 AND age <= 30, shown, ''), iif(age > 30, shown, ''), iif(age <= 30, shown, ''), iif(age > 30 AND age <= 60, shown, ''), iif(age > 60 AND age <= 90, shown, ''), iif(age > 90, shown, '') FROM row ORDER BY TranDate, DocNo)"},
      {"TOP without ties gives as many rows as it says, nulls last when descending",
       "SELECT TOP 3 EmpName, DateJoin FROM Employees ORDER BY DateJoin DESC, EmpName",
       "SELECT EmpName, DateJoin FROM Employees ORDER BY DateJoin DESC, EmpName LIMIT 3"},
      {"documents that are not balanced, cancelled ones last", schema::unbalancedDocuments(),
       R"(SELECT t.TranNo, t.TranType, TranDate, DocNo, FYID, Cancel, short, short || ' ' || DocNo, iif(Cancel, 'Cancelled', ''), total(Debit), total(Credit), total(Debit) - total(Credit) FROM Transactions t JOIN SubTransactions s USING (TranNo) LEFT JOIN TranType k ON k.TranType = t.TranType WHERE t.TranType NOT IN (20, 30, 43, 91, 92, 93, 94, 95) GROUP BY TranNo HAVING abs(total(Debit) - total(Credit)) > 0.004 ORDER BY Cancel <> 0, TranDate, TranNo)"},
      {"an item without movement has a null sum and fails the re-order test", collected("items below re-order level"),
       stock +
           R"(SELECT ItemCode, bal, ReorderLevel, Unit, ItemName FROM (SELECT s.*, (SELECT sum(i - o) FROM line WHERE ItemCode = s.ItemCode) bal FROM StockLevel3 s WHERE CatID <> 'Service' AND Status = 0) WHERE bal <= ReorderLevel)",
       false},
      {"a right join to a nested join keeps items without movement", collected("stock by item"),
       stock +
           R"(SELECT ItemCode, ItemName, SellingPrice, (SELECT sum(i - o) FROM line WHERE ItemCode = s.ItemCode), Unit, Rack, 'Bolts', 'Goods' FROM StockLevel3 s WHERE ItemCode = 'A-100')",
       false},
      {"weighted costs divide behind their guard", collected("weighted costs of the year"),
       stock +
           R"(SELECT ItemCode, sum(StockIn), sum(ItemValue), CASE WHEN sum(StockIn) > 0 THEN sum(ItemValue) / sum(StockIn) ELSE 0 END FROM line WHERE StockIn IS NOT NULL AND type IN (11, 21, 22, 42, 45) GROUP BY ItemCode)",
       false},
      {"the closing stock value prices every balance", collected("closing stock value"),
       stock +
           R"(SELECT s.ItemCode, ValuationCost2, CatID, sum(i), sum(o), sum(i - o), sum((i - o) * ValuationCost2) FROM line JOIN StockLevel3 s ON s.ItemCode = line.ItemCode WHERE CatID <> 'Service' GROUP BY s.ItemCode ORDER BY s.ItemCode)"},
      {"the day book keeps cancelled documents and puts debits first", collected("day book"),
       R"(SELECT t.TranNo, t.TranDate, t.TranType, k.Name || ' No. ' || t.DocNo, k.short || ' ' || t.DocNo, s.AccCode, s.AccName, s.Desc, s.Debit, s.Credit, 2, t.Cancel FROM Transactions t JOIN SubTransactions s ON s.TranNo = t.TranNo JOIN TranType k ON k.TranType = t.TranType WHERE t.TranDate BETWEEN '2025-07-01' AND '2026-06-30' AND t.FYID = 2 AND (s.Debit <> 0 OR s.Credit <> 0) ORDER BY t.TranDate, k.short || ' ' || t.DocNo, s.Debit DESC, s.Credit DESC)"},
      {"a date in a text is the short date, and a null is nothing", collected("purchase orders to choose"),
       "SELECT 30, 5, '5  (Dated 7/1/2025) [Acme]_Steel', '[Acme]_Steel'"},
      {"Yes/No is -1 and 0, in comparisons, conditions and texts",
       R"(SELECT ItemCode, Status, Not Status AS Free, IIf(Status,'blocked','free') AS Word, Status & '' AS T, (ReorderLevel>4) AS Low FROM StockLevel3 WHERE ValuationType=No ORDER BY ItemCode)",
       R"(SELECT ItemCode, Status, -1 - Status, iif(Status, 'blocked', 'free'), CAST(Status AS TEXT), -(ReorderLevel > 4) FROM StockLevel3 WHERE ValuationType = 0 ORDER BY ItemCode)"},
      {"a Yes/No column is tested by words and by numbers",
       "SELECT Count(TranNo) AS N FROM Transactions WHERE Cancel=True Or InvLedger=Yes Or (Cancel<>0)",
       R"(SELECT count(*) FROM Transactions WHERE Cancel <> 0 OR InvLedger <> 0)"},
      {"column names with two no-break spaces behind them", collected("currencies"),
       "SELECT 2, '€', 'Euro', 'Österreich' UNION ALL SELECT 1, 'Rs.', 'Rupees', 'Pakistan'", false},
      {"a guarded division is not made for the rows it guards",
       "SELECT ItemCode, IIf([ReorderLevel]>0,100/[ReorderLevel],0) AS Share FROM StockLevel3 ORDER BY ItemCode",
       R"(SELECT ItemCode, CASE WHEN ReorderLevel > 0 THEN 100.0 / ReorderLevel ELSE 0 END FROM StockLevel3 ORDER BY ItemCode)"},
      {"like folds case beyond ASCII and takes lists and escapes",
       R"(SELECT AccCode FROM AccLevel3 WHERE AccName like '%MÜLLER%' Or AccName like '[[]acme]%' Or AccName like '%100[%]%' Or AccName like '[b-c]ash in%')",
       "SELECT AccCode FROM AccLevel3 WHERE AccCode IN (12002001, 21001002, 10001001)", false},
      {"like wants every character: * and ? and # are plain, _ is any one, blanks count",
       R"(SELECT ItemCode FROM StockLevel3 WHERE ItemCode like 'c-300' Or ItemCode like 'C_300' Or ItemCode like 'K*' Or ItemCode like 'KI?' Or ItemCode like 'a-1##' Or ItemCode like 'OLD ' Or ItemName like 'bolt _short_')",
       "SELECT 'b-200' UNION SELECT 'C_300'", false},
      {"like matches the text of a number",
       "SELECT AccCode FROM AccLevel3 WHERE AccCode like '12%2' Or CreditLimit like '5000'",
       "SELECT AccCode FROM AccLevel3 WHERE AccCode = 12001002", false},
      {"Format in a statement",
       R"(SELECT Format(Discount,'0.00;(0.00)') AS A, Format(-TrAmount,'#,##0.00; (#,##0.00)') AS B, Format(TranDate,'dd-mm-yyyy') AS C, Format(TrAmount,'Fixed') & ' Dr' AS D, Format(EmpID,'00') AS E FROM Transactions WHERE TranNo=15)",
       "SELECT '25.00', ' (1,525.00)', '01-09-2025', '1525.00 Dr', '01'"},
      {"BETWEEN takes its bounds in either order, for numbers, dates and texts",
       R"(SELECT TranNo FROM Transactions WHERE DocNo between 5 and 4 Or TranDate between #06-30-2024# and #06-29-2024# Or Text7 BETWEEN 'M' AND 'L' ORDER BY TranNo)",
       R"(SELECT TranNo FROM Transactions WHERE DocNo BETWEEN 4 AND 5 OR TranDate BETWEEN '2024-06-29' AND '2024-06-30' OR Text7 BETWEEN 'L' AND 'M' ORDER BY TranNo)"},
      {"NOT BETWEEN", "SELECT TranNo FROM Transactions WHERE TranType Not Between 94 And 12 ORDER BY TranNo",
       "SELECT TranNo FROM Transactions WHERE NOT (TranType BETWEEN 12 AND 94) ORDER BY TranNo"},
      {"a comparison with null is neither true nor false", R"(SELECT Serial, (Debit>100) AS More, IIf(Debit>100,'y','n') AS Word, IsNull(Debit) AS Missing, (Debit Is Not Null) AS There FROM SubTransactions WHERE Not (Credit=500) Or Debit<>Null ORDER BY Serial)",
       R"(SELECT Serial, -(Debit > 100), CASE WHEN Debit > 100 THEN 'y' ELSE 'n' END, -(Debit IS NULL), -(Debit IS NOT NULL) FROM SubTransactions WHERE Credit <> 500 ORDER BY Serial)"},
      {"texts are equal whatever their case: in =, IN, <>, DISTINCT and groups",
       R"(SELECT DISTINCT VendorInvNo FROM AgingCr WHERE VendorInvNo='v-77' And VendorInvNo In ('x','V-77') And Not VendorInvNo<>'V-77')",
       "SELECT max(VendorInvNo) FROM AgingCr WHERE VendorInvNo LIKE 'v-77'"},
      {"calculated texts compare without case and trailing blanks too",
       R"(SELECT AccCode FROM AccLevel3 WHERE (AccName & '')='o''brien & sons' And IIf(Level1ID=120,'A','B')='a' And Left(AccName,3)<'O''C')",
       "SELECT 12001002 UNION ALL SELECT 12001003"},
      {"groups of texts fold case",
       R"(SELECT Count(FlowId) AS N, Sum(StockIn) AS S FROM StockFlow WHERE ItemCode like '_-%00' GROUP BY ItemCode ORDER BY ItemCode)",
       R"(SELECT count(*), sum(StockIn) FROM StockFlow WHERE ItemCode IN ('A-100', 'B-200') GROUP BY upper(ItemCode) ORDER BY upper(ItemCode))"},
      {"a time of day lies behind its day",
       R"(SELECT TranNo FROM Transactions WHERE TimeEdited>#06-30-2025# And TimeEdited<#07-01-2025# Or TimeEdited=#06-30-2025#)",
       "SELECT 2"},
      {"the first digits of a code compare as a number",
       "SELECT AccCode FROM AccLevel3 WHERE Left(AccCode,5) = 21001 Or Left(AccCode,3) = '140' ORDER BY AccCode",
       "SELECT AccCode FROM AccLevel3 WHERE AccCode / 1000 = 21001 OR AccCode / 100000 = 140 ORDER BY AccCode"},
      {"order lines meet deliveries through the text of a number", collected("purchase order lines"),
       "SELECT '5', '2025-07-01', 1, 'A-100', 'Bolt 5\"', 21001002, '[Acme]_Steel', 10, 5 + 10, 10 - 15"},
      {"sale order lines count a delivery once, and an unmoved line in full", collected("sale order lines, filtered"),
       "SELECT 'SO/1', '2025-08-31', 1, 'A-100', 'Bolt 5\"', 12001002, 'O''Brien & Sons', 12, 12, 0"},
      {"profit meets a quantity with its cost before summing", collected("profit by invoice"),
       R"(SELECT t.TranDate, k.short || ' ' || t.DocNo, t.PartyCode2, t.Text1, sum(v), sum(q * c), sum(v - q * c) FROM (SELECT TranNo, CASE WHEN StockIn IS NULL THEN ItemValue ELSE -ItemValue END v, ifnull(StockOut, 0) - ifnull(StockIn, 0) q, ValuationCost2 c FROM StockFlow f JOIN StockLevel3 s ON s.ItemCode = f.ItemCode) JOIN Transactions t USING (TranNo) JOIN TranType k ON k.TranType = t.TranType WHERE t.TranType IN (32, 35) AND t.FYID = 2 AND t.Cancel = 0 GROUP BY t.TranNo ORDER BY 1, 2)"},
      {"the income statement lists types without movement as 0", collected("income statement", 2),
       ledger +
           R"(SELECT l.Type, l.NatureID, ifnull((SELECT total(Credit) - total(Debit) FROM line JOIN AccLevel3 a USING (AccCode) WHERE a.Level1ID = l.TypeID), 0) FROM AccLevel1 l)",
       false},
      {"a profit without lines is null",
       R"(SELECT Sum(IIf(IsNull([debit]),0,[debit])) AS Dr, Sum(Credit) AS Cr, [Cr]-[Dr] AS PL, Count(Serial) AS N FROM SubTransactions WHERE TranNo=999)",
       "SELECT NULL, NULL, NULL, 0"},
      {"two tables' columns of one name both come through, and an alias of a table is that table",
       R"(SELECT Users.UserName, Users_1.UserName FROM (Transactions INNER JOIN Users ON Transactions.UserAdded = Users.UserID) INNER JOIN Users AS Users_1 ON Transactions.UserEdited = Users_1.UserID WHERE TranNo=16)",
       "SELECT 'Till', 'Admin'"},
      {"the most and least of a sale, the mean without nulls", collected("sales by item"),
       R"(SELECT s.ItemCode, s.ItemName, CatID, sum(ifnull(StockOut, 0) - ifnull(StockIn, 0)), s.Unit, min(Rate), max(Rate), avg(Rate), sum(iif(TranType = 35, -ItemValue, ItemValue)) FROM StockFlow f JOIN StockLevel3 s ON s.ItemCode = f.ItemCode JOIN Transactions t USING (TranNo) WHERE TranType IN (32, 35) AND FYID = 2 AND Cancel = 0 GROUP BY s.ItemCode ORDER BY s.ItemCode)"},
  };
}

TEST(StatementComparison, GivesTheRowsOfHandWrittenSql) {
  const SmallCompany company;
  for (const auto& [name, statement, plain, ordered] : comparisons()) {
    SCOPED_TRACE(name);
    Answer actual = company.compileAndRun(statement), expected = company.runPlain(plain);
    EXPECT_FALSE(expected.rows.empty()) << expected.describe();
    if (!ordered) {
      std::ranges::sort(actual.rows);
      std::ranges::sort(expected.rows);
    }
    EXPECT_EQ(actual.error, "");
    EXPECT_EQ(actual.rows, expected.rows) << "statement\n" << actual.describe() << "by hand\n" << expected.describe();
  }
}

// What a statement changes, seen by a plain select.
TEST(StatementComparison, ChangesTheRowsItNames) {
  const struct {
    std::string statement;
    const char* after;
    const char* expected;
  } changes[] = {
      {collected("currency changed"), "SELECT * FROM Currencies ORDER BY Serial",
       "SELECT 1, 'Rs.', 'Rupees', 'Pakistan' UNION ALL SELECT 2, '$', 'US Dollar', 'Österreich'"},
      {collected("closing stock debit"),
       "SELECT TranNo, Debit FROM SubTransactions WHERE AccCode IN (13001001, 50001006)",
       "SELECT 11, 1234.5 UNION ALL SELECT 11, NULL"},
      {collected("closing cost of an item"), "SELECT ItemCode FROM StockLevel3 WHERE ValuationCost2 = 175.5",
       "SELECT 'A-100'"},
      {"update stocklevel3 set stocklevel3.valuationcost2=9 where stocklevel3.itemcode='B-200' and [valuationtype]=yes",
       "SELECT count(*) FROM StockLevel3 WHERE ValuationCost2 = 9", "SELECT 0"},
      {"UPDATE StockLevel3 SET Status = Not Status, ReorderLevel = 7/2 WHERE ItemCode = 'old'",
       "SELECT Status, ReorderLevel FROM StockLevel3 WHERE ItemCode = 'OLD'", "SELECT 0, 3.5"},
      {collected("clear documents"),
       "SELECT count(*), min(TranNo), (SELECT count(*) FROM SubTransactions) FROM Transactions", "SELECT 3, 1, 4"},
      {collected("clear payables"), "SELECT count(*) FROM AgingCr", "SELECT 0"},
      {collected("clean-up of items"), "SELECT count(*) FROM StockLevel3", "SELECT 6"},
  };
  for (const auto& [statement, after, expected] : changes) {
    const SmallCompany company;
    EXPECT_EQ(company.compileAndRun(statement).error, "") << statement;
    EXPECT_EQ(company.runPlain(after).rows, company.runPlain(expected).rows) << statement;
  }
}

}  // namespace
}  // namespace velmo::test
