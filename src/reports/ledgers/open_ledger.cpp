#include "reports/ledgers/ledger_rows.h"
#include "reports/ledgers/ledger_statements.h"
#include "store/recordset/forward_reader.h"

namespace velmo::reports {
namespace {

using frame::ReportPeriod;

std::int64_t countOf(store::Connection& connection, const std::string& column, const std::string& from) {
  return store::Recordset(connection, "SELECT Count(" + column + ") AS Found FROM " + from, store::LockType::ReadOnly)
      .integer("Found");
}

std::string filterOf(const std::optional<ReportPeriod>& period) {
  return period ? frame::periodFilter(*period) : std::string();
}

class LedgerOpener {
 public:
  LedgerOpener(store::Connection& connection, const LedgerChoice& choice, const LedgerLengths& lengths)
      : connection_(connection), choice_(choice), lengths_(lengths) {}

  std::shared_ptr<LedgerRows> open(double broughtForward) {
    const std::int64_t lines = countOf(connection_, "AccCode", ofAccount());
    const std::optional<LedgerWalk> walk = quickWalk(lines);
    return walk ? whole(*walk, broughtForward) : inTwo(lines, broughtForward);
  }

  std::string evenStatement() const {
    const std::string lines = "SELECT AccCode FROM " + ofAccount();
    const std::int64_t counted = countUpTo(lengths_.shortWait + 1, lines);
    const std::optional<LedgerWalk> walk = counted > lengths_.shortWait ? std::nullopt : quickWalk(counted);
    return statement(filterOf(choice_.period), walk.value_or(LedgerWalk::OfDays));
  }

 private:
  std::string ofAccount() const { return "SubTransactions WHERE AccCode = " + std::to_string(choice_.account); }

  // Counts no further than it must.
  std::int64_t countUpTo(std::int64_t most, const std::string& select) const {
    std::int64_t counted = 0;
    store::ForwardReader rows(connection_, select);
    while (counted < most && rows.next()) ++counted;
    return counted;
  }

  // One in which nobody waits for the first line; nothing when there is none.
  std::optional<LedgerWalk> quickWalk(std::int64_t lines) const {
    if (lines <= lengths_.few) return LedgerWalk::OfAccount;
    if (isQuickerByDay(lines)) return LedgerWalk::OfDays;
    if (lines <= lengths_.shortWait) return LedgerWalk::OfAccount;
    return std::nullopt;
  }

  // Or hardly slower, where the lines are too many to be sorted while somebody waits.
  bool isQuickerByDay(std::int64_t lines) const {
    return !hasMoreDocuments(lines > lengths_.longWait ? lines * 2 : lines / 2);
  }

  bool hasMoreDocuments(std::int64_t number) const {
    return countUpTo(number + 1, "SELECT FYID FROM Transactions WHERE " + filterOf(choice_.period) +
                                     "FYID = " + std::to_string(choice_.fyid)) > number;
  }

  std::shared_ptr<LedgerRows> whole(LedgerWalk walk, double broughtForward) {
    return std::make_shared<LedgerRows>(rows(filterOf(choice_.period), walk), broughtForward);
  }

  // The first days, so that there is something to see, and then the rest, sorted.
  std::shared_ptr<LedgerRows> inTwo(std::int64_t lines, double broughtForward) {
    const std::optional<ReportPeriod> all = choice_.period ? choice_.period : year();
    if (!all || all->to < all->from) return whole(LedgerWalk::OfAccount, broughtForward);
    const auto days = static_cast<int>(all->to.day - all->from.day);
    auto first = static_cast<int>(days * std::min(lengths_.firstSight, lines) / lines);
    store::Recordset begin = upTo(all->from, first);
    while (begin.fetchedCount() < lengths_.firstPage && first < days / 16) {  // a quiet time
      first = first * 2 + 1;
      begin = upTo(all->from, first);
    }
    const std::string after = filterOf(choice_.period) + beside(">", all->from.addDays(first));
    const auto rest = [opener = *this, after] { return opener.rows(after, LedgerWalk::OfAccount); };
    return std::make_shared<LedgerRows>(begin, broughtForward, rest);
  }

  static std::string beside(const char* side, const text::DateTime& day) {
    return std::string("((Transactions.TranDate) ") + side + " " + store::dateLiteral(day) + ") And ";
  }

  store::Recordset upTo(const text::DateTime& from, int days) const {
    const text::DateTime last = from.addDays(days);
    return rows(choice_.period ? frame::periodFilter({from, last}) : beside("<=", last), LedgerWalk::OfDays);
  }

  // From the first to the last document of the year; nothing when one of them has no date.
  std::optional<ReportPeriod> year() {
    const std::string ofYear = "Transactions WHERE FYID = " + std::to_string(choice_.fyid);
    if (countOf(connection_, "FYID", ofYear + " AND TranDate Is Null") > 0) return std::nullopt;
    const auto end = [&](const char* function) {
      const store::Recordset row(connection_, std::string("SELECT ") + function + "(TranDate) AS Found FROM " + ofYear,
                                 store::LockType::ReadOnly);
      return store::dateOf(row.value("Found")).date();
    };
    return ReportPeriod{end("Min"), end("Max")};
  }

  store::Recordset rows(const std::string& filter, LedgerWalk walk) const {
    return {connection_, statement(filter, walk), store::LockType::ReadOnly};
  }

  std::string statement(const std::string& filter, LedgerWalk walk) const {
    return ledgerStatement(choice_.account, choice_.fyid, filter, walk, choice_.lines);
  }

  store::Connection& connection_;
  LedgerChoice choice_;
  LedgerLengths lengths_;
};

}  // namespace

std::shared_ptr<LedgerRows> openLedger(store::Connection& connection, const LedgerChoice& choice, double broughtForward,
                                       const LedgerLengths& lengths) {
  return LedgerOpener(connection, choice, lengths).open(broughtForward);
}

std::string evenLedgerStatement(store::Connection& connection, const LedgerChoice& choice,
                                const LedgerLengths& lengths) {
  return LedgerOpener(connection, choice, lengths).evenStatement();
}

}  // namespace velmo::reports
