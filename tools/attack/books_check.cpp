#include "attack/books_check.h"

#include <map>
#include <stdexcept>

#include "attack/amount.h"
#include "attack/kept_check.h"
#include "attack/plain_rows.h"

namespace velmo::attack {
namespace {

constexpr std::int64_t saleInvoice = 32;
const std::set<std::int64_t> typesWithoutLedger = {20, 30, 43, 91, 92, 93, 94, 95};

// One document with all that hangs on it.
struct Parts {
  std::int64_t type = 0, docNo = 0, party = 0, year = 0;
  bool cancelled = false;
  Amount amount, received;  // what the document says that it comes to

  int ledgerLines = 0;
  Amount debits, credits;
  Amount partyDebits, partyCredits;

  std::set<std::int64_t> serials;  // of its item lines
  std::int64_t itemLines = 0, lastSerial = 0;

  int openItems = 0;
  Amount open, paid;
  std::int64_t openDocNo = 0, openParty = 0;
};

using Books = std::map<std::int64_t, Parts>;

Books read(sqlite3* file) {
  Books books;
  PlainRows documents(file,
                      "SELECT TranNo, TranType, DocNo, PartyCode2, FYID, Cancel, TrAmount, Received FROM Transactions");
  while (documents.next()) {
    Parts& parts = books[documents.integer(0)];
    parts.type = documents.integer(1);
    parts.docNo = documents.integer(2);
    parts.party = documents.integer(3);
    parts.year = documents.integer(4);
    parts.cancelled = documents.number(5) != 0;
    parts.amount = Amount(documents.number(6));
    parts.received = Amount(documents.number(7));
  }
  // Lines of no document are a matter of relations.
  const auto owner = [&](const PlainRows& rows) {
    const auto found = rows.isNull(0) ? books.end() : books.find(rows.integer(0));
    return found == books.end() ? nullptr : &found->second;
  };
  PlainRows ledger(file, "SELECT TranNo, Debit, Credit, AccCode FROM SubTransactions");
  while (ledger.next())
    if (Parts* parts = owner(ledger)) {
      ++parts->ledgerLines;
      parts->debits += Amount(ledger.number(1));
      parts->credits += Amount(ledger.number(2));
      if (ledger.integer(3) != parts->party) continue;
      parts->partyDebits += Amount(ledger.number(1));
      parts->partyCredits += Amount(ledger.number(2));
    }
  PlainRows items(file, "SELECT TranNo, Serial FROM StockFlow");
  while (items.next())
    if (Parts* parts = owner(items)) {
      ++parts->itemLines;
      parts->serials.insert(items.integer(1));
      parts->lastSerial = std::max(parts->lastSerial, items.integer(1));
    }
  PlainRows open(file, "SELECT TranNo, DocNo, PartyCode, TrAmount, TotPayment FROM AgingDr");
  while (open.next())
    if (Parts* parts = owner(open)) {
      ++parts->openItems;
      parts->openDocNo = open.integer(1);
      parts->openParty = open.integer(2);
      parts->open += Amount(open.number(3));
      parts->paid += Amount(open.number(4));
    }
  return books;
}

std::string flawOfInvoice(const Parts& parts) {
  if (parts.ledgerLines == 0) return "has no ledger lines";
  if (!parts.partyDebits.isAbout(parts.amount) || !parts.partyCredits.isAbout(parts.received))
    return "comes to " + parts.amount.text() + ", and its party owes " + parts.partyDebits.text();
  if (parts.itemLines != parts.lastSerial || static_cast<std::int64_t>(parts.serials.size()) != parts.itemLines)
    return "lacks item lines or has some twice";
  if (parts.openItems != (parts.cancelled ? 0 : 1)) return "has " + std::to_string(parts.openItems) + " open items";
  if (parts.cancelled) return {};
  if (!parts.open.isAbout(parts.amount) || !parts.paid.isAbout(parts.received))
    return "comes to " + parts.amount.text() + " and its open item to " + parts.open.text();
  if (parts.openDocNo != parts.docNo || parts.openParty != parts.party)
    return "is not the one that its open item names";
  return {};
}

void addFlawsOfDocuments(const Books& books, std::vector<Flaw>& flaws) {
  std::set<std::pair<std::int64_t, std::int64_t>> numbers;  // of a year
  for (const auto& [key, parts] : books) {
    const std::string name = "document " + std::to_string(key) + " ";
    // One without lines owes nothing to anybody.
    if (!typesWithoutLedger.contains(parts.type) && (parts.debits - parts.credits).isHalfCentOrMore())
      flaws.push_back({Flaw::Kind::Balance,
                       name + "has debits of " + parts.debits.text() + " and credits of " + parts.credits.text(), key});
    if (parts.type != saleInvoice) continue;
    if (const std::string flaw = flawOfInvoice(parts); !flaw.empty())
      flaws.push_back({Flaw::Kind::Document, name + flaw, key});
    if (!numbers.insert({parts.year, parts.docNo}).second)
      flaws.push_back({Flaw::Kind::Document, name + "has the number of another one", key});
  }
}

}  // namespace

std::int64_t numberIn(sqlite3* file, const std::string& statement) {
  PlainRows rows(file, statement);
  if (!rows.next()) throw std::runtime_error(statement + ": no row");
  return rows.integer(0);
}

Documents documentsInFile(sqlite3* file) {
  Documents found;
  std::map<std::int64_t, std::int64_t> itemLines;
  PlainRows items(file, "SELECT TranNo FROM StockFlow");
  while (items.next()) ++itemLines[items.integer(0)];
  PlainRows rows(file, "SELECT TranNo, DocNo, TrAmount, Cancel FROM Transactions WHERE TranType = 32");
  while (rows.next())
    found[rows.integer(1)] = {.present = true,
                              .lines = itemLines[rows.integer(0)],
                              .netTotal = rows.number(2),
                              .cancelled = rows.integer(3) != 0};
  return found;
}

std::vector<Flaw> flawsOfBooks(sqlite3* file, Totals totals) {
  std::vector<Flaw> flaws;
  try {
    PlainRows verdicts(file, "PRAGMA integrity_check");
    while (verdicts.next())
      if (verdicts.text(0) != "ok") flaws.push_back({Flaw::Kind::Structure, verdicts.text(0)});
    PlainRows lost(file, "PRAGMA foreign_key_check");
    while (lost.next())
      flaws.push_back({Flaw::Kind::Relation, "a record of " + lost.text(0) + " refers to none of " + lost.text(2)});
    addFlawsOfDocuments(read(file), flaws);
  } catch (const std::runtime_error& unreadable) {
    flaws.push_back({Flaw::Kind::Structure, unreadable.what()});
  }
  if (totals == Totals::Passed) return flaws;
  try {
    for (const std::string& words : flawsOfKeptTotals(file)) flaws.push_back({Flaw::Kind::Total, words});
  } catch (const std::runtime_error& unreadable) {
    flaws.push_back({Flaw::Kind::Total, unreadable.what()});
  }
  return flaws;
}

Problems problemsOfBooks(sqlite3* file) {
  Problems problems;
  for (const Flaw& flaw : flawsOfBooks(file)) problems.push_back(flaw.words);
  return problems;
}

}  // namespace velmo::attack
