#include "store/sql/statements.h"

namespace velmo::test {

namespace {

const std::string accounts = "SELECT acccode, accname, (AccCode & '  ' & AccName) as Account from acclevel3";

}  // namespace

Statements documentStatements() {
  const std::string like = "(AccCode & '  ' & AccName) like '%1200%'";
  return {
      {"documents of a type", "SELECT * from transactions where trantype=32 and fyid = 2 order by docno"},
      {"bills of material", "SELECT * from transactions where trantype=95 order by docno"},
      {"challans for the next number", "Select * from transactions where fyid = 2 and trantype=94 order by docno"},
      {"item lines", "Select * from stockflow where tranno = 15 order by serial"},
      {"no item lines", "Select * from stockflow where tranno = 0"},
      {"locations to choose", "Select Locationid, LocationName from StockLocation order by LocationName"},
      {"taken number", "Select docno from transactions where docno = 1 and trantype=32 and fyid = 2"},
      {"taken number of a bill of material", "Select docno from transactions where docno = 1 and trantype = 95"},
      {"ledger lines to rewrite",
       R"(Select serial, tranno, acccode, accname, desc, debit, credit from subtransactions where tranno=15 order by serial)"},
      {"receivables of a document", "Select * from agingdr where tranno=15"},
      {"payables of a document", "Select * from agingcr where tranno=12"},
      {"parties", accounts + " where Level1ID=120 or Level1ID=210 order by acccode"},
      {"parties by text", accounts + " where (Level1ID=120 or Level1ID=210) And (" + like + ") order by acccode"},
      {"parties by a quoted name",
       accounts +
           " where (Level1ID=120 or Level1ID=210) And ((AccCode & '  ' & AccName) like '%O''BRIEN%') order by acccode"},
      {"income accounts", accounts + " where Level1ID=400 order by acccode"},
      {"income accounts by text",
       accounts + " where (Level1ID=400) And (AccCode & '  ' & AccName) like '%sale%' order by acccode"},
      {"cash and bank accounts", accounts + " where Level1ID=100 or Level1ID=110 order by acccode"},
      {"all accounts", accounts + " order by acccode"},
      {"all accounts by text", accounts + " where " + like + " order by acccode"},
      {"balance of a party",
       R"(SELECT SubTransactions.AccCode, Sum(IIf(IsNull([debit]),0,[debit])) AS Debits, Sum(IIf(IsNull([credit]),0,[credit])) AS Credits, [Debits]-[Credits] AS Dif, IIf([Dif]>0,Format(Abs([Dif]),'Fixed') & ' Dr',Format(Abs([Dif]),'Fixed') & ' Cr') AS PBalance FROM Transactions INNER JOIN SubTransactions ON Transactions.TranNo = SubTransactions.TranNo GROUP BY SubTransactions.AccCode, Transactions.Cancel, Transactions.FYID HAVING (((SubTransactions.AccCode)=12001002) AND ((Transactions.Cancel)=No) AND ((Transactions.FYID)=2)))"},
      {"stray receivables", "Select * from agingdr where tranno=0"},
      {"settlement rows of a receipt", "Select * from agingdr where tranno = 20 order by serial"},
      {"no ledger lines", "Select * from subtransactions where tranno = 0"},
      {"petty credit lines", "Select * from subtransactions where tranno = 20 and debit is null order by serial"},
      {"petty debit lines", "Select * from subtransactions where tranno = 22 and credit is null order by serial"},
      {"cash line of a petty receipt",
       "Select * from subtransactions where tranno = 20 and debit is not null order by serial"},
      {"cash line of a petty payment",
       "Select * from subtransactions where tranno = 22 and credit is not null order by serial"},
      {"year's opening entry", "SELECT * from transactions where trantype=11 and fyid = 2 order by docno"},
      {"opening lines of accounts", "Select * from subtransactions where tranno = 10 order by serial"},
      {"number of accounts",
       R"(SELECT Count(AccLevel3.AccCode) AS NoofAcc FROM AccLevel1 INNER JOIN AccLevel3 ON AccLevel1.TypeID = AccLevel3.Level1ID)"},
      {"number of items", "SELECT Count(StockLevel3.ItemCode) AS NoofItem FROM StockLevel3"},
      {"opening invoices of a customer",
       "Select * from agingdr where tranno = 10 and partycode = 12001002 order by serial"},
      {"opening bills of a vendor", "Select * from agingcr where tranno = 10 and partycode = 21001002 order by serial"},
      {"opening stock of a location", "SELECT * from stockflow where TranNo=10 and locationid=1 order by serial"},
      {"items to open",
       R"(Select itemcode, itemname, unit, purchaseprice from stocklevel3 where catid not like 'Service' order by itemcode)"},
      {"items to adjust",
       R"(SELECT ItemCode, ItemName, valuationcost2, (ItemCode & '  (' & ItemName & ')') as InvItem, Unit, status From StockLevel3 Where (Status = No) ORDER BY ItemCode)"},
      {"items to adjust by text",
       R"(SELECT ItemCode, ItemName, valuationcost2, (ItemCode & '  (' & ItemName & ')') as InvItem, Unit, status From StockLevel3 Where ((Status = No) and ((ItemCode & '  (' & ItemName & ')') like '%bolt%')) ORDER BY ItemCode)"},
      {"items to transfer",
       R"(SELECT ItemCode, ItemName, purchaseprice, (ItemCode & '  (' & ItemName & ')') as InvItem, Unit, status From StockLevel3 Where (Status = No) ORDER BY ItemCode)"},
      {"source lines of a transfer",
       "Select * from stockflow where tranno = 26 and stockout is not null order by serial"},
      {"mirrored lines of a transfer",
       "Select * from stockflow where tranno = 26 and stockin is not null order by flowid"},
      {"production heads",
       R"(Select acccode, accname from acclevel3 where acccode=50001002 or acccode=50001007 or acccode=50001008 order by acccode)"},
      {"outsource parties",
       "SELECT acccode, accname from AccLevel3 where Level1ID=120 or Level1ID=210 order by acccode"},
      {"output line of a production", "Select * from stockflow where tranno = 25 and stockout is null order by serial"},
      {"input lines of a production", "Select * from stockflow where tranno = 25 and stockin is null order by serial"},
      {"components of a product",
       R"(SELECT Transactions.Text1, Transactions.tax1, Transactions.tax2, Transactions.additionaltax, StockFlow.ItemCode, StockFlow.ItemName, StockFlow.StockOut, StockFlow.Unit, StockFlow.Rate, StockFlow.GrossAmt, StockFlow.Serial FROM Transactions INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo Where (((Transactions.Text1) like 'KIT') And ((Transactions.TranType) = 95)) ORDER BY StockFlow.Serial)"},
      {"print of a production", R"(SELECT TranNo, flowid, serial, itemcode, itemname, iif(isnull(stockin), Stockout, '') as Qty, iif(isnull(stockin), unit, '') as unit, iif(isnull(stockin), rate, '') as Rate, iif(isnull(stockin), grossamt, '') as grossamt, iif(isnull(stockin), grossamt, 0) as valueout, iif(isnull(stockout), Stockin, '') as Qtyout, iif(isnull(stockout), unit, '') as unitout, iif(isnull(stockout), rate, '') as Rateout, iif(isnull(stockout), grossamt, '') as grossamtout, iif(isnull(stockout), grossamt, 0) as valuein FROM StockFlow Where TranNo = 25 ORDER BY stockout, serial)"},
      {"closing stock entry", "select tranno, trandate from transactions where trantype=51 and fyid= 2"},
      {"closing stock debit",
       R"(UPDATE SubTransactions SET SubTransactions.Debit = 1234.5 WHERE (((SubTransactions.TranNo)=11) AND ((SubTransactions.AccCode)=13001001)))"},
      {"closing stock credit",
       R"(UPDATE SubTransactions SET SubTransactions.Credit = 1234.5 WHERE (((SubTransactions.TranNo)=11) AND ((SubTransactions.AccCode)=50001006)))"},
  };
}

}  // namespace velmo::test
