#include "reports/ledgers/running_balances.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "frame/report/report_period.h"
#include "store/connection/rewrite_rows.h"
#include "store/recordset/forward_reader.h"
#include "store/recordset/recordset.h"
#include "text/decimal_sum.h"

namespace velmo::reports {
namespace {

constexpr std::int64_t linesBetweenReports = 4096;
constexpr int linesOfPage = 25;  // of the file, or some more
constexpr int mostRounds = 3;    // beside others who never stop writing

// A line of the year; once the balances are known, one that is to be written.
struct Line {
  std::int64_t moment;  // of its document, in seconds
  std::int32_t account;
  std::int32_t serial;
  double debit;  // then the balance behind the line, with its sign
  double credit;
  double stored;  // the balance that it has, with the sign of its side; no number when it has none
};

// In the order of the file, in which it is read quickest: a sum is looked up in no index.
std::string passStatement(int fyid) {
  return "SELECT Transactions.TranNo, Transactions.TranDate, SubTransactions.AccCode, SubTransactions.Debit, "
         "SubTransactions.Credit, SubTransactions.Balance, SubTransactions.Status, SubTransactions.Serial, "
         "Transactions.FYID, Transactions.Cancel FROM Transactions INNER JOIN SubTransactions ON Transactions.TranNo = "
         "SubTransactions.TranNo Where ((((SubTransactions.Debit)<>0) or ((SubTransactions.Credit)<>0)) AND "
         "((Transactions.FYID)+0 =" +
         std::to_string(fyid) + ") And ((Transactions.Cancel) = No)) ORDER BY SubTransactions.Serial";
}

// Tells how far the work is, and remembers when the user wants it stopped.
class Report {
 public:
  explicit Report(const LinesDone& progress) : progress_(progress) {}
  bool goesOn() { return ++done_, staysAwake(); }
  // For work on a line that makes no progress.
  bool staysAwake() { return ++worked_ % linesBetweenReports != 0 || !progress_ || progress_(done_); }

 private:
  const LinesDone& progress_;
  std::int64_t done_ = 0, worked_ = 0;
};

// The days of documents as seconds. Lines of one day come together, mostly.
class Moments {
 public:
  std::int64_t of(std::string_view date) {
    if (date == last_) return moment_;
    last_ = date;
    const auto parsed = text::DateTime::fromIso(date);
    constexpr std::int64_t secondsOfDay = 86400;
    moment_ = parsed ? parsed->day * secondsOfDay + parsed->second : std::numeric_limits<std::int64_t>::min();
    return moment_;
  }

