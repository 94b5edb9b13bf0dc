#include "store/sql/statements.h"

namespace velmo::test {

namespace {

// Balance at the start of a day and at its end of the accounts under some types, as the welcome screen shows them.
std::string positionOfTheDay(const std::string& types) {
  const auto half = [&](const std::string& prefix, const std::string& until, const std::string& name) {
    return "(SELECT AccLevel3.AccCode, Sum(IIf(IsNull([debit]),0,[debit])) AS " + prefix +
           "Debits, Sum(IIf(IsNull([credit]),0,[credit])) AS " + prefix + "Credits, [" + prefix + "Debits]-[" + prefix +
           "Credits] AS " + prefix +
           R"(Diff FROM AccLevel3 LEFT JOIN [SELECT Transactions.TranDate, SubTransactions.AccCode, SubTransactions.Debit, SubTransactions.Credit FROM Transactions INNER JOIN SubTransactions ON Transactions.TranNo=SubTransactions.TranNo WHERE ((Transactions.TranDate))" +
           until +
           R"() And (Transactions.FYID)=2 And (Transactions.Cancel)=No]. AS ABal ON AccLevel3.AccCode = ABal.AccCode GROUP BY AccLevel3.AccCode, AccLevel3.Level1ID HAVING ()" +
           types + ")) AS " + name;
  };
  return R"(SELECT Sum(OBQry.ODiff) AS OBalance, Sum([Cdebits]-[odebits]) AS Debits, Sum([Ccredits]-[ocredits]) AS Credits, Sum(CBQry.CDiff) AS CBalance FROM )" +
         half("O", "<#09-01-2025#", "OBQry") + " INNER JOIN " + half("C", "<=#09-01-2025#", "CBQry") +
         " ON OBQry.AccCode = CBQry.AccCode";
}

}  // namespace

Statements officeStatements() {
  return {
      {"clean-up of accounts", "Delete * from acclevel3 where level2id is null or level1id is null"},
      {"clean-up of sub account types", "Delete * from acclevel2 where typeid is null"},
      {"clean-up of items", "Delete * from stocklevel3 where subcatid is null or catid is null"},
      {"clean-up of sub categories", "Delete * from stocklevel2 where catid is null"},
      {"company at login", "select * from businessinfo"},
      {"years at login", "Select * from FinancialYear order by abbreviation"},
      {"users at login", "Select userid, username, password from users"},
      {"shared items", "SELECT * FROM StockLevel3 ORDER BY ItemCode"},
      {"shared accounts", "SELECT * from AccLevel3 order by acccode"},
      {"one right", "SELECT * from userrights where rightid=94"},
      {"users", "select * from Users order by userid"},
      {"operators", "Select userid, username, password from users where userid>1 order by username"},
      {"users by name", "Select * from users order by username"},
      {"rights", "SELECT * from userrights order by rightid"},
      {"notes of a user", "Select UserID, Notes from Users where UserID=1"},
      {"currencies",
       "SELECT Currencies.Serial, Currencies.CCode\u00A0\u00A0, Currencies.Curency\u00A0\u00A0, Currencies.Country "
       "FROM Currencies ORDER BY Currencies.Country"},
      {"currency of the company", "select name, country, currencyname, ccode from businessinfo"},
      {"currency changed",
       "UPDATE Currencies SET Currencies.CCode\u00A0\u00A0 = '$', Currencies.Curency\u00A0\u00A0 = 'US Dollar' WHERE "
       "Currencies.Serial=2"},
      {"invoice settings", "SELECT name, SIF, SITM from BusinessInfo"},
      {"purchase order settings", "SELECT name, POF, POTM from businessinfo"},
      {"quotation settings", "SELECT name, QF, QTM from businessinfo"},
      {"challan settings", "SELECT name, DCF, DCTM from businessinfo"},
      {"stock movement setting", "SELECT name, StockMovement from BusinessInfo"},
      {"help topic", "select * from helpindex where id=1"},
      {"sales of the day",
       R"(SELECT Sum(IIf([Transactions].[TranType]=35,-[TrAmount],[TrAmount])) AS TotSales From Transactions WHERE (((Transactions.TranType)=31 Or (Transactions.TranType)=32 Or (Transactions.TranType)=35) AND ((Transactions.TranDate)=#09-01-2025#) AND ((Transactions.Cancel)=No) AND ((Transactions.FYID)=2)))"},
      {"cash and banks of the day", positionOfTheDay("((AccLevel3.Level1ID)=100 Or (AccLevel3.Level1ID)=110)")},
      {"customers of the day", positionOfTheDay("(AccLevel3.Level1ID)=120")},
      {"vendors of the day", positionOfTheDay("(AccLevel3.Level1ID)=210")},
      {"years to import from", "Select FYID, Abbreviation from financialyear order by abbreviation"},
      {"fixed entries of a year", "select * from transactions where fyid=2 and trantype=11"},
      {"result account", "Select * from acclevel3 Where acccode = 32001001"},
      {"clear documents", "delete * from transactions where trantype<>51 and fyid = 2"},
      {"clear receivables", "delete * from AgingDr where fyid = 2"},
      {"clear payables", "delete * from AgingCr where fyid = 2"},
      {"documents of a year", "Select * from Transactions where fyid = 2"},
  };
}

}  // namespace velmo::test
