#include "attack/kept_check.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <optional>
#include <tuple>
#include <vector>

#include "attack/amount.h"
#include "attack/plain_rows.h"

namespace velmo::attack {
namespace {

// One kind of totals: lines by day or month and by what stands in `subject`.
struct Kind {
  std::string name;
  std::string lines, lineKey, subject;
  std::vector<std::string> amounts;
  bool withInvLedger;      // documents that are in the books of an earlier system do not count
  bool addsLater = true;   // "<name>Added" says how far the lines are in, and "<name>Years" has whole years
  bool byType = false;     // of the document as well
  bool byPlace = false;    // of the line as well, which must have one
  bool isReceipt = false;  // of lines with an amount in; null is no value
  bool counts = false;     // "<amount>Given" says how many lines have an amount
};

const Kind kinds[] = {{.name = "Account",
                       .lines = "SubTransactions",
                       .lineKey = "Serial",
                       .subject = "AccCode",
                       .amounts = {"Debit", "Credit"},
                       .withInvLedger = false,
                       .addsLater = false},
                      {.name = "Stock",
                       .lines = "StockFlow",
                       .lineKey = "FlowId",
                       .subject = "ItemCode",
                       .amounts = {"StockIn", "StockOut"},
                       .withInvLedger = true},
                      {.name = "Place",
                       .lines = "StockFlow",
                       .lineKey = "FlowId",
                       .subject = "ItemCode",
                       .amounts = {"StockIn", "StockOut"},
                       .withInvLedger = true,
                       .byPlace = true},
                      {.name = "Kind",
                       .lines = "StockFlow",
                       .lineKey = "FlowId",
                       .subject = "ItemCode",
                       .amounts = {"StockIn", "StockOut", "ItemValue"},
                       .withInvLedger = false,
                       .byType = true,
                       .counts = true},
                      {.name = "Receipt",
                       .lines = "StockFlow",
                       .lineKey = "FlowId",
                       .subject = "ItemCode",
                       .amounts = {"StockIn", "ItemValue"},
                       .withInvLedger = true,
                       .byType = true,
                       .isReceipt = true}};

std::string listed(const std::vector<std::string>& names, const std::string& ending = "") {
  std::string list;
  for (const std::string& name : names) list += ", " + name + ending;
  return list;
}

using Key = std::tuple<std::string, std::string, std::string>;  // year, day or month or "", subject and type

// What is open of invoices or bills, and what tells one from another.
struct OpenItems {
  std::string name, lines, keys;
  int keyCount;
};

const OpenItems openItems[] = {{"OpenInvoices", "AgingDr", "FYID, PartyCode, DocNo, TranDate", 4},
                               {"OpenBills", "AgingCr", "FYID, PartyCode, DocNo, VendorInvNo, TranDate", 5}};

struct Sums {
  std::int64_t lines = 0;
  std::vector<Amount> amounts;
  std::vector<std::int64_t> given;
  void add(const Sums& other) {
    lines += other.lines;
    amounts.resize(std::max(amounts.size(), other.amounts.size()));
    given.resize(std::max(given.size(), other.given.size()));
    for (std::size_t i = 0; i < other.amounts.size(); ++i) amounts[i] += other.amounts[i];
    for (std::size_t i = 0; i < other.given.size(); ++i) given[i] += other.given[i];
  }
  bool isNothing() const {
    return lines == 0 && std::ranges::all_of(amounts, [](const Amount& amount) { return amount == Amount(); }) &&
           std::ranges::all_of(given, [](std::int64_t number) { return number == 0; });
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
    if (!rows.isNull(1) && isNo(3) && (!kind.withInvLedger || isNo(4)) && (!kind.byType || !rows.isNull(5)))
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
  constexpr int place = 3, first = 4;
  PlainRows rows(file, "SELECT " + kind.lineKey + ", TranNo, " + kind.subject + ", " +
                           (kind.byPlace ? "LocationID" : "0") + listed(kind.amounts) + " FROM " + kind.lines);
  const int amounts = static_cast<int>(kind.amounts.size());
  while (rows.next()) {
    const auto document = documents.find(rows.integer(1));
    if (rows.integer(0) > *last || rows.isNull(1) || document == documents.end() || rows.isNull(2)) continue;
    if (rows.isNull(place)) continue;
    Sums sums{.lines = 1, .amounts = {}, .given = {}};
    bool isPassedOver = false;
    for (int column = first; column < first + amounts; ++column) {
      isPassedOver = isPassedOver || isApart(rows.number(column)) || (kind.isReceipt && rows.isNull(column));
      sums.amounts.emplace_back(rows.number(column));
      if (kind.counts) sums.given.push_back(rows.isNull(column) ? 0 : 1);
    }
    if (isPassedOver) continue;
    const std::string type = kind.byType ? " of type " + document->second.type : std::string();
    const std::string at = kind.byPlace ? " at " + rows.text(place) : std::string();
    totals[{document->second.year, document->second.day, lowerCase(rows.text(2)) + type + at}].add(sums);
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
    constexpr int type = 4, place = 5, first = 6;
    const int amounts = static_cast<int>(kind.amounts.size());
    PlainRows rows(file, "SELECT FYID, " + timeOf + ", " + kind.subject + ", Lines, " +
                             (kind.byType ? "TranType" : "''") + ", " + (kind.byPlace ? "LocationID" : "''") +
                             listed(kind.amounts) + (kind.counts ? listed(kind.amounts, "Given") : "") + " FROM " +
                             from);
    while (rows.next()) {
      Sums sums{.lines = rows.integer(3), .amounts = {}, .given = {}};
      for (int i = 0; i < amounts; ++i) {
        sums.amounts.push_back(keptAmount(rows, first + i));
        if (kind.counts) sums.given.push_back(rows.integer(first + amounts + i));
      }
      const std::string ofType = kind.byType ? " of type " + rows.text(type) : std::string();
      const std::string at = kind.byPlace ? " at " + rows.text(place) : std::string();
      totals[{rows.text(0), lowerCase(rows.text(1)), lowerCase(rows.text(2)) + ofType + at}].add(sums);
    }
  };
  add(kind.name + table, time);
  add(kind.name + "Pending", time == "Month" ? "substr(TranDate, 1, 7)" : time);
  std::erase_if(totals, [](const auto& total) { return total.second.isNothing(); });
  return totals;
}

std::string words(const Key& key, const Sums& sums) {
  std::string amounts;
  for (const Amount& amount : sums.amounts) amounts += ", " + amount.text();
  return std::get<0>(key) + " " + std::get<1>(key) + " " + std::get<2>(key) + ": " + std::to_string(sums.lines) +
         " lines" + amounts;
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

// The items by their keys; of one with lines that stand apart, how many those are is told with the key.
class Items {
 public:
  Items(sqlite3* file, const OpenItems& items) : keyCount_(items.keyCount) {
    PlainRows rows(file, "SELECT " + items.keys + ", " + "TranNo, TrAmount, TotPayment FROM " + items.lines);
    std::set<std::int64_t> counted;
    PlainRows documents(file, "SELECT TranNo, Cancel FROM Transactions");
    while (documents.next())
      if (documents.isNumber(1) && documents.number(1) == 0) counted.insert(documents.integer(0));
    while (rows.next()) {
      if (hasNoKey(rows) || rows.isNull(keyCount_) || !counted.contains(rows.integer(keyCount_))) continue;
      const int due = keyCount_ + 1, settled = keyCount_ + 2;
      const bool apart =
          rows.isNull(due) || rows.isNull(settled) || isApart(rows.number(due)) || isApart(rows.number(settled));
      apart_[keyOf(rows)] += apart ? 1 : 0;
      sums_[keyOf(rows)].add(
          {.lines = 1,
           .amounts = {Amount(apart ? 0 : rows.number(due)), Amount(apart ? 0 : rows.number(settled))},
           .given = {}});
    }
  }
  Totals ofLines() const { return marked(sums_, apart_); }

  Totals kept(sqlite3* file, const OpenItems& items) const {
    Totals sums;
    std::map<Key, std::int64_t> apart;
    PlainRows rows(file, "SELECT " + items.keys + ", Lines, Apart, TrAmount, TotPayment FROM " + items.name);
    while (rows.next()) {
      apart[keyOf(rows)] += rows.integer(keyCount_ + 1);
      sums[keyOf(rows)].add({.lines = rows.integer(keyCount_),
                             .amounts = {keptAmount(rows, keyCount_ + 2), keptAmount(rows, keyCount_ + 3)},
                             .given = {}});
    }
    return marked(sums, apart);
  }

 private:
  bool hasNoKey(const PlainRows& rows) const {
    for (int column = 0; column < keyCount_; ++column)
      if (rows.isNull(column)) return true;
    return false;
  }
  Key keyOf(const PlainRows& rows) const {
    std::string rest;
    for (int column = 1; column < keyCount_; ++column) rest += lowerCase(rows.text(column)) + "|";
    return {rows.text(0), "", rest};
  }
  static Totals marked(const Totals& sums, const std::map<Key, std::int64_t>& apart) {
    Totals all;
    for (const auto& [key, sum] : sums)
      all[{std::get<0>(key), std::to_string(apart.at(key)) + " apart", std::get<2>(key)}] = sum;
    return all;
  }

  int keyCount_;
  Totals sums_;
  std::map<Key, std::int64_t> apart_;
};

}  // namespace

Problems flawsOfKeptTotals(sqlite3* file) {
  Problems flaws;
  for (const OpenItems& items : openItems) {
    const Items lines(file, items);
    compare(lines.ofLines(), lines.kept(file, items), items.name, flaws);
  }
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
  for (const OpenItems& items : openItems) tables.insert(items.name);
  for (const Kind& kind : kinds)
    for (const char* part : {"Days", "Months", "Years", "Pending", "Added"}) tables.insert(kind.name + part);
  return tables;
}

}  // namespace velmo::attack
