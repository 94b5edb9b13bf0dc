#include "reports/ledgers/ledger_statements.h"

namespace velmo::reports {
namespace {

constexpr const char* linesOfDocuments =
    "FROM TranType INNER JOIN (Transactions INNER JOIN SubTransactions ON Transactions.TranNo = "
    "SubTransactions.TranNo) "
    "ON TranType.TranType = Transactions.TranType ";
constexpr const char* notEmpty = "(((SubTransactions.Debit)<>0) or ((SubTransactions.Credit)<>0))";

}  // namespace

std::string broughtForwardStatement(std::int64_t account, int fyid, const text::DateTime& from) {
  return "SELECT SubTransactions.AccCode, Sum(IIf(IsNull([debit]),0,[debit])) AS DebitSum, "
         "Sum(IIf(IsNull([credit]),0,[credit])) AS CreditSum, [debitsum]-[creditsum] AS OBalance FROM Transactions "
         "INNER JOIN SubTransactions ON Transactions.TranNo = SubTransactions.TranNo Where (((Transactions.TranDate) "
         "< " +
         store::dateLiteral(from) +
         ") And ((Transactions.Cancel) = No) And ((Transactions.FYID) = " + std::to_string(fyid) +
         ")) GROUP BY SubTransactions.AccCode HAVING SubTransactions.AccCode=" + std::to_string(account);
}

// A column that something is added to is not looked up in an index. An account without a period is, as it stands.
std::string ledgerStatement(std::int64_t account, int fyid, const std::string& periodFilter, LedgerWalk walk,
                            LedgerLines lines) {
  const char* const unlessByDay = walk == LedgerWalk::OfDays ? " + 0" : "";
  const char* const unlessByAccount = walk == LedgerWalk::OfAccount && !periodFilter.empty() ? " + 0" : "";
  return std::string(
             "SELECT Transactions.TranNo, Transactions.TranDate, Transactions.TranType, Transactions.d1, "
             "[Trantype].[Name] & ' No. ' & [Transactions].[docno] AS TranRefLong, [Trantype].[short] & ' ' & "
             "[Transactions].[docno] AS TranRefShort, SubTransactions.AccCode, SubTransactions.Desc, "
             "SubTransactions.Debit, SubTransactions.Credit, SubTransactions.Balance, SubTransactions.Status, "
             "SubTransactions.Serial, Transactions.FYID, Transactions.Cancel ") +
         linesOfDocuments + "Where (" + periodFilter + "((SubTransactions.AccCode)" + unlessByDay + " = " +
         std::to_string(account) + ") And " +
         (lines == LedgerLines::Filled ? std::string(notEmpty) + " AND " : std::string()) + "((Transactions.FYID)" +
         unlessByAccount + " = " + std::to_string(fyid) +
         ") And ((Transactions.Cancel) = No)) ORDER BY Transactions.TranDate, SubTransactions.Serial";
}

std::string jobLedgerStatement(std::int64_t job, int fyid) {
  return std::string(
             "SELECT Transactions.TranNo, Transactions.TranDate, Transactions.TranType, [Trantype].[short] & ' ' & "
             "[Transactions].[docno] AS TranRefShort, SubTransactions.AccCode, SubTransactions.AccName, "
             "SubTransactions.Desc, SubTransactions.Debit, SubTransactions.Credit, SubTransactions.Serial ") +
         linesOfDocuments + "Where (((Transactions.JobIDFrom) = " + std::to_string(job) + ") And " + notEmpty +
         " AND ((Transactions.FYID) = " + std::to_string(fyid) +
         ") And ((Transactions.Cancel) = No)) ORDER BY Transactions.TranDate, SubTransactions.Serial";
}

std::string dayBookStatement(int fyid, const frame::ReportPeriod& period) {
  return std::string(
             "SELECT Transactions.TranNo, Transactions.TranDate, Transactions.TranType, [Trantype].[Name] & ' No. ' & "
             "[Transactions].[docno] AS TranRefLong, [Trantype].[short] & ' ' & [Transactions].[docno] AS "
             "TranRefShort, SubTransactions.AccCode, SubTransactions.AccName, SubTransactions.Desc, "
             "SubTransactions.Debit, SubTransactions.Credit, Transactions.FYID, Transactions.Cancel ") +
         linesOfDocuments + "Where (" + frame::periodFilter(period) + notEmpty +
         " And ((Transactions.FYID) = " + std::to_string(fyid) +
         ")) ORDER BY Transactions.TranDate, [Trantype].[short] & ' ' & [Transactions].[docno], SubTransactions.Debit "
         "desc, SubTransactions.Credit desc";
}

std::string ledgersOf::mainType(std::int64_t level1Id) {
  return " HAVING AccLevel3.Level1ID = " + std::to_string(level1Id);
}

std::string ledgersOf::subType(std::int64_t level2Id) {
  return " HAVING AccLevel3.Level2ID = " + std::to_string(level2Id);
}

std::string ledgersOf::range(std::int64_t from, std::int64_t to) {
  return " HAVING AccLevel3.AccCode>=" + std::to_string(from) + " and AccLevel3.AccCode<=" + std::to_string(to);
}

std::string accountsStatement(const std::string& selection) {
  return "SELECT AccLevel3.AccCode, AccLevel3.AccName AS AccountName FROM AccLevel3 GROUP BY AccLevel3.AccCode, "
         "AccLevel3.AccName, AccLevel3.Level2ID, AccLevel3.Level1ID" +
         selection + " ORDER BY AccLevel3.AccCode";
}

}  // namespace velmo::reports
