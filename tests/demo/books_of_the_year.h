#pragma once

#include <gmock/gmock.h>

#include <cmath>

#include "demo/demonstration_folder.h"
#include "demo/own_books.h"
#include "frame/report/report_rows.h"
#include "reports/balances/balances_statements.h"
#include "reports/ledgers/ledger_rows.h"
#include "reports/ledgers/ledger_statements.h"
#include "reports/ledgers/ledgers_data.h"
#include "reports/ledgers/running_balances.h"
#include "schema/company_file.h"
#include "schema/company_schema.h"
#include "store/recordset/recordset.h"
#include "valuation/closing_stock.h"

namespace velmo::reports {

using test::OwnBooks;
using test::Posting;
using Lines = std::vector<std::string>;
using Period = std::optional<frame::ReportPeriod>;

inline constexpr int year = 1;

inline text::DateTime day(int yearNumber, int month, int dayOfMonth) {
  return text::DateTime::fromCalendar(yearNumber, month, dayOfMonth);
}

// "1250 Debit", in cents; an amount of other than whole cents differs from any.
inline std::string sided(double amount, const std::string& side) {
  const double cents = std::round(amount * 100);
  const bool whole = std::abs(amount * 100 - cents) < 1e-3;
  return (whole ? std::to_string(std::llround(cents)) : std::to_string(amount * 100)) + " " + side;
}
inline std::string sided(std::int64_t cents) {
  return std::to_string(std::abs(cents)) + (cents < 0 ? " Credit" : " Debit");
}

inline void compare(const std::string& what, const Lines& wanted, const Lines& found, Lines& differences) {
  const auto [w, f] = std::ranges::mismatch(wanted, found);
  if (w == wanted.end() && f == found.end()) return;
  differences.push_back(what + ", " + std::to_string(w - wanted.begin()) + ": wanted " +
                        (w == wanted.end() ? "nothing" : *w) + ", found " + (f == found.end() ? "nothing" : *f));
}

// A copy of the demonstration company, and the books that are kept from its bare documents. Each comparison gives what
// differs, account by account or document by document.
class BooksOfTheYear : public testing::Test {
 protected:
  BooksOfTheYear() : folder_(test::freshFolder("books")) {
    std::filesystem::create_directories(folder_);
    std::filesystem::copy(test::demonstrationFolder(), folder_, std::filesystem::copy_options::recursive);
    connection.open(schema::connectionStringFor(test::companyFile(folder_)));
    plain.emplace(test::companyFile(folder_));
    own = test::workOut(*plain, false);
  }
  ~BooksOfTheYear() override {
    plain.reset();
    connection.close();
    std::filesystem::remove_all(folder_);
  }

  // The ledger lines of each document.
  Lines inDocuments() {
    std::map<std::int64_t, Lines> found;
    test::PlainRows rows(*plain,
                         "SELECT TranNo, AccCode, Debit, Credit FROM SubTransactions WHERE coalesce(Debit, 0) <> 0 OR "
                         "coalesce(Credit, 0) <> 0 ORDER BY TranNo, Serial");
    while (rows.next())
      found[rows.integer(0)].push_back(
          rows.text(1) + " " +
          (rows.text(3).empty() ? sided(rows.number(2), "Debit") : sided(rows.number(3), "Credit")));
    Lines differences;
    for (const auto& [tranNo, postings] : own.documents) {
      Lines wanted;
      for (const Posting& posting : postings)
        wanted.push_back(std::to_string(posting.account) + " " + sided(posting.amount));
      compare("document " + std::to_string(tranNo), wanted, found[tranNo], differences);
      found.erase(tranNo);
    }
    for (const auto& [tranNo, lines] : found) compare("document " + std::to_string(tranNo), {}, lines, differences);
    return differences;
  }

  // The ledger of every account of the chart as its screen shows it, of the year and of two periods, one of which
  // ends before it begins.
  Lines inLedgers(const LedgerLengths& asLengths = {}) {
    lengths_ = asLengths;
    Lines differences;
    const frame::ReportPeriod summer{day(2026, 6, 10), day(2026, 9, 18)};
    const Period periods[] = {{}, summer, frame::ReportPeriod{summer.to, summer.from}};
    for (store::Recordset accounts(connection, "select AccCode from AccLevel3 order by AccCode"); !accounts.eof();
         accounts.moveNext())
      for (const Period& period : periods) {
        const std::int64_t account = accounts.integer("AccCode");
        compare("ledger " + std::to_string(account) + (period ? " from " + period->from.iso() : ""),
                wantedLedger(account, period), shownLedger(account, period), differences);
      }
    return differences;
  }

