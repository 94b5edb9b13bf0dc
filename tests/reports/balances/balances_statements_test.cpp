#include "reports/balances/balances_statements.h"

#include <gmock/gmock.h>

#include <set>

#include "reports/balances_company.h"

namespace velmo::reports {
namespace {

using test::BalancesCompany;
using Lines = std::vector<std::string>;

class BalancesStatements : public testing::Test, protected BalancesCompany {
 protected:
  static std::string amount(double value) { return store::textOf(std::round(value * 1e6) / 1e6 + 0.0); }
  static const char* side(double balance) { return balance < 0 ? "Credit" : "Debit"; }

  // "12001002|opening|Debit|debits|credits|closing|Credit"
  Lines six(const std::string& statement) {
    Lines lines;
    for (store::Recordset rows(context.KORDconn, statement, store::LockType::ReadOnly); !rows.eof(); rows.moveNext()) {
      EXPECT_EQ(amount(std::abs(rows.number("ODiff"))), amount(rows.number("OBalance")));
      EXPECT_EQ(amount(std::abs(rows.number("CDiff"))), amount(rows.number("CBalance")));
      lines.push_back(rows.text("AccCode") + "|" + amount(rows.number("OBalance")) + "|" + rows.text("OStatus") + "|" +
                      amount(rows.number("Debits")) + "|" + amount(rows.number("Credits")) + "|" +
                      amount(rows.number("CBalance")) + "|" + rows.text("CStatus"));
    }
    return lines;
  }
  Lines sixFromBooks(const BalancePeriod& period, const std::function<bool(std::int64_t)>& chosen) const {
    const auto before = movedUpTo(period.from.addDays(-1));
    Lines lines;
    for (const auto& [account, moved] : movedUpTo(period.to)) {
      const double closing = moved.balance();
      if (!chosen(account) || closing == 0) continue;
      const auto found = before.find(account);
      const Moved opening = found == before.end() ? Moved() : found->second;
      lines.push_back(std::to_string(account) + "|" + amount(std::abs(opening.balance())) + "|" +
                      side(opening.balance()) + "|" + amount(moved.debit - opening.debit) + "|" +
                      amount(moved.credit - opening.credit) + "|" + amount(std::abs(closing)) + "|" + side(closing));
    }
    return lines;
  }
  // "12001002|debit|" or "21001002||credit"
  Lines two(const std::string& statement) {
    Lines lines;
    for (store::Recordset rows(context.KORDconn, statement, store::LockType::ReadOnly); !rows.eof(); rows.moveNext()) {
      EXPECT_NE(store::isNull(rows.value("Debits")), store::isNull(rows.value("Credits"))) << rows.text("AccCode");
      if (amount(rows.number("Diff")) == "0") continue;
      lines.push_back(rows.text("AccCode") + "|" +
                      (store::isNull(rows.value("Debits")) ? "" : amount(rows.number("Debits"))) + "|" +
                      (store::isNull(rows.value("Credits")) ? "" : amount(rows.number("Credits"))));
    }
    return lines;
  }
  Lines twoFromBooks(const text::DateTime& last, const std::function<bool(std::int64_t)>& chosen) const {
    Lines lines;
    for (const auto& [account, moved] : movedUpTo(last)) {
      const double closing = moved.balance();
      if (!chosen(account) || closing == 0) continue;
      lines.push_back(std::to_string(account) + "|" + (closing > 0 ? amount(closing) : "") + "|" +
                      (closing < 0 ? amount(-closing) : ""));
    }
    std::ranges::sort(lines);
    return lines;
  }

