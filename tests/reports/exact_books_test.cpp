#include <gmock/gmock.h>
#include <sqlite3.h>

#include <cmath>
#include <map>
#include <random>
#include <set>

#include "frame/items/item_history.h"
#include "frame/posting/party_balance.h"
#include "reports/balances/balances_statements.h"
#include "reports/balances_company.h"
#include "reports/ledgers/ledger_rows.h"
#include "reports/ledgers/ledgers_data.h"
#include "reports/ledgers/running_balances.h"
#include "store/sqlite/kept_totals.h"
#include "support/exact_decimal.h"
#include "vouchers/settlement/pending_items.h"

namespace velmo::reports {
namespace {

using Lines = std::vector<std::string>;

struct Document {
  text::DateTime day;
  bool cancelled = false;
};
struct LedgerLine {
  std::int64_t tranNo, account;
  double debit, credit;
};
struct ItemLine {
  std::int64_t tranNo;
  std::string item;
  double in, out;
};
struct AgingLine {
  std::int64_t tranNo, invoice, party;
  std::string day;  // of the invoice
  int type;
  double invoiced, paid;
};

double difference(const test::ExactDecimal& one, const test::ExactDecimal& other) {
  test::ExactDecimal sum;
  sum += one.value();
  sum -= other.value();
  return sum.value();
}

std::string withSide(double balance) {
  return store::textOf(std::fabs(balance)) + (balance < 0 ? " Credit" : " Debit");
}

// Books that another program writes while ours has them open, and what they hold as the test knows it.
class ExactBooks : public testing::Test, protected test::BalancesCompany {
 protected:
  ExactBooks() {
    run("DELETE FROM Transactions");
    EXPECT_EQ(SQLITE_OK, sqlite3_open("Uninstall/Uninstall.MDB", &other_));
    write("PRAGMA foreign_keys = ON");
  }
  ~ExactBooks() override { sqlite3_close(other_); }

  template <class... Values>
  std::int64_t write(const std::string& sql, const Values&... values) {
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(SQLITE_OK, sqlite3_prepare_v2(other_, sql.c_str(), -1, &statement, nullptr)) << sqlite3_errmsg(other_);
    int index = 0;
    (bind(statement, ++index, values), ...);
    while (sqlite3_step(statement) == SQLITE_ROW) {
    }
    EXPECT_EQ(SQLITE_OK, sqlite3_finalize(statement)) << sql << ": " << sqlite3_errmsg(other_);
    return sqlite3_last_insert_rowid(other_);
  }