  // The ledgers of all accounts as they are printed, with what is brought forward and the balance at the end.
  Lines inLedgersOnPaper(const frame::ReportPeriod& period) {
    Lines differences;
    const LedgersData ledgers(connection, {.fyid = year, .openingBefore = period.from, .period = period});
    for (const auto accounts = ledgers.rows(); accounts->next();) {
      const std::int64_t account = store::integerOf(accounts->value("AccCode"));
      const auto balance = [&accounts](const char* amount, const char* side) {
        return sided(store::numberOf(accounts->value(amount)), store::textOf(accounts->value(side)));
      };
      Lines found = {balance("OpBalance", "OpStatus"), balance("ClBalance", "ClStatus")};
      for (const auto lines = accounts->children("ChildCmd"); lines->next();)
        found.push_back(shownLine(store::dateOf(lines->value("TranDate")), store::textOf(lines->value("TranNo")),
                                  lines->value("Debit"), lines->value("Credit"),
                                  store::numberOf(lines->value("Balance")), store::textOf(lines->value("Status"))));
      Lines wanted = wantedLedger(account, period);
      wanted.insert(wanted.begin(),
                    {sided(own.balance(account, period.from.day)), sided(own.balance(account, period.to.day + 1))});
      compare("printed ledger " + std::to_string(account), wanted, found, differences);
    }
    return differences;
  }

  // The balances that the printed ledgers take from the lines.
  Lines inStoredBalances() {
    std::map<std::int64_t, Lines> found;
    test::PlainRows rows(*plain,
                         "SELECT AccCode, TranNo, SubTransactions.Balance, Status FROM SubTransactions JOIN "
                         "Transactions USING (TranNo) WHERE Cancel = 0 AND FYID = 1 AND (Debit <> 0 OR Credit <> 0) "
                         "ORDER BY TranDate, Serial");
    while (rows.next()) found[rows.integer(0)].push_back(rows.text(1) + ": " + sided(rows.number(2), rows.text(3)));
    Lines differences;
    for (const auto& [account, postings] : own.ledgers) {
      Lines wanted;
      std::int64_t balance = 0;
      for (const Posting& posting : postings)
        wanted.push_back(std::to_string(posting.tranNo) + ": " + sided(balance += posting.amount));
      compare("stored balances of " + std::to_string(account), wanted, found[account], differences);
      found.erase(account);
    }
    for (const auto& [account, lines] : found) compare("stored balances", {}, lines, differences);
    return differences;
  }

  // Both forms of the trial balance, after the closing stock has been counted as their screen does.
  Lines inTrialBalance(const BalancePeriod& period) {
    valuation::postClosingStock(connection, year, period.to);
    own = test::workOut(*plain, true);
    Lines wantedSix, wantedTwo, differences;
    for (const auto& [account, postings] : own.ledgers) {
      std::int64_t debits = 0, credits = 0;
      for (const Posting& posting : postings)
        if (posting.day >= period.from.day && posting.day <= period.to.day)
          (posting.amount > 0 ? debits : credits) += std::abs(posting.amount);
      const std::int64_t opening = own.balance(account, period.from.day);
      const std::int64_t closing = own.balance(account, period.to.day + 1);
      if (closing == 0) continue;
      const std::string name = std::to_string(account) + " ";
      wantedSix.push_back(name + sided(opening) + ", " + sided(debits) + ", " + sided(-credits) + ", " +
                          sided(closing));
      wantedTwo.push_back(name + sided(closing));
    }
    const std::string until = " until " + period.to.iso();
    compare("six columns" + until, wantedSix, sixColumns(period, differences), differences);
    compare("two columns" + until, wantedTwo, twoColumns(period, differences), differences);
    return differences;
  }

  // All of them, the trial balance at five days.
  Lines everywhere() {
    Lines differences;
    const auto add = [&differences](const Lines& more) {
      differences.insert(differences.end(), more.begin(), more.end());
    };
    const BalancePeriod periods[] = {{year, day(2026, 1, 1), day(2025, 12, 31)},
                                     {year, day(2025, 12, 31), day(2026, 6, 15)},
                                     {year, day(2026, 7, 1), day(2026, 7, 31)},
                                     {year, day(2026, 9, 30), day(2026, 9, 30)},
                                     {year, day(2026, 1, 1), day(2026, 11, 22)}};
    for (const BalancePeriod& period : periods) add(inTrialBalance(period));
    EXPECT_THAT(own.oddities, testing::IsEmpty());
    writeRunningBalances(connection, year);
    add(inDocuments());
    add(inLedgers());
    add(inLedgers({.few = 0, .shortWait = 0, .longWait = 500, .firstSight = 10}));  // as if they were long
    add(inStoredBalances());
    for (const auto& [from, to] : {std::pair(day(2025, 12, 1), day(2026, 12, 31)), {day(2026, 7, 1), day(2026, 7, 9)}})
      add(inLedgersOnPaper({from, to}));
    return differences;
  }

