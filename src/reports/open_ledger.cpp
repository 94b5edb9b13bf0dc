#include "reports/ledger_rows.h"
#include "reports/ledger_statements.h"

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
    const std::string ofAccount = "SubTransactions WHERE AccCode = " + std::to_string(choice_.account);
    const std::int64_t lines = countOf(connection_, "AccCode", ofAccount);
    if (lines <= lengths_.few) return whole(LedgerWalk::OfAccount, broughtForward);
    const std::int64_t documents =
        countOf(connection_, "FYID",
                "Transactions WHERE " + filterOf(choice_.period) + "FYID = " + std::to_string(choice_.fyid));
    if (isQuickerByDay(lines, documents)) return whole(LedgerWalk::OfDays, broughtForward);
    if (lines <= lengths_.shortWait) return whole(LedgerWalk::OfAccount, broughtForward);
    return inTwo(lines, broughtForward);
  }

 private:
  // Or hardly slower, where the lines are too many to be sorted while somebody waits.
  bool isQuickerByDay(std::int64_t lines, std::int64_t documents) const {
    return lines >= (lines > lengths_.longWait ? documents / 2 : documents * 2);
  }

  std::shared_ptr<LedgerRows> whole(LedgerWalk walk, double broughtForward) {
    return std::make_shared<LedgerRows>(rows(filterOf(choice_.period), walk), broughtForward);
  }

  // The first days, so that there is something to see, and then the rest, sorted.
  std::shared_ptr<LedgerRows> inTwo(std::int64_t lines, double broughtForward) {
    const std::optional<ReportPeriod> all = choice_.period ? choice_.period : year();
    if (!all || all->to < all->from) return whole(LedgerWalk::OfAccount, broughtForward);
    const std::int64_t days = all->to.day - all->from.day;
    const text::DateTime last =
        all->from.addDays(static_cast<int>(days * std::min(lengths_.firstSight, lines) / lines));
    const auto beside = [&last](const char* side) {
      return std::string("((Transactions.TranDate) ") + side + " " + store::dateLiteral(last) + ") And ";
    };
    const auto rest = [opener = *this, after = filterOf(choice_.period) + beside(">")] {
      return opener.rows(after, LedgerWalk::OfAccount);
    };
    const std::string upTo = choice_.period ? frame::periodFilter({all->from, last}) : beside("<=");
    return std::make_shared<LedgerRows>(rows(upTo, LedgerWalk::OfDays), broughtForward, rest);
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
    return {connection_, ledgerStatement(choice_.account, choice_.fyid, filter, walk), store::LockType::ReadOnly};
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

}  // namespace velmo::reports