 private:
  std::string last_ = "none yet";
  std::int64_t moment_ = 0;
};

double storedBalance(const store::ForwardReader& lines, int balance, int status) {
  constexpr double none = std::numeric_limits<double>::quiet_NaN();
  if (lines.isNull(balance) || lines.number(balance) < 0) return none;
  const std::string_view side = lines.text(status);
  if (side == "Debit") return lines.number(balance);
  return side == "Credit" ? -lines.number(balance) : none;
}

// Nothing when the work was stopped.
std::optional<std::vector<Line>> readLines(store::Connection& connection, int fyid, Report& report) {
  const store::Recordset counted(connection, "SELECT Count(Serial) AS Lines FROM SubTransactions",
                                 store::LockType::ReadOnly);
  std::vector<Line> all;
  all.reserve(static_cast<std::size_t>(counted.integer("Lines")));
  store::ForwardReader lines(connection, passStatement(fyid));
  const int date = lines.field("TranDate");
  const int account = lines.field("AccCode");
  const int debit = lines.field("Debit");
  const int credit = lines.field("Credit");
  const int stored = lines.field("Balance");
  const int status = lines.field("Status");
  const int serial = lines.field("Serial");
  Moments moments;
  while (lines.next()) {
    all.push_back({.moment = moments.of(lines.text(date)),
                   .account = static_cast<std::int32_t>(lines.integer(account)),
                   .serial = static_cast<std::int32_t>(lines.integer(serial)),
                   .debit = lines.number(debit),
                   .credit = lines.number(credit),
                   .stored = storedBalance(lines, stored, status)});
    if (!report.goesOn()) return std::nullopt;
  }
  return all;
}

bool isRight(double stored, double balance) {
  const bool credit = frame::sideOf(balance) == std::string_view("Credit");
  return std::fabs(stored) == std::fabs(balance) && std::signbit(stored) == credit;
}

// The places of the lines, account by account, in the order of the file each. Nothing when the work was stopped.
std::optional<std::vector<std::uint32_t>> byAccount(const std::vector<Line>& lines, Report& report) {
  std::unordered_map<std::int32_t, std::uint32_t> begins;
  for (const Line& line : lines) {
    ++begins[line.account];
    if (!report.staysAwake()) return std::nullopt;
  }
  std::uint32_t begin = 0;
  for (auto& [account, count] : begins) begin += std::exchange(count, begin);
  std::vector<std::uint32_t> places(lines.size());
  for (std::uint32_t place = 0; place < lines.size(); ++place) {
    places[begins[lines[place].account]++] = place;
    if (!report.staysAwake()) return std::nullopt;
  }
  return places;
}

// Leaves the lines whose stored balance is another one, in the order of the file, so that each of its pages is written
// once. False when the work was stopped.
bool keepChanged(std::vector<Line>& lines, Report& report) {
  std::optional<std::vector<std::uint32_t>> places = byAccount(lines, report);
  if (!places) return false;
  for (auto first = places->begin(); first != places->end();) {
    const std::int32_t account = lines[*first].account;
    const auto end = std::find_if(first, places->end(), [&](std::uint32_t at) { return lines[at].account != account; });
    const auto momentAt = [&](std::uint32_t place) { return lines[place].moment; };
    // Most books are written in the order of their days.
    if (!std::ranges::is_sorted(first, end, {}, momentAt)) std::ranges::stable_sort(first, end, {}, momentAt);
    text::DecimalSum running;
    for (; first != end; ++first) {
      Line& line = lines[*first];
      running += line.debit;
      running -= line.credit;
      line.debit = running.value();
      if (!report.staysAwake()) return false;
    }
  }
  std::erase_if(lines, [](const Line& line) { return isRight(line.stored, line.debit); });
  return true;
}

// What is written together: lines on so many pages of the file at most.
std::span<const Line> stretchOf(std::span<const Line> lines, int pages) {
  std::size_t count = 0;
  std::int32_t page = -1;
  for (; count < lines.size(); ++count) {
    if (lines[count].serial / linesOfPage == page) continue;
    if (--pages < 0) break;
    page = lines[count].serial / linesOfPage;
  }
  return lines.first(count);
}

bool writeStretch(store::Connection& connection, std::span<const Line> lines, Report& report) {
  constexpr std::array<std::string_view, 2> columns{"Balance", "Status"};
  store::Connection::Transaction transaction(connection);
  const bool written = store::rewriteRows(connection, "SubTransactions", columns,
                                          {.count = lines.size(),
                                           .keyOf = [&](std::size_t line) { return lines[line].serial; },
                                           .valueOf = [&](std::size_t line, std::size_t column) -> store::Value {
                                             const double balance = lines[line].debit;
                                             if (column == 0) return std::fabs(balance);
                                             return std::string(frame::sideOf(balance));
                                           },
                                           .goesOn = [&] { return report.goesOn(); }});
  if (!written) return false;
  transaction.commit();
  connection.checkpoint();  // or the log would grow as large as all that is written
  return true;
}

}  // namespace

bool writeRunningBalances(store::Connection& connection, int fyid, const LinesDone& progress, int pagesAtOnce) {
  if (connection.refusesWriting()) return true;  // a damaged file is still printed, with the balances that it has
  Report report(progress);
  for (int round = 0; round < mostRounds; ++round) {
    const std::int64_t documents = connection.generationOf("Transactions");
    std::optional<std::vector<Line>> lines = readLines(connection, fyid, report);
    if (!lines || !keepChanged(*lines, report)) return false;
    for (std::span<const Line> rest = *lines; !rest.empty();) {
      const std::span<const Line> stretch = stretchOf(rest, pagesAtOnce);
      if (!writeStretch(connection, stretch, report)) return false;
      rest = rest.subspan(stretch.size());
    }
    if (lines->empty() || connection.generationOf("Transactions") == documents) break;  // nobody else wrote meanwhile
  }
  return true;
}

}  // namespace velmo::reports
