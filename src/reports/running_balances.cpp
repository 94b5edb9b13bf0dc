#include "reports/running_balances.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "frame/report_period.h"
#include "store/forward_reader.h"
#include "store/repeated_write.h"

namespace velmo::reports {
namespace {

constexpr std::int64_t linesBetweenReports = 4096;

// A line whose stored balance is another one.
struct Change {
  std::int64_t serial;
  double balance;  // with its sign
};

std::string passStatement(int fyid) {
  return "SELECT Transactions.TranNo, Transactions.TranDate, SubTransactions.AccCode, SubTransactions.Debit, "
         "SubTransactions.Credit, SubTransactions.Balance, SubTransactions.Status, SubTransactions.Serial, "
         "Transactions.FYID, Transactions.Cancel FROM Transactions INNER JOIN SubTransactions ON Transactions.TranNo = "
         "SubTransactions.TranNo Where ((((SubTransactions.Debit)<>0) or ((SubTransactions.Credit)<>0)) AND "
         "((Transactions.FYID) =" +
         std::to_string(fyid) +
         ") And ((Transactions.Cancel) = No)) ORDER BY SubTransactions.AccCode, Transactions.TranDate, "
         "SubTransactions.Serial";
}

// Tells how far the work is, and remembers when the user wants it stopped.
class Report {
 public:
  explicit Report(const LinesDone& progress) : progress_(progress) {}
  bool goesOn() { return ++done_ % linesBetweenReports != 0 || !progress_ || progress_(done_); }

 private:
  const LinesDone& progress_;
  std::int64_t done_ = 0;
};

// False when the work was stopped.
bool findChanges(store::Connection& connection, int fyid, Report& report, std::vector<Change>& changes) {
  store::ForwardReader lines(connection, passStatement(fyid));
  const int account = lines.field("AccCode");
  const int debit = lines.field("Debit");
  const int credit = lines.field("Credit");
  const int stored = lines.field("Balance");
  const int status = lines.field("Status");
  const int serial = lines.field("Serial");
  std::int64_t present = 0;
  double balance = 0;
  for (bool first = true; lines.next(); first = false) {
    if (first || lines.integer(account) != present) balance = 0;
    present = lines.integer(account);
    balance += lines.number(debit) - lines.number(credit);
    const bool kept = !lines.isNull(stored) && lines.number(stored) == std::fabs(balance) &&
                      lines.text(status) == frame::sideOf(balance);
    if (!kept) changes.push_back({lines.integer(serial), balance});
    if (!report.goesOn()) return false;
  }
  return true;
}

}  // namespace

bool writeRunningBalances(store::Connection& connection, int fyid, const LinesDone& progress) {
  Report report(progress);
  store::Connection::Transaction transaction(connection);
  std::vector<Change> changes;
  if (!findChanges(connection, fyid, report, changes)) return false;
  // In the order of the file, so that each of its pages is written once.
  std::ranges::sort(changes, {}, &Change::serial);
  store::RepeatedWrite write(connection, "UPDATE SubTransactions SET Balance = 0.5, Status = 'Debit' WHERE Serial = 1",
                             3);
  for (const Change& change : changes) {
    write.run(std::array<store::Value, 3>{std::fabs(change.balance), std::string(frame::sideOf(change.balance)),
                                          change.serial});
    if (!report.goesOn()) return false;
  }
  transaction.commit();
  return true;
}

}  // namespace velmo::reports