  const BalancePeriod periods[7] = {{1, day(1, 1), day(12, 31)},         {1, day(4, 1), day(6, 30)},
                                    {1, day(4, 1), day(4, 1)},           {1, day(1, 1, 2020), day(5, 14)},
                                    {1, day(7, 1), day(3, 31)},  // a period that ends before it begins
                                    {1, day(12, 31), day(12, 31, 2030)}, {3, day(1, 1), day(12, 31)}};
  Lines fromBooks(const BalancePeriod& period, const std::function<bool(std::int64_t)>& chosen) const {
    return period.fyid == 1 ? sixFromBooks(period, chosen) : Lines();
  }
};

TEST_F(BalancesStatements, GiveWhatTheLinesAddUpTo) {
  struct Case {
    AccountChoice choice;
    std::function<bool(std::int64_t)> chosen;
  };
  const Case cases[] = {
      {AllAccounts(), [](std::int64_t) { return true; }},
      {AccountsOfType{120}, [](std::int64_t account) { return account / 100000 == 120; }},
      {AccountsOfSubType{12002}, [](std::int64_t account) { return account / 1000 == 12002; }},
      {AccountRange{11001001, 12001002},
       [](std::int64_t account) { return account >= 11001001 && account <= 12001002; }},
      {AccountRange{12001002, 11001001}, [](std::int64_t) { return false; }},
  };
  for (const BalancePeriod& period : periods)
    for (const Case& one : cases) {
      SCOPED_TRACE(period.from.iso() + " to " + period.to.iso() + ", choice " + std::to_string(one.choice.index()));
      EXPECT_EQ(six(sixColumnBalances(period, one.choice)), fromBooks(period, one.chosen));
      Lines columns = two(twoColumnBalances(period, one.choice));
      std::ranges::sort(columns);
      EXPECT_EQ(columns, period.fyid == 1 ? twoFromBooks(period.to, one.chosen) : Lines());
      if (const auto* range = std::get_if<AccountRange>(&one.choice)) {
        Lines printed = two(twoColumnRangePrint(period, *range));
        std::ranges::sort(printed);
        EXPECT_EQ(printed, columns);
      }
    }
}

TEST_F(BalancesStatements, NarrowCustomersByAllConditionsAtOnce) {
  struct Case {
    std::string accounts;
    std::set<std::int64_t> customers;
  };
  const std::set<std::int64_t> all = {12001002, 12001003, 12002001, 12002002};
  const std::string ofAll = "((OBQry.Level1ID) = 120)";
  const std::string rest =
      " AND ((OBQry.Empid)=6) AND ((OBQry.sectorid)=1) AND ((OBQry.Department) like 'Export') AND "
      "((OBQry.region1id)=7) AND ((OBQry.region2id)=0)";
  const Case cases[] = {
      {ofAll, all},
      {"((OBQry.level2id) = 12002)", {12002001, 12002002}},
      {ofAll + " AND ((OBQry.Empid)=6)", {12001003, 12002001}},
      {ofAll + " AND ((OBQry.sectorid)=2)", {12001003}},
      {ofAll + " AND ((OBQry.Department) like 'export')", {12001003, 12002001}},
      {ofAll + " AND ((OBQry.Department) like " + store::quotedWhole("Sal%") + ")", {}},
      {ofAll + " AND ((OBQry.Department) like " + store::quotedWhole("O'Neil") + ")", {}},
      {ofAll + " AND ((OBQry.region1id)=7)", {12001002, 12002001, 12002002}},
      {ofAll + " AND ((OBQry.region2id)=71)", {12001002}},
      {"((OBQry.level2id) = 12002)" + rest, {12002001}},
      {"((OBQry.level2id) = 12001)" + rest, {}},
  };
  for (const BalancePeriod& period : periods)
    for (const Case& one : cases)
      EXPECT_EQ(six(customerBalances(period, one.accounts)),
                fromBooks(period, [&one](std::int64_t account) { return one.customers.contains(account); }))
          << customerBalances(period, one.accounts);
}

TEST_F(BalancesStatements, KeepVendorsAndCashToThemselves) {
  const auto ofType = [](std::set<std::int64_t> types) {
    return [types](std::int64_t account) { return types.contains(account / 100000); };
  };
  for (const BalancePeriod& period : periods) {
    EXPECT_EQ(six(narrowBalances(period, "((OBQry.Level1ID) = 210)")), fromBooks(period, ofType({210})));
    EXPECT_EQ(six(narrowBalances(period, "((OBQry.level2id) = 12001)")),
              fromBooks(period, [](std::int64_t account) { return account / 1000 == 12001; }));
    EXPECT_EQ(six(narrowBalances(period, "(((OBQry.Level1ID) = 100) Or ((OBQry.Level1ID) = 110))")),
              fromBooks(period, ofType({100, 110})));
  }
}

// A hierarchy as an outline: "=120 3080 Debit", "-12001 ...", then the accounts as the flat statements give them.
class BalancesHierarchy : public BalancesStatements {
 protected:
  Lines outline(const std::string& statement, const std::function<std::string(const store::Recordset&)>& account) {
    Lines lines;
    const auto total = [](const store::Recordset& row) {
      return " " + amount(row.number("TBalance")) + " " + row.text("TStatus");
    };
    store::Recordset types;
    types.openShape(context.KORDconn, statement);
    for (; !types.eof(); types.moveNext()) {
      lines.push_back("=" + types.text("TypeID") + total(types));
      for (store::Recordset subTypes = types.chapter("level2"); !subTypes.eof(); subTypes.moveNext()) {
        lines.push_back("-" + subTypes.text("Level2ID") + total(subTypes));
        for (store::Recordset accounts = subTypes.chapter("level3"); !accounts.eof(); accounts.moveNext())
          if (const std::string line = account(accounts); !line.empty()) lines.push_back(line);
      }
    }
    return lines;
  }
  Lines outlineFromBooks(const BalancePeriod& period, const std::set<std::int64_t>& types,
                         const std::set<std::int64_t>& subTypes, const Lines& accounts) {
    const auto moved = movedUpTo(period.to);
    const auto total = [&moved](std::int64_t group, std::int64_t width, const std::set<std::int64_t>& among) {
      double sum = 0;
      for (const auto& [account, sums] : moved)
        if (account / width == group && (among.empty() || among.contains(account / 1000))) sum += sums.balance();
      return " " + amount(std::abs(sum)) + " " + side(std::round(sum * 1e6));
    };
    Lines lines;
    for (store::Recordset every(context.KORDconn, "select * from AccLevel1 order by TypeID"); !every.eof();
         every.moveNext()) {
      const std::int64_t type = every.integer("TypeID");
      if (!types.empty() && !types.contains(type)) continue;
      lines.push_back("=" + std::to_string(type) + total(type, 100000, subTypes));
      for (store::Recordset below(context.KORDconn,
                                  "select AccLevel2.Level2ID from AccLevel2 inner join AccLevel3 on AccLevel2.Level2ID "
                                  "= AccLevel3.Level2ID where AccLevel2.TypeID=" +
                                      std::to_string(type) +
                                      " group by AccLevel2.Level2ID order by AccLevel2.Level2ID");
           !below.eof(); below.moveNext()) {
        const std::int64_t subType = below.integer("Level2ID");
        if (!subTypes.empty() && !subTypes.contains(subType)) continue;
        lines.push_back("-" + std::to_string(subType) + total(subType, 1000, {}));
        for (const std::string& line : accounts)
          if (line.starts_with(std::to_string(subType))) lines.push_back(line);
      }
    }
    return lines;
  }
};

TEST_F(BalancesHierarchy, PutsTheAccountsUnderTheirTypesWithTheSumsOfThese) {
  struct Case {
    AccountChoice choice;
    std::set<std::int64_t> types, subTypes;
  };
  const Case cases[] = {
      {AllAccounts(), {}, {}}, {AccountsOfType{120}, {120}, {}}, {AccountsOfSubType{12002}, {120}, {12002}}};
  const auto all = [](std::int64_t) { return true; };
  for (const BalancePeriod& period : {periods[0], periods[1], periods[3]})
    for (const Case& one : cases) {
      SCOPED_TRACE(period.from.iso() + ", choice " + std::to_string(one.choice.index()));
      const auto sixLine = [](const store::Recordset& row) {
        if (amount(row.number("CBalance")) == "0") return std::string();
        return row.text("AccCode") + "|" + amount(row.number("OBalance")) + "|" + row.text("OStatus") + "|" +
               amount(row.number("Debits")) + "|" + amount(row.number("Credits")) + "|" +
               amount(row.number("CBalance")) + "|" + row.text("CStatus");
      };
      EXPECT_EQ(outline(sixColumnHierarchy(period, one.choice), sixLine),
                outlineFromBooks(period, one.types, one.subTypes, sixFromBooks(period, all)));
      const auto twoLine = [](const store::Recordset& row) {
        EXPECT_EQ(row.number("Debits"), row.number("Debits2"));
        EXPECT_FALSE(store::isNull(row.value("Debits2")) || store::isNull(row.value("Credits2")));
        if (amount(row.number("Diff")) == "0") return std::string();
        return row.text("AccCode") + "|" + (row.number("Diff") > 0 ? amount(row.number("Debits2")) : "") + "|" +
               (row.number("Diff") < 0 ? amount(row.number("Credits2")) : "");
      };
      EXPECT_EQ(outline(twoColumnHierarchy(period, one.choice), twoLine),
                outlineFromBooks(period, one.types, one.subTypes, twoFromBooks(period.to, all)));
    }
  EXPECT_THROW(sixColumnHierarchy(periods[0], AccountRange{1, 2}), std::logic_error);
}

}  // namespace
}  // namespace velmo::reports
