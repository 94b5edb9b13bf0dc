#include "reports/ledgers/ledgers_data.h"

#include <random>

#include "reports/ledger_company.h"
#include "reports/ledgers/ledger_statements.h"

namespace velmo::reports {
namespace {

using Rows = std::vector<std::string>;
using Period = std::optional<frame::ReportPeriod>;

class LedgersDataTest : public test::LedgerCompany {
 protected:
  int any(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }
  void write(const std::string& statement) { context->KORDconn.execute(statement); }

  // Documents of which some are cancelled, undated or of another year, with lines of which some are empty, and balances
  // that are neither all there nor all right.
  void trade(int documents) {
    static const char* const days[] = {"10-01-2026", "10-02-2026", "10-02-2026", "10-09-2026", "11-20-2026"};
    static const int accounts[] = {12001002, 12001002, 12001002, 40001009, 10001001};
    static const char* const amounts[] = {"0", "Null", "25", "7.5"};
    for (int i = 0; i < documents; ++i) {
      const std::int64_t tranNo = post({.day = days[any(5)], .lines = {}, .cancelled = any(9) == 0});
      for (int line = any(4); line >= 0; --line)
        write("INSERT INTO SubTransactions (TranNo, AccCode, Desc, Debit, Credit, Balance, Status) VALUES (" +
              std::to_string(tranNo) + ", " + std::to_string(accounts[any(5)]) + ", 'Line " + std::to_string(line) +
              "', " + amounts[any(4)] + ", " + amounts[any(4)] + ", " +
              (any(5) == 0 ? "Null, Null" : std::to_string(any(900)) + ", 'Credit'") + ")");
      if (any(12) == 0) write("UPDATE Transactions SET FYID = 7 WHERE TranNo = " + std::to_string(tranNo));
      if (any(20) == 0) write("UPDATE Transactions SET TranDate = Null WHERE TranNo = " + std::to_string(tranNo));
    }
  }

  // All that is printed: accounts, each with its lines.
  static Rows walked(const LedgersData& ledgers) {
    Rows found;
    const auto joined = [](const printing::ReportRows& row, std::initializer_list<const char*> fields) {
      std::string text;
      for (const char* field : fields) text += store::textOf(row.value(field)) + "|";
      return text;
    };
    for (const auto accounts = ledgers.rows(); accounts->next();) {
      found.push_back(joined(*accounts, {"acccode", "accountname", "opbalance", "opstatus"}));
      for (const auto lines = accounts->children("ChildCmd"); lines->next();)
        found.push_back(joined(*lines, lineFields));
      found.push_back(joined(*accounts, {"clbalance", "clstatus"}));
    }
    return found;
  }

