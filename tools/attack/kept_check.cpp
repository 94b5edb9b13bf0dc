#include "attack/kept_check.h"

#include <cmath>
#include <limits>
#include <map>
#include <optional>
#include <tuple>

#include "attack/amount.h"
#include "attack/plain_rows.h"

namespace velmo::attack {
namespace {

// One kind of totals: lines by day or month and by what stands in `subject`.
struct Kind {
  std::string name;
  std::string lines, lineKey, subject;
  std::string in, out;  // the amounts
  bool withInvLedger;   // documents that are in the books of an earlier system do not count
  bool addsLater;       // "<name>Added" says how far the lines are in, and "<name>Years" has whole years
  bool isReceipt;       // by the type of the document as well, of lines with an amount in; null is no amount out
};

const Kind kinds[] = {{"Account", "SubTransactions", "Serial", "AccCode", "Debit", "Credit", false, false, false},
                      {"Stock", "StockFlow", "FlowId", "ItemCode", "StockIn", "StockOut", true, true, false},
                      {"Receipt", "StockFlow", "FlowId", "ItemCode", "StockIn", "ItemValue", true, true, true}};

using Key = std::tuple<std::string, std::string, std::string>;  // year, day or month or "", subject and type

struct Sums {
  std::int64_t lines = 0;
  Amount in, out;
  void add(const Sums& other) {
    lines += other.lines;
    in += other.in;
    out += other.out;
  }
  bool operator==(const Sums&) const = default;
};

using Totals = std::map<Key, Sums>;

// As the file compares texts.
std::string lowerCase(std::string text) {
  for (char& c : text)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return text;
}

// "2026-11" of "2026-11-22": the first seven characters.
std::string monthOf(const std::string& day) {
  std::size_t end = 0;
  for (int characters = 0; characters < 7 && end < day.size() && day[end] != '\0'; ++characters) {
    const bool isLong = static_cast<unsigned char>(day[end++]) >= 0xC0;
    while (isLong && end < day.size() && (static_cast<unsigned char>(day[end]) & 0xC0) == 0x80) ++end;
  }
  return day.substr(0, end);
}

struct Document {
  std::string year, day, type;
};

// Those that count.
std::map<std::int64_t, Document> documentsOf(sqlite3* file, const Kind& kind) {
  std::map<std::int64_t, Document> documents;
  PlainRows rows(file, "SELECT TranNo, FYID, TranDate, Cancel, InvLedger, TranType FROM Transactions");
  const auto isNo = [&](int column) { return rows.isNumber(column) && rows.number(column) == 0; };
  while (rows.next())
    if (!rows.isNull(1) && isNo(3) && (!kind.withInvLedger || isNo(4)) && (!kind.isReceipt || !rows.isNull(5)))
      documents[rows.integer(0)] = {rows.text(1), rows.isNull(2) ? "~" : lowerCase(rows.text(2)), rows.text(5)};
  return documents;
}

std::optional<std::int64_t> lastAdded(sqlite3* file, const Kind& kind) {
  PlainRows rows(file, "SELECT Line FROM " + kind.name + "Added");
  if (!rows.next() || rows.isNull(0)) return std::nullopt;
  return rows.integer(0);
}

// No whole ten-thousandths, or too many of them: such a line stands beside the totals.
bool isApart(double amount) {
  return std::fabs(amount) >= 1e11 || amount != std::round(amount * 1e4) / 1e4;
}

Totals totalsOfLines(sqlite3* file, const Kind& kind) {
  const auto documents = documentsOf(file, kind);
  const auto last = kind.addsLater ? lastAdded(file, kind) : std::numeric_limits<std::int64_t>::max();
  Totals totals;
  if (!last) return totals;
  PlainRows rows(file, "SELECT " + kind.lineKey + ", TranNo, " + kind.subject + ", " + kind.in + ", " + kind.out +
                           " FROM " + kind.lines);
  while (rows.next()) {
    const auto document = documents.find(rows.integer(1));
    if (rows.integer(0) > *last || rows.isNull(1) || document == documents.end() || rows.isNull(2)) continue;
    if (isApart(rows.number(3)) || isApart(rows.number(4))) continue;
    if (kind.isReceipt && (rows.isNull(3) || rows.isNull(4))) continue;
    const std::string type = kind.isReceipt ? " of type " + document->second.type : std::string();
    totals[{document->second.year, document->second.day, lowerCase(rows.text(2)) + type}].add(
        {1, Amount(rows.number(3)), Amount(rows.number(4))});
  }
  return totals;
}

// A whole number of ten-thousandths; what is none agrees with nothing.
Amount keptAmount(const PlainRows& rows, int column) {
  const std::int64_t parts = rows.integer(column);
  return static_cast<double>(parts) == rows.number(column) ? Amount::ofTenThousandths(parts)
                                                           : Amount(std::numeric_limits<double>::infinity());
}

// Of one table, with what is pending.
Totals keptTotals(sqlite3* file, const Kind& kind, const std::string& table, const std::string& time) {
  Totals totals;
  const auto add = [&](const std::string& from, const std::string& timeOf) {
    PlainRows rows(file, "SELECT FYID, " + timeOf + ", " + kind.subject + ", Lines, " + kind.in + ", " + kind.out +
                             (kind.isReceipt ? ", TranType" : "") + " FROM " + from);
    while (rows.next()) {
      const std::string type = kind.isReceipt ? " of type " + rows.text(6) : std::string();
      totals[{rows.text(0), lowerCase(rows.text(1)), lowerCase(rows.text(2)) + type}].add(
          {rows.integer(3), keptAmount(rows, 4), keptAmount(rows, 5)});
    }
  };
  add(kind.name + table, time);
  add(kind.name + "Pending", time == "Month" ? "substr(TranDate, 1, 7)" : time);
  std::erase_if(totals, [](const auto& total) { return total.second == Sums(); });
  return totals;
}

std::string words(const Key& key, const Sums& sums) {
  return std::get<0>(key) + " " + std::get<1>(key) + " " + std::get<2>(key) + ": " + std::to_string(sums.lines) +
         " lines, " + sums.in.text() + ", " + sums.out.text();
}

void compare(const Totals& lines, const Totals& kept, const std::string& table, Problems& flaws) {
  for (const auto& [key, sums] : lines) {
    const auto found = kept.find(key);
    if (found == kept.end())
      flaws.push_back(table + " lacks " + words(key, sums));
    else if (sums != found->second)
      flaws.push_back(table + " has " + words(key, found->second) + " in place of " + words(key, sums));
  }
  for (const auto& [key, sums] : kept)
    if (!lines.contains(key)) flaws.push_back(table + " has without lines " + words(key, sums));
}

}  // namespace

Problems flawsOfKeptTotals(sqlite3* file) {
  Problems flaws;
  for (const Kind& kind : kinds) {
    const Totals days = totalsOfLines(file, kind);
    Totals months, years;
    for (const auto& [key, sums] : days) {
      months[{std::get<0>(key), monthOf(std::get<1>(key)), std::get<2>(key)}].add(sums);
      years[{std::get<0>(key), "", std::get<2>(key)}].add(sums);
    }
    compare(days, keptTotals(file, kind, "Days", "TranDate"), kind.name + "Days", flaws);
    compare(months, keptTotals(file, kind, "Months", "Month"), kind.name + "Months", flaws);
    if (kind.addsLater) compare(years, keptTotals(file, kind, "Years", "''"), kind.name + "Years", flaws);
  }
  return flaws;
}

std::set<std::string> tablesOfKeptTotals() {
  std::set<std::string> tables;
  for (const Kind& kind : kinds)
    for (const char* part : {"Days", "Months", "Years", "Pending", "Added"}) tables.insert(kind.name + part);
  return tables;
}

}  // namespace velmo::attack