  std::int64_t below(std::int64_t limit) { return std::uniform_int_distribution<std::int64_t>(0, limit - 1)(random_); }
  // Up to fifteen digits, four of them behind the point.
  double amount() {
    static constexpr std::array<std::int64_t, 4> limits{1000, 10'000'000, 1'000'000'000'000, 1'000'000'000'000'000};
    static constexpr std::array<double, 5> tens{1, 10, 100, 1000, 10000};
    const auto digits = static_cast<double>(below(limits[static_cast<std::size_t>(below(large ? 4 : 3))]));
    return (below(9) == 0 ? -1 : 1) * digits / tens[static_cast<std::size_t>(below(5))];
  }
  double amountOrNone() { return below(3) == 0 ? 0 : amount(); }
  std::int64_t account() { return accounts_[static_cast<std::size_t>(below(3))]; }
  std::string item() { return below(2) == 0 ? "A1" : "B2"; }
  text::DateTime anyDay() { return day(1, 1).addDays(static_cast<int>(below(300))); }
  template <class Rows>
  auto anyOf(Rows& rows) {
    return std::next(rows.begin(), below(static_cast<std::int64_t>(rows.size())));
  }

  std::int64_t addDocument(int type) {
    const Document document{.day = anyDay(), .cancelled = below(8) == 0};
    const std::int64_t tranNo =
        write("INSERT INTO Transactions (DocNo, TranType, TranDate, FYID, Cancel, InvLedger) VALUES (1, ?, ?, 1, ?, 0)",
              std::int64_t{type}, document.day.iso(), std::int64_t{document.cancelled ? -1 : 0});
    documents_[tranNo] = document;
    return tranNo;
  }
  void addLedgerLine(std::int64_t tranNo, std::int64_t accCode, double debit, double credit) {
    const std::int64_t serial =
        write("INSERT INTO SubTransactions (TranNo, AccCode, Debit, Credit) VALUES (?, ?, nullif(?, 0), nullif(?, 0))",
              tranNo, accCode, debit, credit);
    ledger_[serial] = {tranNo, accCode, debit, credit};
  }
  void addItemLine(std::int64_t tranNo) {
    const ItemLine line{.tranNo = tranNo, .item = item(), .in = amountOrNone(), .out = amountOrNone()};
    const std::int64_t flowId =
        write("INSERT INTO StockFlow (TranNo, ItemCode, StockIn, StockOut) VALUES (?, ?, nullif(?, 0), nullif(?, 0))",
              tranNo, line.item, line.in, line.out);
    items_[flowId] = line;
  }
  void addAgingLine(const AgingLine& line) {
    const std::int64_t serial = write(
        "INSERT INTO AgingDr (TranNo, DocNo, TranDate, PartyCode, TranType, TrAmount, TotPayment, FYID) VALUES (?, ?, "
        "?, ?, ?, ?, ?, 1)",
        line.tranNo, line.invoice, line.day, line.party, std::int64_t{line.type}, line.invoiced, line.paid);
    aging_[serial] = line;
  }

  void addInvoice() {
    const std::int64_t tranNo = addDocument(32);
    const std::int64_t party = accounts_[static_cast<std::size_t>(below(2))];
    const double total = std::fabs(amount());
    addLedgerLine(tranNo, party, total, 0);
    addLedgerLine(tranNo, 40001001, 0, total);
    for (std::int64_t line = below(3); line > 0; --line) addItemLine(tranNo);
    addAgingLine({tranNo, tranNo, party, documents_[tranNo].day.iso(), 32, total, 0});
  }
  // Pays an invoice, often to its last digit, in one amount or two.
  void addReceipt() {
    if (aging_.empty()) return addInvoice();
    const AgingLine paid = anyOf(aging_)->second;
    const double open = openAmount(paid);
    const double part = below(2) == 0 ? amount() : std::round(open * 50) / 100;
    test::ExactDecimal rest;
    rest += open;
    rest -= part;
    for (const double sum : {part, rest.value()}) {
      const std::int64_t tranNo = addDocument(38);
      addLedgerLine(tranNo, paid.party, 0, sum);
      addLedgerLine(tranNo, 11001001, sum, 0);
      addAgingLine({tranNo, paid.invoice, paid.party, paid.day, 38, 0, sum});
    }
  }
  void addJournal() {
    const std::int64_t tranNo = addDocument(29);
    for (std::int64_t line = below(4); line >= 0; --line)
      addLedgerLine(tranNo, account(), amountOrNone(), amountOrNone());
  }

  void changeALine() {
    if (!ledger_.empty()) {
      auto& [serial, line] = *anyOf(ledger_);
      line.debit = amountOrNone();
      line.account = account();
      write("UPDATE SubTransactions SET Debit = ?, AccCode = ? WHERE Serial = ?", line.debit, line.account, serial);
    }
    if (!items_.empty()) {
      auto& [flowId, line] = *anyOf(items_);
      line.in = amountOrNone();
      line.item = item();
      write("UPDATE StockFlow SET StockIn = ?, ItemCode = ? WHERE FlowId = ?", line.in, line.item, flowId);
    }
  }
  // A bar code in the place of an amount, and what was meant.
  void mistype() {
    if (ledger_.empty()) return;
    auto& [serial, line] = *anyOf(ledger_);
    for (const double typed : {5901234123457.0, 99999999999999.0, amount()}) {
      line.credit = typed;
      write("UPDATE SubTransactions SET Credit = ? WHERE Serial = ?", typed, serial);
    }
  }
  void removeALine() {
    if (ledger_.empty()) return;
    const auto line = anyOf(ledger_);
    write("DELETE FROM SubTransactions WHERE Serial = ?", line->first);
    ledger_.erase(line);
  }
  void cancelADocument() {
    if (documents_.empty()) return;
    auto& [tranNo, document] = *anyOf(documents_);
    document.cancelled = !document.cancelled;
    write("UPDATE Transactions SET Cancel = -1 - Cancel WHERE TranNo = ?", tranNo);
  }
  void moveADocument() {
    if (documents_.empty()) return;
    auto& [tranNo, document] = *anyOf(documents_);
    document.day = anyDay();
    write("UPDATE Transactions SET TranDate = ? WHERE TranNo = ?", document.day.iso(), tranNo);
  }
  void deleteADocument() {
    if (documents_.empty()) return;
    const std::int64_t tranNo = anyOf(documents_)->first;
    write("DELETE FROM Transactions WHERE TranNo = ?", tranNo);
    documents_.erase(tranNo);
    const auto ofDocument = [tranNo](const auto& line) { return line.second.tranNo == tranNo; };
    std::erase_if(ledger_, ofDocument);
    std::erase_if(items_, ofDocument);
    std::erase_if(aging_, ofDocument);
  }
  void changeAnything() {
    switch (below(12)) {
      case 0:
      case 1:
        return changeALine();
      case 2:
        return mistype();
      case 3:
        return removeALine();
      case 4:
        return cancelADocument();
      case 5:
        return moveADocument();
      case 6:
        return deleteADocument();
      case 7:
        return addJournal();
      case 8:
      case 9:
        return addReceipt();
      default:
        return addInvoice();
    }
  }

  bool counts(std::int64_t tranNo) const { return !documents_.at(tranNo).cancelled; }
  double openAmount(const AgingLine& of) const {
    test::ExactDecimal invoiced, paid;
    for (const auto& [serial, line] : aging_) {
      if (!counts(line.tranNo) || line.invoice != of.invoice || line.party != of.party || line.day != of.day) continue;
      invoiced += line.invoiced;
      paid += line.paid;
    }
    return difference(invoiced, paid);
  }
  struct Moved {
    test::ExactDecimal debits, credits;
    double balance() const { return difference(debits, credits); }
  };
  Moved moved(std::int64_t accCode, const text::DateTime& before) const {
    Moved moved;
    for (const auto& [serial, line] : ledger_) {
      if (line.account != accCode || !counts(line.tranNo) || documents_.at(line.tranNo).day >= before) continue;
      moved.debits += line.debit;
      moved.credits += line.credit;
    }
    return moved;
  }
  static text::DateTime end() { return day(1, 1, 2027); }

  void expectBalances() {
    const text::DateTime from = anyDay(), to = from.addDays(static_cast<int>(below(120)));
    std::map<std::int64_t, std::string> shown, wanted;
    for (store::Recordset rows(context.KORDconn, sixColumnBalances({1, from, to}, AllAccounts())); !rows.eof();
         rows.moveNext())
      shown[rows.integer("AccCode")] = withSide(rows.number("ODiff")) + " " + rows.text("OBalance") + " " +
                                       rows.text("OStatus") + " " + rows.text("CBalance") + " " + rows.text("CStatus");
    std::set<std::int64_t> all;
    for (const auto& [serial, line] : ledger_) all.insert(line.account);
    for (const std::int64_t accCode : all) {
      const double opening = moved(accCode, from).balance(), closing = moved(accCode, to.addDays(1)).balance();
      if (closing != 0) wanted[accCode] = withSide(opening) + " " + withSide(opening) + " " + withSide(closing);
      const double whole = moved(accCode, end()).balance();
      EXPECT_EQ(frame::partyBalance(context.KORDconn, accCode, 1).amount, whole) << accCode;
    }
    EXPECT_EQ(shown, wanted);
    std::map<std::int64_t, double> closing, closed;
    for (store::Recordset rows(context.KORDconn, twoColumnBalances({1, from, to}, AllAccounts())); !rows.eof();
         rows.moveNext())
      closing[rows.integer("AccCode")] = rows.number("Debits") - rows.number("Credits");
    for (const auto& [accCode, texts] : wanted) closed[accCode] = moved(accCode, to.addDays(1)).balance();
    EXPECT_EQ(closing, closed);
    const LedgersData printed(context.KORDconn, {.fyid = 1, .openingBefore = from, .period = {{from, to}}});
    for (const auto rows = printed.rows(); rows->next();) {
      const std::int64_t accCode = store::integerOf(rows->value("AccCode"));
      EXPECT_EQ(store::textOf(rows->value("OpBalance")) + " " + store::textOf(rows->value("OpStatus")),
                withSide(moved(accCode, from).balance()))
          << accCode;
    }
  }

  void expectStock() {
    for (const char* code : {"A1", "B2"}) {
      test::ExactDecimal ins, outs;
      for (const auto& [flowId, line] : items_) {
        if (line.item != code || !counts(line.tranNo)) continue;
        ins += line.in;
        outs += line.out;
      }
      EXPECT_EQ(frame::itemBalance(context.KORDconn, code, 1).value_or(0), difference(ins, outs)) << code;
    }
  }

  void expectPending() {
    for (const std::int64_t party : accounts_) {
      Lines shown, wanted;
      for (store::Recordset rows(context.KORDconn, vouchers::pendingListStatement(vouchers::cashReceipts(), party, 1));
           !rows.eof(); rows.moveNext())
        shown.push_back(rows.text("DocNo") + " " + rows.text("BalAmt"));
      for (const auto& [serial, line] : aging_) {
        if (line.type != 32 || line.party != party || !counts(line.tranNo)) continue;
        if (const double open = openAmount(line); open > 0)
          wanted.push_back(std::to_string(line.invoice) + " " + store::textOf(open));
      }
      EXPECT_THAT(shown, testing::UnorderedElementsAreArray(wanted));
    }
  }

  // On the screen and as it is written into the file, in the ledger's order.
  void expectLedgers() {
    ASSERT_TRUE(writeRunningBalances(context.KORDconn, 1));
    for (const std::int64_t accCode : accounts_) {
      std::map<std::pair<std::string, std::int64_t>, const LedgerLine*> ordered;
      for (const auto& [serial, line] : ledger_)
        if (line.account == accCode && counts(line.tranNo) && (line.debit != 0 || line.credit != 0))
          ordered[{documents_.at(line.tranNo).day.iso(), serial}] = &line;
      test::ExactDecimal running;
      Lines wanted, shown, stored;
      for (const auto& [place, line] : ordered) {
        running += line->debit;
        running -= line->credit;
        wanted.push_back(withSide(running.value()));
      }
      const auto rows = openLedger(context.KORDconn, {.account = accCode, .fyid = 1}, 0);
      while (rows->hasMore()) rows->read(100);
      const int balance = rows->field("Balance"), status = rows->field("Status");
      for (std::int64_t row = 0; row < rows->ready(); ++row) {
        shown.push_back(store::textOf(rows->value(row, balance)) + " " + store::textOf(rows->value(row, status)));
        stored.push_back(store::textOf(rows->stored(row, balance)) + " " + store::textOf(rows->stored(row, status)));
      }
      EXPECT_EQ(shown, wanted) << accCode;
      EXPECT_EQ(stored, wanted) << accCode;
    }
  }

  void expectEverything() {
    expectBalances();
    expectStock();
    expectPending();
    expectLedgers();
    for (const store::KeptTotals& totals : schema::companyCatalog().keptTotals())
      EXPECT_TRUE(store::areRight(context.KORDconn.handle(), totals)) << totals.name;
  }

  bool large = false;

 private:
  static void bind(sqlite3_stmt* statement, int index, std::int64_t value) {
    sqlite3_bind_int64(statement, index, value);
  }
  static void bind(sqlite3_stmt* statement, int index, double value) { sqlite3_bind_double(statement, index, value); }
  static void bind(sqlite3_stmt* statement, int index, const std::string& value) {
    sqlite3_bind_text(statement, index, value.c_str(), -1, SQLITE_TRANSIENT);
  }

  static constexpr std::array<std::int64_t, 3> accounts_{12001002, 12001003, 40001001};
  sqlite3* other_ = nullptr;
  std::mt19937_64 random_{20261124};
  std::map<std::int64_t, Document> documents_;
  std::map<std::int64_t, LedgerLine> ledger_;
  std::map<std::int64_t, ItemLine> items_;
  std::map<std::int64_t, AgingLine> aging_;
};

TEST_F(ExactBooks, ShowWhatIsAddedOnPaper) {
  for (const bool withLarge : {false, true}) {
    large = withLarge;
    for (int round = 0; round < 40 && !HasFailure(); ++round) {
      for (int change = 0; change < 8; ++change) changeAnything();
      if (round % 7 == 3)
        for (const store::KeptTotals& totals : schema::companyCatalog().keptTotals()) {
          store::Connection::Transaction transaction(context.KORDconn);
          store::addLaterLines(context.KORDconn.handle(), totals, 100000);
          transaction.commit();
        }
      expectEverything();
    }
  }
}

}  // namespace
}  // namespace velmo::reports
