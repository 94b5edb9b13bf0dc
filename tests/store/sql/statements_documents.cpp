#include "store/sql/statements.h"

namespace velmo::test {

namespace {

const std::string accounts = "SELECT acccode, accname, (AccCode & '  ' & AccName) as Account from acclevel3";
const std::string itemsToSell =
    R"(SELECT StockLevel3.ItemCode, StockLevel3.ItemName, StockLevel3.SellingPrice, (ItemCode & '  (' & ItemName & ')') AS InvItem, StockLevel3.Description, StockLevel3.Unit, StockLevel3.Status, [StockLevel1].[CatName] & ' (' & [StockLevel2].[SubCatName] & ')' AS ItemCategory FROM (StockLevel1 INNER JOIN StockLevel2 ON StockLevel1.CatID = StockLevel2.CatID) INNER JOIN StockLevel3 ON StockLevel2.SubCatID = StockLevel3.SubCatID Where ((StockLevel3.Status) = No)";
const std::string voucherLines =
    R"( as ParentCmd append ({SELECT Serial, AccCode, AccName, TranNo, Desc, Debit, Credit from SubTransactions WHERE ((SubTransactions.Debit)<>0) OR ((SubTransactions.Credit)<>0) order by debit desc, credit desc} as ChildCmd relate tranno to tranno) as ChildCmd)";
const std::string voucherHeads =
    R"(Shape {select tranno, docno, trandate, desc, ('Rupees ' & transactions.wordsamt) as WordsAmt, trantype, iif(cancel=0, '', 'CANCELLED') as CStatus from transactions where )";

std::string lastTrades(const std::string& party, const std::string& quantity, int type) {
  return R"(SELECT TOP 4 Transactions.TranNo, Transactions.TranType, Transactions.docno, Transactions.D1, Transactions.TranDate, Transactions.Text1, StockFlow.ItemCode, StockFlow.)" +
         quantity +
         R"(, StockFlow.Unit, StockFlow.Rate, StockFlow.GrossAmt FROM Transactions INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo WHERE (((StockFlow.ItemCode) Like 'A-100'))" +
         party + " AND ((Transactions.TranType)=" + std::to_string(type) +
         R"() AND ((Transactions.Cancel)=No) AND ((Transactions.FYID)=2)) ORDER BY Transactions.TranDate desc, Transactions.docno)";
}

// The print of a receipt or payment: with the columns of a settlement, or as the parent of the petty lines.
std::string moneyNote(const std::string& bank, const std::string& columns) {
  return "SELECT TranNo, DocNo, DocNo2, TranDate, Nature, Desc, D1 as ChqNo, D1Date as ChqDt, D2, D2Date, text1, " +
         bank + ", text5, text6, " + columns +
         R"(, tramount, Received, Balance, ('Rupees ' & wordsamt) as WordsAmount, IIf([Cancel]=0,'','CANCELLED') AS CStatus FROM Transactions Where TranNo = 20)";
}

std::string pettyNote(const std::string& side) {
  return "Shape {" + moneyNote("text2, text3, text4 as ChqBank", "Discount, carriage") +
         "} as ParentCmd APPEND ({SELECT TranNo, AccCode, AccName, Desc, " + side +
         " as Amt FROM SubTransactions where " +
         (side == "Credit" ? "credit is not null and credit<>0" : "debit is not null and debit<>0") +
         " ORDER BY serial} as ChildCmd RELATE 'TranNo' TO 'TranNo') AS ChildCmd";
}

}  // namespace

Statements documentStatements() {
  const std::string settled = "text8, Discount, tax1, tax2, additionaltax, carriage";
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
      {"voucher after a save", voucherHeads + "tranno= 15}" + voucherLines},
      {"vouchers of a type", voucherHeads + "(trantype= 32 and (transactions.fyid=2)) order by docno}" + voucherLines},
      {"vouchers of a period",
       voucherHeads +
           R"((trantype= 32 and (transactions.trandate>=#07-01-2025# and transactions.trandate<=#09-30-2025#) and (Transactions.fyid=2)) order by docno})" +
           voucherLines},
      {"vouchers of a run of numbers",
       voucherHeads +
           R"((trantype= 32 and (transactions.docno>=1 and transactions.docno<=3) and (Transactions.fyid=2)) order by docno})" +
           voucherLines},
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
      {"items to sell", itemsToSell + ") ORDER BY StockLevel3.ItemCode"},
      {"items to sell by text",
       itemsToSell + " and ((ItemCode & '  (' & ItemName & ')') like '%bolt%')) ORDER BY StockLevel3.ItemCode"},
      {"balance of a party",
       R"(SELECT SubTransactions.AccCode, Sum(IIf(IsNull([debit]),0,[debit])) AS Debits, Sum(IIf(IsNull([credit]),0,[credit])) AS Credits, [Debits]-[Credits] AS Dif, IIf([Dif]>0,Format(Abs([Dif]),'Fixed') & ' Dr',Format(Abs([Dif]),'Fixed') & ' Cr') AS PBalance FROM Transactions INNER JOIN SubTransactions ON Transactions.TranNo = SubTransactions.TranNo GROUP BY SubTransactions.AccCode, Transactions.Cancel, Transactions.FYID HAVING (((SubTransactions.AccCode)=12001002) AND ((Transactions.Cancel)=No) AND ((Transactions.FYID)=2)))"},
      {"balance of an item",
       R"(SELECT StockFlow.ItemCode, Sum(IIf(IsNull([stockin]),0,[stockin])) AS stocksin, Sum(IIf(IsNull([stockout]),0,[stockout])) AS stocksout, [stocksin]-[stocksout] AS Ibalance FROM Transactions INNER JOIN StockFlow ON Transactions.TranNo = StockFlow.TranNo GROUP BY StockFlow.ItemCode, Transactions.Cancel, Transactions.InvLedger, Transactions.FYID HAVING (((StockFlow.ItemCode) Like 'A-100') AND ((Transactions.Cancel)=No) AND ((Transactions.InvLedger)=No) AND ((Transactions.FYID)=2)))"},
      {"last sales of an item", lastTrades("", "StockOut", 32)},
      {"last sales to a party", lastTrades(" AND ((Transactions.partycode2)=12001002)", "StockOut", 32)},
      {"last purchases of an item", lastTrades("", "StockIn", 22)},
      {"order of a customer reference",
       "Select trandate, d1 from transactions where d1 like 'SO/1' and trantype=93 and fyid = 2 and cancel = No"},
      {"order of a number",
       "Select trandate, docno from transactions where docno = 5 and trantype=92 and fyid = 2 and cancel = No"},
      {"stray receivables", "Select * from agingdr where tranno=0"},
      {"settlement rows of a receipt", "Select * from agingdr where tranno = 20 order by serial"},
      {"no ledger lines", "Select * from subtransactions where tranno = 0"},
      {"petty credit lines", "Select * from subtransactions where tranno = 20 and debit is null order by serial"},
      {"petty debit lines", "Select * from subtransactions where tranno = 22 and credit is null order by serial"},
      {"cash line of a petty receipt",
       "Select * from subtransactions where tranno = 20 and debit is not null order by serial"},
      {"cash line of a petty payment",
       "Select * from subtransactions where tranno = 22 and credit is not null order by serial"},
      {"print of a receipt", moneyNote("text2, text3, text4 as ChqBank", settled)},
      {"print of a bank payment", moneyNote("text2 as ChqBank, text3, text4", settled)},
      {"print of a petty receipt", pettyNote("Credit")},
      {"print of a petty payment", pettyNote("Debit")},
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
      {"print of a production",
       R"(SELECT TranNo, flowid, serial, itemcode, itemname, iif(isnull(stockin), Stockout, '') as Qty, iif(isnull(stockin), unit, '') as unit, iif(isnull(stockin), rate, '') as Rate, iif(isnull(stockin), grossamt, '') as grossamt, iif(isnull(stockin), grossamt, 0) as valueout, iif(isnull(stockout), Stockin, '') as Qtyout, iif(isnull(stockout), unit, '') as unitout, iif(isnull(stockout), rate, '') as Rateout, iif(isnull(stockout), grossamt, '') as grossamtout, iif(isnull(stockout), grossamt, 0) as valuein FROM StockFlow Where TranNo = 25 ORDER BY stockout, serial)"},
      {"closing stock entry", "select tranno, trandate from transactions where trantype=51 and fyid= 2"},
      {"closing stock debit",
       R"(UPDATE SubTransactions SET SubTransactions.Debit = 1234.5 WHERE (((SubTransactions.TranNo)=11) AND ((SubTransactions.AccCode)=13001001)))"},
      {"closing stock credit",
       R"(UPDATE SubTransactions SET SubTransactions.Credit = 1234.5 WHERE (((SubTransactions.TranNo)=11) AND ((SubTransactions.AccCode)=50001006)))"},
  };
}

}  // namespace velmo::test
