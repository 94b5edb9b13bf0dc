#include "reports/balances/balances_statements.h"

#include <stdexcept>

#include "schema/account_types.h"
#include "store/connection/connection.h"

namespace velmo::reports {
namespace {

namespace account_type = schema::account_type;

constexpr const char* notSettled = "(((CBQry.CBalance)<>0))";

std::string number(std::int64_t value) {
  return std::to_string(value);
}

// The lines of the year, before a day ("<#..#") or up to it ("<=#..#").
std::string linesOfYear(const BalancePeriod& period, const std::string& until) {
  return "[SELECT Transactions.TranDate, SubTransactions.AccCode, SubTransactions.Debit, SubTransactions.Credit FROM "
         "Transactions INNER JOIN SubTransactions ON Transactions.TranNo=SubTransactions.TranNo WHERE "
         "((Transactions.TranDate)" +
         until + ") And (Transactions.FYID)=" + number(period.fyid) + " And (Transactions.Cancel)=No]. AS ABal";
}

std::string beforePeriod(const BalancePeriod& period) {
  return linesOfYear(period, "<" + store::dateLiteral(period.from));
}

std::string upToEnd(const BalancePeriod& period) {
  return linesOfYear(period, "<=" + store::dateLiteral(period.to));
}

// Debits, credits, difference, balance and status of a group, their names beginning with a letter: O, C or T.
std::string sums(const std::string& letter) {
  return "Sum(IIf(IsNull([debit]),0,[debit])) AS " + letter + "Debits, Sum(IIf(IsNull([credit]),0,[credit])) AS " +
         letter + "Credits, [" + letter + "Debits]-[" + letter + "Credits] AS " + letter + "Diff, Abs([" + letter +
         "Diff]) AS " + letter + "Balance, IIf([" + letter + "Diff]<0,'Credit','Debit') AS " + letter + "Status";
}

// What the six columns of one screen need beside the levels of an account.
struct SixColumns {
  std::string columns = {};    // further ones of the opening half, to filter by: ", AccLevel3.EmpID"
  std::string employees = {};  // " LEFT JOIN Employees ON ..." where a column is theirs
  std::string accounts = {};   // a condition within both halves
  std::string condition = {};  // on the outcome
};

std::string openingHalf(const BalancePeriod& period, const SixColumns& six) {
  const std::string accounts = "AccLevel3 LEFT JOIN " + beforePeriod(period) + " ON AccLevel3.AccCode = ABal.AccCode";
  return "(SELECT AccLevel3.AccCode, AccLevel3.AccName, " + sums("O") + ", AccLevel3.Level1ID, AccLevel3.Level2ID" +
         six.columns + " FROM " + (six.employees.empty() ? accounts : "(" + accounts + ")" + six.employees) +
         six.accounts + " GROUP BY AccLevel3.AccCode, AccLevel3.AccName, AccLevel3.Level1ID, AccLevel3.Level2ID" +
         six.columns + ") AS OBQry ";
}

std::string closingHalf(const BalancePeriod& period, const SixColumns& six) {
  return "(SELECT AccLevel3.AccCode, AccLevel3.AccName, " + sums("C") + " FROM AccLevel3 LEFT JOIN " + upToEnd(period) +
         " ON AccLevel3.AccCode = ABal.AccCode" + six.accounts +
         " GROUP BY AccLevel3.AccCode, AccLevel3.AccName, AccLevel3.Level1ID" +
         (six.accounts.empty() ? "" : ", AccLevel3.Level2ID") + ") AS CBQry ";
}

std::string sixColumnStatement(const BalancePeriod& period, const SixColumns& six) {
  return "SELECT OBQry.AccCode, OBQry.AccName, OBQry.ODiff, OBQry.OBalance, OBQry.OStatus, [Cdebits]-[odebits] AS "
         "Debits, [Ccredits]-[ocredits] AS Credits, CBQry.CDiff, CBQry.CBalance, CBQry.CStatus, OBQry.Level1ID, "
         "OBQry.Level2ID FROM " +
         openingHalf(period, six) + "INNER JOIN " + closingHalf(period, six) + "ON OBQry.AccCode = CBQry.AccCode " +
         six.condition + " ORDER BY OBQry.Acccode";
}

enum class Use { Screen, RangePrint, Hierarchy };

std::string twoColumnStatement(const BalancePeriod& period, const std::string& clause, Use use) {
  const std::string levels = use == Use::Hierarchy ? ", AccLevel3.Level1ID, AccLevel3.Level2ID" : "";
  const std::string forSums =
      use == Use::Screen ? "" : ", IIf(([Diff]>=0),[diff], 0) AS Debits2, IIf(([Diff]<0),abs([diff]), 0) AS Credits2";
  return "SELECT SubTransactions.AccCode, AccLevel3.AccName, Sum(IIf(IsNull([Debit]),0,[Debit])) AS Debit1, "
         "Sum(IIf(IsNull([Credit]),0,[Credit])) AS Credit1, [Debit1]-[Credit1] AS Diff, IIf(([Diff]>=0),[diff]) AS "
         "Debits, IIf(([Diff]<0),abs([diff])) AS Credits" +
         forSums + levels +
         " FROM Transactions INNER JOIN (AccLevel3 INNER JOIN SubTransactions ON AccLevel3.AccCode = "
         "SubTransactions.AccCode) ON Transactions.TranNo = SubTransactions.TranNo Where (" +
         clause + " AND ((Transactions.TranDate) <= " + store::dateLiteral(period.to) +
         ") And ((Transactions.FYID) = " + number(period.fyid) +
         ") And ((Transactions.Cancel) = No)) GROUP BY SubTransactions.AccCode, AccLevel3.AccName" + levels +
         " Having (Sum(IIf(IsNull([Debit]),0,[Debit]))<> Sum(IIf(IsNull([Credit]),0,[Credit])))";
}

// The choice as a condition of the six and of the two columns.
struct SixCondition {
  std::string operator()(AllAccounts) const { return "((OBQry.Level1ID) > 0)"; }
  std::string operator()(const AccountsOfType& one) const { return "((OBQry.Level1ID) = " + number(one.typeId) + ")"; }
  std::string operator()(const AccountsOfSubType& one) const {
    return "((OBQry.Level2ID) = " + number(one.level2Id) + ")";
  }
  std::string operator()(const AccountRange& range) const {
    return "((OBQry.AccCode) >= " + number(range.from) + ") AND ((OBQry.AccCode) <= " + number(range.to) + ")";
  }
};

struct TwoCondition {
  std::string operator()(AllAccounts) const { return "((AccLevel3.Level1ID) > 0)"; }
  std::string operator()(const AccountsOfType& one) const {
    return "((AccLevel3.Level1ID) = " + number(one.typeId) + ")";
  }
  std::string operator()(const AccountsOfSubType& one) const {
    return "((AccLevel3.Level2ID) = " + number(one.level2Id) + ")";
  }
  std::string operator()(const AccountRange& range) const {
    return "(((SubTransactions.AccCode) >= " + number(range.from) +
           ") AND ((SubTransactions.AccCode) <= " + number(range.to) + "))";
  }
};

// What a choice adds to the two upper levels of a hierarchy.
struct Levels {
  std::string types = {};         // behind the grouping of the types
  std::string subTypes = {};      // behind that of the sub types
  bool typeOfOneSubType = false;  // the type's sums are those of the sub type
};

struct LevelsOf {
  Levels operator()(AllAccounts) const { return {.types = " ORDER BY AccLevel1.TypeID"}; }
  Levels operator()(const AccountsOfType& one) const {
    return {.types = " Having (((AccLevel1.TypeID) = " + number(one.typeId) + ")) ORDER BY AccLevel1.TypeID"};
  }
  Levels operator()(const AccountsOfSubType& one) const {
    const std::string having = " Having (((AccLevel2.Level2ID) = " + number(one.level2Id) + "))";
    return {.types = having, .subTypes = having, .typeOfOneSubType = true};
  }
  Levels operator()(const AccountRange&) const {
    throw std::logic_error("a range of accounts is printed without levels");
  }
};

std::string hierarchy(const BalancePeriod& period, const Levels& levels, const std::string& accounts) {
  const std::string balances = "(AccLevel3 LEFT JOIN " + upToEnd(period) + " ON AccLevel3.AccCode = ABal.AccCode) ON ";
  const std::string types =
      levels.typeOfOneSubType
          ? "(AccLevel1 INNER JOIN AccLevel2 ON AccLevel1.TypeID = AccLevel2.TypeID) INNER JOIN " + balances +
                "AccLevel2.Level2ID = AccLevel3.Level2ID GROUP BY AccLevel1.TypeID, AccLevel1.Type, AccLevel2.Level2ID"
          : "AccLevel1 INNER JOIN " + balances +
                "AccLevel1.TypeID = AccLevel3.Level1ID GROUP BY AccLevel1.TypeID, AccLevel1.Type";
  return "SHAPE {SELECT AccLevel1.TypeID, AccLevel1.Type, " + sums("T") + " FROM " + types + levels.types +
         "} AS Level1 APPEND (( SHAPE {SELECT AccLevel2.Level2ID, AccLevel2.L2AccName, AccLevel2.TypeID, " + sums("T") +
         " FROM AccLevel2 INNER JOIN " + balances +
         "AccLevel2.Level2ID = AccLevel3.Level2ID GROUP BY AccLevel2.Level2ID, AccLevel2.L2AccName, AccLevel2.TypeID" +
         levels.subTypes + " ORDER BY AccLevel2.Level2ID} AS Level2 APPEND ({" + accounts +
         "} AS Level3 RELATE 'level2ID' TO 'level2ID') AS level3) AS level2 RELATE 'typeID' TO 'typeID') AS level2";
}

}  // namespace

std::string narrowBalances(const BalancePeriod& period, const std::string& accounts) {
  return sixColumnStatement(period, {.condition = "Where " + accounts + " AND " + notSettled});
}

std::string sixColumnBalances(const BalancePeriod& period, const AccountChoice& choice) {
  return narrowBalances(period, std::visit(SixCondition(), choice));
}

std::string sixColumnsOfAll(const BalancePeriod& period) {
  return sixColumnStatement(period, {.condition = "Where " + SixCondition()(AllAccounts())});
}

std::string twoColumnBalances(const BalancePeriod& period, const AccountChoice& choice) {
  return twoColumnStatement(period, std::visit(TwoCondition(), choice), Use::Screen);
}

std::string sixColumnHierarchy(const BalancePeriod& period, const AccountChoice& choice) {
  const SixColumns printed{.accounts = " Where (((AccLevel3.Level2ID) > 0))",
                           .condition = std::string("WHERE ") + notSettled};
  return hierarchy(period, std::visit(LevelsOf(), choice), sixColumnStatement(period, printed));
}

std::string twoColumnHierarchy(const BalancePeriod& period, const AccountChoice& choice) {
  return hierarchy(period, std::visit(LevelsOf(), choice),
                   twoColumnStatement(period, std::visit(TwoCondition(), choice), Use::Hierarchy));
}

std::string twoColumnRangePrint(const BalancePeriod& period, const AccountRange& range) {
  return twoColumnStatement(period, TwoCondition()(range), Use::RangePrint);
}

std::string customerBalances(const BalancePeriod& period, const std::string& accounts) {
  return sixColumnStatement(period, {.columns = ", AccLevel3.EmpID, Employees.Department, AccLevel3.SectorID, "
                                                "AccLevel3.Region1ID, AccLevel3.Region2ID",
                                     .employees = " LEFT JOIN Employees ON AccLevel3.EmpID = Employees.EmpID",
                                     .condition = "Where " + accounts + " AND " + notSettled});
}

}  // namespace velmo::reports