  // The same by one statement, which sums up each account's lines and takes the last balance of all of them.
  Rows byStatement(const LedgersChoice& choice) {
    const std::string filter = choice.period ? frame::periodFilter(*choice.period) : std::string();
    const std::string year = std::to_string(choice.fyid);
    store::Recordset accounts;
    accounts.openShape(
        context->KORDconn,
        "Shape {SELECT MainBal.AccCode, [MainBal].[AccName] AS AccountName, MainBal.OpBalance, MainBal.OpStatus, "
        "Last(IIf(IsNull([Balance]),[OpBalance],[Balance])) AS ClBalance, "
        "Last(IIf(IsNull([Balance]),[OpStatus],[Status])) AS ClStatus FROM (SELECT AccLevel3.AccCode, "
        "AccLevel3.AccName, Sum(IIf(IsNull([debit]),0,[debit])) AS Debits, Sum(IIf(IsNull([credit]),0,[credit])) AS "
        "Credits, [Debits]-[Credits] AS Diff, Abs([diff]) AS OpBalance, IIf([diff]<0,'Credit','Debit') AS OpStatus "
        "FROM AccLevel3 LEFT JOIN [SELECT Transactions.TranDate, Transactions.Cancel, SubTransactions.AccCode, "
        "SubTransactions.Debit, SubTransactions.Credit FROM Transactions INNER JOIN SubTransactions ON "
        "Transactions.TranNo=SubTransactions.TranNo WHERE ((Transactions.TranDate)<" +
            store::dateLiteral(choice.openingBefore) + ") And (Transactions.FYID)=" + year +
            " And (Transactions.Cancel)=No]. AS ABal ON AccLevel3.AccCode = ABal.AccCode GROUP BY AccLevel3.AccCode, "
            "AccLevel3.AccName, AccLevel3.Level2ID, AccLevel3.Level1ID" +
            choice.selection +
            ") as MainBal LEFT JOIN (SELECT SubTransactions.AccCode, Transactions.TranDate, SubTransactions.Serial, "
            "SubTransactions.Balance, SubTransactions.Status FROM Transactions INNER JOIN SubTransactions ON "
            "Transactions.TranNo = SubTransactions.TranNo Where (" +
            filter + "((Transactions.FYID) = " + year +
            ") And ((Transactions.Cancel) = No)) GROUP BY SubTransactions.AccCode, Transactions.TranDate, "
            "SubTransactions.Serial, SubTransactions.Balance, SubTransactions.Status ORDER BY "
            "SubTransactions.AccCode, Transactions.TranDate, SubTransactions.Serial) as SubBal ON MainBal.AccCode = "
            "SubBal.AccCode GROUP BY MainBal.AccCode, [MainBal].[AccName], MainBal.OpBalance, MainBal.OpStatus Order "
            "By MainBal.AccCode} as ParentCmd append ({SELECT Transactions.TranNo, Transactions.TranDate, "
            "[Trantype].[short] & ' ' & [Transactions].[docno] AS TranRefShort, SubTransactions.AccCode, "
            "SubTransactions.Desc, SubTransactions.Debit, SubTransactions.Credit, SubTransactions.Balance, "
            "SubTransactions.Status, SubTransactions.Serial, Transactions.FYID, Transactions.Cancel FROM TranType "
            "INNER JOIN (Transactions INNER JOIN SubTransactions ON Transactions.TranNo = SubTransactions.TranNo) ON "
            "TranType.TranType = Transactions.TranType Where (" +
            filter +
            "(((SubTransactions.Debit)<>0) or ((SubTransactions.Credit)<>0)) AND ((Transactions.FYID) = " + year +
            ") And ((Transactions.Cancel) = No)) ORDER BY Transactions.TranDate, SubTransactions.Serial} as ChildCmd "
            "relate acccode to acccode) as ChildCmd");
    const auto joined = [](const store::Recordset& row, std::initializer_list<const char*> fields) {
      std::string text;
      for (const char* field : fields) text += row.text(field) + "|";
      return text;
    };
    Rows found;
    for (; !accounts.eof(); accounts.moveNext()) {
      found.push_back(joined(accounts, {"acccode", "accountname", "opbalance", "opstatus"}));
      for (store::Recordset lines = accounts.chapter("ChildCmd"); !lines.eof(); lines.moveNext())
        found.push_back(joined(lines, lineFields));
      found.push_back(joined(accounts, {"clbalance", "clstatus"}));
    }
    return found;
  }

  static constexpr auto lineFields = {"tranno", "trandate", "tranrefshort", "acccode", "desc",
                                      "debit",  "credit",   "balance",      "status"};

 private:
  std::mt19937 random_{20261124};
};

TEST_F(LedgersDataTest, AreWhatOneStatementForAllOfThemGives) {
  trade(120);
  const auto day = [](int month, int dayOfMonth) { return text::DateTime::fromCalendar(2026, month, dayOfMonth); };
  const LedgerLengths always = {};
  const LedgerLengths longOnes = {.few = 3, .shortWait = 3, .longWait = 1000, .firstSight = 4, .firstPage = 6};
  std::size_t lines = 0;
  for (const LedgerLengths& lengths : {always, longOnes})
    for (const Period& period : {Period(), Period({day(10, 2), day(11, 30)}), Period({day(10, 2), day(10, 2)}),
                                 Period({day(11, 30), day(10, 2)})})
      for (const std::string& selection :
           {std::string(), ledgersOf::mainType(120), ledgersOf::subType(40001), ledgersOf::range(10001001, 12001002)}) {
        const LedgersChoice choice{.fyid = context->FYID,
                                   .selection = selection,
                                   .openingBefore = day(10, 2),
                                   .period = period,
                                   .lengths = lengths};
        const Rows wanted = byStatement(choice);
        EXPECT_EQ(walked(LedgersData(context->KORDconn, choice)), wanted) << selection;
        lines += wanted.size();
      }
  EXPECT_GT(lines, 2000u);
}

TEST_F(LedgersDataTest, StandAsTheyWereWhenTheyWereOpenedAndHinderNobody) {
  trade(30);
  const LedgersChoice choice{.fyid = context->FYID, .openingBefore = text::DateTime::fromCalendar(2026, 10, 1)};
  const LedgersData opened(context->KORDconn, choice);
  const Rows before = byStatement(choice);
  const auto half = opened.rows();
  for (int account = 0; account < 5; ++account) half->next();
  trade(10);
  addAccount(10001000, "Before all others");
  EXPECT_EQ(walked(opened), before);
  EXPECT_EQ(walked(opened), before) << "a second walk";
  write("DELETE FROM Transactions");
  EXPECT_EQ(walked(opened), before);
  EXPECT_TRUE(half->next());
  EXPECT_EQ(walked(LedgersData(context->KORDconn, choice)), byStatement(choice));
  EXPECT_TRUE(LedgersData(context->KORDconn, {.fyid = 1, .selection = ledgersOf::mainType(77)}).isEmpty());
}

}  // namespace
}  // namespace velmo::reports