  store::Connection connection{schema::companyCatalog()};
  std::optional<test::PlainFile> plain;
  OwnBooks own;

 private:
  Lines wantedLedger(std::int64_t account, const Period& period) const {
    Lines lines;
    const auto ledger = own.ledgers.find(account);
    if (ledger == own.ledgers.end()) return lines;
    std::int64_t balance = period ? own.balance(account, period->from.day) : 0;
    for (const Posting& posting : ledger->second)
      if (!period || (posting.day >= period->from.day && posting.day <= period->to.day))
        lines.push_back(std::to_string(posting.day) + " " + std::to_string(posting.tranNo) + ": " +
                        sided(posting.amount) + ", then " + sided(balance += posting.amount));
    return lines;
  }
  static std::string shownLine(const text::DateTime& date, const std::string& tranNo, const store::Value& debit,
                               const store::Value& credit, double balance, const std::string& side) {
    const bool isDebit = store::isNull(credit);
    return std::to_string(date.day) + " " + tranNo + ": " +
           sided(store::numberOf(isDebit ? debit : credit), isDebit ? "Debit" : "Credit") + ", then " +
           sided(balance, side);
  }
  Lines shownLedger(std::int64_t account, const Period& period) {
    double before = 0;
    if (period) {
      const store::Recordset rows(connection, broughtForwardStatement(account, year, period->from));
      if (!rows.isEmpty()) before = rows.number("obalance");
    }
    const std::shared_ptr<LedgerRows> opened =
        openLedger(connection, {.account = account, .fyid = year, .period = period}, before, lengths_);
    LedgerRows& rows = *opened;
    while (rows.hasMore()) rows.read(500);
    const auto value = [&rows](std::int64_t row, const char* name) { return rows.value(row, rows.field(name)); };
    Lines lines;
    for (std::int64_t row = 0; row < rows.ready(); ++row)
      lines.push_back(shownLine(store::dateOf(value(row, "TranDate")), store::textOf(value(row, "TranNo")),
                                value(row, "Debit"), value(row, "Credit"), store::numberOf(value(row, "Balance")),
                                store::textOf(value(row, "Status"))));
    return lines;
  }

  Lines sixColumns(const BalancePeriod& period, Lines& differences) {
    frame::RecordsetRows rows = balances(sixColumnBalances(period, AllAccounts()));
    const auto value = [&rows](std::int64_t row, const char* name) { return rows.value(row, rows.field(name)); };
    const auto figure = [&value](std::int64_t row, const char* name, const char* side) {
      return sided(store::numberOf(value(row, name)), store::textOf(value(row, side)));
    };
    Lines lines;
    text::DecimalSum sum;
    for (std::int64_t row = 0; row < rows.ready(); ++row) {
      sum += store::numberOf(value(row, "CDiff"));
      const double credits = store::numberOf(value(row, "Credits"));
      lines.push_back(store::textOf(value(row, "AccCode")) + " " + figure(row, "OBalance", "OStatus") + ", " +
                      sided(store::numberOf(value(row, "Debits")), "Debit") + ", " +
                      sided(credits, credits == 0 ? "Debit" : "Credit") + ", " + figure(row, "CBalance", "CStatus"));
    }
    if (sum.value() != 0) differences.push_back("six columns do not balance: " + std::to_string(sum.value()));
    return lines;
  }
  Lines twoColumns(const BalancePeriod& period, Lines& differences) {
    frame::RecordsetRows rows = balances(twoColumnBalances(period, AllAccounts()));
    Lines lines;
    text::DecimalSum sums[2];
    for (std::int64_t row = 0; row < rows.ready(); ++row) {
      const store::Value debit = rows.value(row, rows.field("Debits"));
      const store::Value credit = rows.value(row, rows.field("Credits"));
      sums[0] += store::numberOf(debit);
      sums[1] += store::numberOf(credit);
      lines.push_back(
          store::textOf(rows.value(row, rows.field("AccCode"))) + " " +
          (store::isNull(credit) ? sided(store::numberOf(debit), "Debit") : sided(store::numberOf(credit), "Credit")));
    }
    if (sums[0].value() != sums[1].value() || sums[0].value() <= 0) differences.push_back("two columns do not balance");
    std::ranges::sort(lines);
    return lines;
  }
  frame::RecordsetRows balances(const std::string& statement) {
    frame::RecordsetRows rows(store::Recordset(connection, statement, store::LockType::ReadOnly));
    while (rows.hasMore()) rows.read(500);
    return rows;
  }

  std::filesystem::path folder_;
  LedgerLengths lengths_;
};

}  // namespace velmo::reports
