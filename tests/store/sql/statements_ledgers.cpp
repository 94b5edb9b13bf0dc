#include "store/sql/statements.h"

namespace velmo::test {

namespace {

const std::string joined = "Transactions INNER JOIN SubTransactions ON Transactions.TranNo = SubTransactions.TranNo";
const std::string typed = "TranType INNER JOIN (" + joined + ") ON TranType.TranType = Transactions.TranType ";
const std::string references =
    R"([Trantype].[Name] & ' No. ' & [Transactions].[docno] AS TranRefLong, [Trantype].[short] & ' ' & [Transactions].[docno] AS TranRefShort, )";
const std::string shortReference = "[Trantype].[short] & ' ' & [Transactions].[docno] AS TranRefShort, ";
const std::string anyAmount = "(((SubTransactions.Debit)<>0) or ((SubTransactions.Credit)<>0))";

std::string manyLedgers() {
  const std::string inYear = "((Transactions.FYID) = 2) And ((Transactions.Cancel) = No))";
  return R"(Shape {SELECT MainBal.AccCode, [MainBal].[AccName] AS AccountName, MainBal.OpBalance, MainBal.OpStatus, Last(IIf(IsNull([Balance]),[OpBalance],[Balance])) AS ClBalance, Last(IIf(IsNull([Balance]),[OpStatus],[Status])) AS ClStatus FROM (SELECT AccLevel3.AccCode, AccLevel3.AccName, Sum(IIf(IsNull([debit]),0,[debit])) AS Debits, Sum(IIf(IsNull([credit]),0,[credit])) AS Credits, [Debits]-[Credits] AS Diff, Abs([diff]) AS OpBalance, IIf([diff]<0,'Credit','Debit') AS OpStatus FROM AccLevel3 LEFT JOIN [SELECT Transactions.TranDate, Transactions.Cancel, SubTransactions.AccCode, SubTransactions.Debit, SubTransactions.Credit FROM Transactions INNER JOIN SubTransactions ON Transactions.TranNo=SubTransactions.TranNo WHERE ((Transactions.TranDate)<#09-01-2025#) And (Transactions.FYID)=2 And (Transactions.Cancel)=No]. AS ABal ON AccLevel3.AccCode = ABal.AccCode GROUP BY AccLevel3.AccCode, AccLevel3.AccName, AccLevel3.Level2ID, AccLevel3.Level1ID) as MainBal LEFT JOIN (SELECT SubTransactions.AccCode, Transactions.TranDate, SubTransactions.Serial, SubTransactions.Balance, SubTransactions.Status FROM )" +
         joined + " Where (" + inYear +
         R"( GROUP BY SubTransactions.AccCode, Transactions.TranDate, SubTransactions.Serial, SubTransactions.Balance, SubTransactions.Status ORDER BY SubTransactions.AccCode, Transactions.TranDate, SubTransactions.Serial) as SubBal ON MainBal.AccCode = SubBal.AccCode GROUP BY MainBal.AccCode, [MainBal].[AccName], MainBal.OpBalance, MainBal.OpStatus Order By MainBal.AccCode} as ParentCmd append ({SELECT Transactions.TranNo, Transactions.TranDate, )" +
         shortReference +
         R"(SubTransactions.AccCode, SubTransactions.Desc, SubTransactions.Debit, SubTransactions.Credit, SubTransactions.Balance, SubTransactions.Status, SubTransactions.Serial, Transactions.FYID, Transactions.Cancel FROM )" +
         typed + "Where (" + anyAmount + " AND " + inYear +
         " ORDER BY Transactions.TranDate, SubTransactions.Serial} as ChildCmd relate acccode to acccode) as ChildCmd";
}

std::string movedUntil(const std::string& until) {
  return R"([SELECT Transactions.TranDate, SubTransactions.AccCode, SubTransactions.Debit, SubTransactions.Credit FROM Transactions INNER JOIN SubTransactions ON Transactions.TranNo=SubTransactions.TranNo WHERE ((Transactions.TranDate))" +
         until + ") And (Transactions.FYID)=2 And (Transactions.Cancel)=No]. AS ABal";
}

// One half of the six columns: the balance per account up to a day. The opening half carries what the outer query
// filters by.
std::string half(const std::string& prefix, const std::string& until) {
  const bool opening = prefix == "O";
  return "(SELECT AccLevel3.AccCode, AccLevel3.AccName, Sum(IIf(IsNull([debit]),0,[debit])) AS " + prefix +
         "Debits, Sum(IIf(IsNull([credit]),0,[credit])) AS " + prefix + "Credits, [" + prefix + "Debits]-[" + prefix +
         "Credits] AS " + prefix + "Diff, Abs([" + prefix + "Diff]) AS " + prefix + "Balance, IIf([" + prefix +
         "Diff]<0,'Credit','Debit') AS " + prefix + "Status" +
         (opening ? ", AccLevel3.Level1ID, AccLevel3.Level2ID" : "") + " FROM AccLevel3 LEFT JOIN " +
         movedUntil(until) +
         " ON AccLevel3.AccCode = ABal.AccCode GROUP BY AccLevel3.AccCode, AccLevel3.AccName, AccLevel3.Level1ID" +
         (opening ? ", AccLevel3.Level2ID) AS OBQry" : ") AS CBQry");
}

std::string sixColumns() {
  return R"(SELECT OBQry.AccCode, OBQry.AccName, OBQry.ODiff, OBQry.OBalance, OBQry.OStatus, [Cdebits]-[odebits] AS Debits, [Ccredits]-[ocredits] AS Credits, CBQry.CDiff, CBQry.CBalance, CBQry.CStatus, OBQry.Level1ID, OBQry.Level2ID FROM )" +
         half("O", "<#09-01-2025#") + " INNER JOIN " + half("C", "<=#06-30-2026#") +
         " ON OBQry.AccCode = CBQry.AccCode Where ((OBQry.Level1ID) > 0) AND (((CBQry.CBalance)<>0)) ORDER BY "
         "OBQry.Acccode";
}

std::string twoColumns() {
  return std::string(
             R"(SELECT SubTransactions.AccCode, AccLevel3.AccName, Sum(IIf(IsNull([Debit]),0,[Debit])) AS Debit1, Sum(IIf(IsNull([Credit]),0,[Credit])) AS Credit1, [Debit1]-[Credit1] AS Diff, IIf(([Diff]>=0),[diff]) AS Debits, IIf(([Diff]<0),abs([diff])) AS Credits)") +
         R"( FROM Transactions INNER JOIN (AccLevel3 INNER JOIN SubTransactions ON AccLevel3.AccCode = SubTransactions.AccCode) ON Transactions.TranNo = SubTransactions.TranNo Where (((AccLevel3.Level1ID) > 0) AND ((Transactions.TranDate) <= #06-30-2026#) And ((Transactions.FYID) = 2) And ((Transactions.Cancel) = No)) GROUP BY SubTransactions.AccCode, AccLevel3.AccName Having (Sum(IIf(IsNull([Debit]),0,[Debit]))<> Sum(IIf(IsNull([Credit]),0,[Credit]))))";
}

const std::string resultOfTypes =
    R"((SELECT Sum(IIf(IsNull([debit]),0,[debit])) AS SumDr, Sum(IIf(IsNull([credit]),0,[credit])) AS SumCr, [SumCr]-[SumDr] AS dif, AccLevel3.Level1Id FROM Transactions INNER JOIN (AccLevel3 INNER JOIN SubTransactions ON AccLevel3.AccCode = SubTransactions.AccCode) ON Transactions.TranNo = SubTransactions.TranNo )";

std::string incomeStatement(const std::string& dates) {
  return R"(SHAPE {select * from FS where fsid=3 or fsid=4 order by FSID} AS MainHeads APPEND (( SHAPE {select * from fsnature order by natureid} AS Heads APPEND ({SELECT AccLevel1.Type, AccLevel1.NatureID, IIf(IsNull([dif]),0,[dif]) AS Diff FROM AccLevel1 LEFT JOIN )" +
         resultOfTypes + "WHERE (((Transactions.Cancel)=No) and (Transactions.fyid)=2" + dates +
         R"() GROUP BY AccLevel3.Level1ID) AS Bal ON AccLevel1.TypeId =Bal.Level1Id} AS ChildCmd RELATE 'NatureID' TO 'NatureID') AS ChildCmd) AS Heads RELATE 'FSID' TO 'FSID') AS Heads)";
}

std::string profit(const std::string& dates) {
  return R"(SELECT Sum(IIf(IsNull([debit]),0,[debit])) AS Dr, Sum(IIf(IsNull([credit]),0,[credit])) AS Cr, [Cr]-[Dr] AS PL FROM Transactions INNER JOIN ((FS INNER JOIN FSNature ON FS.FSID = FSNature.FSID) INNER JOIN ((AccLevel1 INNER JOIN AccLevel3 ON AccLevel1.TypeID = AccLevel3.Level1ID) INNER JOIN SubTransactions ON AccLevel3.AccCode = SubTransactions.AccCode) ON FSNature.NatureID = AccLevel1.NatureID) ON Transactions.TranNo = SubTransactions.TranNo Where ()" +
         dates + "((FS.FSID) >= 3 Or (FS.FSID) >= 4) And ((Transactions.Cancel) = No) And ((Transactions.FYID) = 2))";
}

std::string balanceSheetTypes(const std::string& dates) {
  return R"(SELECT AccLevel1.Type, AccLevel1.NatureID, IIf(IsNull([dif]),0,[dif]) AS Diff, IIf([fsid]=1,-[diff],[diff]) AS BalValue, AccLevel1.TypeId FROM FSNature INNER JOIN (AccLevel1 LEFT JOIN )" +
         resultOfTypes + "Where (((Transactions.Cancel) = No) and ((Transactions.FYID)=2" + dates +
         R"()) GROUP BY AccLevel3.Level1Id) AS Bal ON AccLevel1.TypeId = Bal.Level1Id) ON FSNature.NatureID = AccLevel1.NatureID Where (((FSNature.FSID) = 1 Or (FSNature.FSID) = 2)) ORDER BY AccLevel1.TypeId)";
}

}  // namespace

Statements ledgerStatements() {
  return {
      {"sub types to print", "SELECT Level2ID, L2AccName, TypeID from acclevel2 where typeid=120 order by L2AccName"},
      {"ledgers of all accounts", manyLedgers()},
      {"day book",
       "SELECT Transactions.TranNo, Transactions.TranDate, Transactions.TranType, " + references +
           R"(SubTransactions.AccCode, SubTransactions.AccName, SubTransactions.Desc, SubTransactions.Debit, SubTransactions.Credit, Transactions.FYID, Transactions.Cancel FROM )" +
           typed +
           "Where ((((Transactions.TranDate) >= #07-01-2025#) And (Transactions.TranDate) <= #06-30-2026#) And " +
           anyAmount +
           R"( And ((Transactions.FYID) = 2)) ORDER BY Transactions.TranDate, [Trantype].[short] & ' ' & [Transactions].[docno], SubTransactions.Debit desc, SubTransactions.Credit desc)"},
      {"account types with their components",
       R"(SELECT [AccLevel1].[Type] & ' (' & [FSNature].[AccNatureTop] & ')' AS MainType, AccLevel1.TypeID FROM FSNature INNER JOIN AccLevel1 ON FSNature.NatureID = AccLevel1.NatureID ORDER BY [AccLevel1].[Type] & ' (' & [FSNature].[AccNatureTop] & ')')"},
      {"trial balance", sixColumns()},
      {"trial balance in two columns", twoColumns()},
      {"employees to filter by", "Select Empid, EmpName from Employees order by empname"},
      {"sectors to filter by", "Select * from bizsectors order by sectorname"},
      {"regions to filter by", "Select * from regions1 order by region1name"},
      {"income statement", incomeStatement("")},
      {"income statement to a day", incomeStatement(" AND ((Transactions.TranDate)<=#06-30-2026#)")},
      {"income statement of a period",
       incomeStatement(" AND ((Transactions.TranDate)>=#07-01-2025# And (Transactions.TranDate)<=#09-30-2025#)")},
      {"profit to date", profit("")},
      {"profit to a day", profit("((Transactions.TranDate)<=#09-30-2025#) AND ")},
      {"empty work table of the balance sheet", "delete * from TempBS"},
      {"work table of the balance sheet", "select * from TempBS"},
      {"types of the balance sheet", balanceSheetTypes("")},
      {"types of the balance sheet to a day", balanceSheetTypes(" AND (Transactions.TranDate)<=#09-30-2025#")},
      {"balance sheet",
       R"(SHAPE {select * from fs where fsid=1 or fsid=2 order by fsid}  AS FSCmd APPEND (( SHAPE {select * from FSNature where FSID=1 or FSID=2 order by natureID}  AS NatureCmd APPEND ({select * from TempBS order by typeid}  AS DetailCmd RELATE 'NatureID' TO 'NatureID') AS DetailCmd) AS NatureCmd RELATE 'FSID' TO 'FSID') AS NatureCmd)"},
      {"balances to carry over",
       R"(SELECT SubTransactions.AccCode, AccLevel3.AccName, Sum(IIf(IsNull([Debit]),0,[Debit])) AS Debit1, Sum(IIf(IsNull([Credit]),0,[Credit])) AS Credit1, [Debit1]-[Credit1] AS Diff, IIf(([Diff]>=0),[diff]) AS Debits, IIf(([Diff]<0),Abs([diff])) AS Credits FROM (Transactions INNER JOIN (AccLevel3 INNER JOIN SubTransactions ON AccLevel3.AccCode = SubTransactions.AccCode) ON Transactions.TranNo = SubTransactions.TranNo) INNER JOIN (FSNature INNER JOIN AccLevel1 ON FSNature.NatureID = AccLevel1.NatureID) ON AccLevel3.Level1ID = AccLevel1.TypeID Where (((AccLevel3.Level1ID) > 0) And ((Transactions.FYID) = 2) And ((Transactions.Cancel) = No) And ((FSNature.FSID) = 1 Or (FSNature.FSID) = 2)) GROUP BY SubTransactions.AccCode, AccLevel3.AccName order by SubTransactions.AccCode)"},
  };
}

}  // namespace velmo::test
