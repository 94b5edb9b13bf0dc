#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "documents/trade_books.h"
#include "vouchers/pending_items.h"
#include "vouchers/settlement_types.h"
#include "vouchers/settlement_writer.h"

// Random trade and random settlements, posted, changed, cancelled and deleted: what is open of an invoice is what the
// documents say, however it came about.
namespace {

using namespace velmo;
using namespace velmo::test;
using namespace velmo::vouchers;

// An invoice or bill, and an amount that makes it larger or smaller.
struct Entry {
  std::int64_t party = 0;
  std::string key;
  text::DateTime day;
  double amount = 0;
};

// What a saved document does to open items and parties.
struct Saved {
  bool cancelled = false;
  bool opens = false;  // the first entry is an invoice or bill of its own
  std::vector<Entry> entries = {};
  std::int64_t party = 0;
  double advance = 0;    // that it leaves with the party, less what it takes from there
  RandomDocument trade = {};  // of a document that can be saved again
  const SettlementKind* settlement = nullptr;
  std::int64_t docNo = 0;
  text::DateTime day = {};
};

constexpr std::int64_t vendor = 21001002;
constexpr std::int64_t parties[] = {12001002, 12001003, vendor};

class SettlementBooks : public TradeBooks {
 public:
  void trade(std::int64_t number) {
    atRandomDay();
    Saved saved{.trade = make(number), .docNo = number, .day = clock.today()};
    if (isReturn(saved.trade)) returnOf(saved.trade);
    saveTrade(0, std::move(saved));
  }

  void settle(std::int64_t number) {
    atRandomDay();
    const SettlementKind* const kinds[] = {&cashReceipts(), &bankReceipts(), &cashPayments(), &bankPayments()};
    Saved saved{.settlement = kinds[pick(4)], .docNo = number, .day = clock.today()};
    saved.party = isReceipt(*saved.settlement) ? parties[pick(2)] : vendor;
    saveSettlement(0, std::move(saved), pick(4));
  }

  void change() {
    if (documents.empty()) return;
    auto found = std::next(documents.begin(), pick(static_cast<int>(documents.size())));
    Saved saved = found->second;
    clock.time = saved.day;
    if (pick(4) == 0) {
      context.KORDconn.execute("DELETE FROM Transactions WHERE TranNo = " + std::to_string(found->first));
      documents.erase(found);
      return;
    }
    if (pick(2)) saved.cancelled = !saved.cancelled;
    saved.entries.clear();
    if (saved.settlement) return saveSettlement(found->first, std::move(saved), pick(3));
    saved.trade.cancelled = saved.cancelled;
    saveTrade(found->first, std::move(saved));
  }

  // Open invoices of a party in the order of the list: "12 500.50".
  std::vector<std::string> openByTheDocuments(std::int64_t party) const {
    std::map<std::tuple<text::DateTime, std::string>, double> balances;
    for (const auto& [tranNo, saved] : documents)
      for (const Entry& entry : saved.entries)
        if (!saved.cancelled && entry.party == party) balances[{entry.day, entry.key}] += entry.amount;
    std::vector<std::tuple<text::DateTime, std::int64_t, double>> open;
    for (const auto& [tranNo, saved] : documents) {
      if (saved.cancelled || !saved.opens || saved.entries.front().party != party) continue;
      const Entry& own = saved.entries.front();
      const double balance = balances[{own.day, own.key}];
      if (balance > 0.001) open.emplace_back(own.day, std::stoll(own.key), balance);
    }
    std::ranges::sort(open);
    std::vector<std::string> all;
    for (const auto& [day, docNo, balance] : open) all.push_back(shown(std::to_string(docNo), balance));
    if (party == vendor) std::ranges::sort(all);
    return all;
  }

  std::vector<std::string> openByTheList(std::int64_t party, bool detailed) {
    const SettlementKind& kind = party == vendor ? cashPayments() : cashReceipts();
    const std::string statement = detailed ? pendingListStatement(kind, party, 1) : pendingStatement(kind, party, 1);
    std::vector<std::string> all;
    for (store::Recordset rows(context.KORDconn, statement, store::LockType::ReadOnly); !rows.eof(); rows.moveNext())
      all.push_back(shown(rows.text(keyColumn(kind)), rows.number("BalAmt")));
    if (party == vendor) std::ranges::sort(all);
    return all;
  }

  // What the ledger must say of a party: what is open less what was paid in advance.
  double owedByTheDocuments(std::int64_t party) const {
    double owed = 0;
    for (const auto& [tranNo, saved] : documents) {
      if (saved.cancelled) continue;
      for (const Entry& entry : saved.entries)
        if (entry.party == party) owed += entry.amount;
      if (saved.party == party) owed -= saved.advance;
    }
    return party == vendor ? -owed : owed;
  }

  double owedByTheLedger(std::int64_t party) {
    return sum(
        "select sum(iif(isnull(debit),0,debit)) - sum(iif(isnull(credit),0,credit)) as s from transactions inner "
        "join subtransactions on transactions.tranno = subtransactions.tranno where transactions.cancel=no and "
        "subtransactions.acccode=" +
        std::to_string(party));
  }

  std::map<std::int64_t, Saved> documents;

 private:
  void atRandomDay() { clock.time = text::DateTime::fromCalendar(2026, 1 + pick(11), 1 + pick(28), 9, 0, 0); }
  static bool isReturn(const RandomDocument& document) { return document.type->TranType % 10 == 5; }
  static std::string shown(const std::string& key, double balance) {
    return key + " " + text::formatNumber(balance, "0.00");
  }

  // A return names an invoice that the party really has, when there is one.
  void returnOf(RandomDocument& document) {
    const bool bought = document.type->TranType < 30;
    for (const auto& [tranNo, saved] : documents) {
      if (!saved.opens || (saved.entries.front().party == vendor) != bought || pick(3) == 0) continue;
      document.party = saved.entries.front().party;
      document.returnedNo = saved.entries.front().key;
      document.returnedDay = saved.entries.front().day;
    }
  }

  void saveTrade(std::int64_t tranNo, Saved saved) {
    const std::int64_t written = save(saved.trade, tranNo);
    if (written == 0) return;
    saved.cancelled = saved.trade.cancelled;
    const double net = text::amountFrom(lastSaved.totals.NetTotal);
    const double received = text::amountFrom(lastSaved.totals.Received);
    saved.opens = !isReturn(saved.trade);
    const std::string key = saved.trade.returnedNo.empty() ? std::to_string(saved.docNo) : saved.trade.returnedNo;
    const text::DateTime day = saved.trade.returnedNo.empty() ? saved.day.date() : saved.trade.returnedDay;
    saved.entries = {{saved.trade.party, key, day, saved.opens ? net - received : received - net}};
    documents[written] = std::move(saved);
  }

  // Some rows with random amounts; those of a document saved before may go or change.
  void saveSettlement(std::int64_t tranNo, Saved saved, int newRows) {
    const SettlementKind& kind = *saved.settlement;
    store::Recordset invoices;
    openSettlement(kind, context.KORDconn, invoices, tranNo);
    SettlementSheet sheet(kind, workplace);
    sheet.bind(invoices);
    store::Recordset pending(context.KORDconn, pendingStatement(kind, saved.party, 1), store::LockType::ReadOnly);
    if (tranNo != 0 && pick(2)) sheet.removeRow(0);
    int row = 0;
    while (!sheet.shownText(row, settlement::Invoice).empty()) ++row;
    for (; newRows > 0 && !pending.isEmpty(); --newRows) {
      pending.moveTo(pick(static_cast<int>(pending.recordCount())));
      sheet.chooseItem(row, pendingItem(kind, pending));
      if (pick(2)) sheet.enter(row, settlement::TotPayment, text::numberText((1 + pick(100000)) / 100.0));
      if (pick(3) == 0) sheet.enter(row, settlement::WHTaxRt, text::numberText(pick(20) / 2.0));
      if (pick(4) == 0) sheet.enter(row, settlement::AdvAdj, text::numberText(pick(900) / 100.0));
      if (pick(4) == 0) sheet.enter(row, settlement::Discount, text::numberText((pick(900) - 300) / 100.0));
      ++row;
    }

    DocumentValues values;
    values.DocNo = std::to_string(saved.docNo);
    values.TrDate = saved.day;
    values.Cancel = saved.cancelled;
    values.PartyCodeTxt = std::to_string(saved.party);
    values.PartyNameTxt = "Party";
    values.ACodeTxt = "10001001";
    values.Acc = "Cash in Hand";
    const double advance = pick(3) ? 0 : pick(50000) / 100.0;
    SettlementValues settlement{.totals = settlementTotals(sheet.sums(), text::numberText(advance)),
                                .invoices = sheet.invoiceList()};
    saved.advance = advance - sheet.sums().advAdj;
    for (row = 0; row < sheet.rowCount(); ++row) {
      invoices.moveTo(row);
      if (sheet.shownText(row, settlement::Invoice).empty()) continue;
      saved.entries.push_back({saved.party, sheet.shownText(row, settlement::Invoice), invoices.date("TranDate"),
                               -invoices.number("TotPayment")});
    }
    const frame::DocumentType type = settlementType(kind);
    const auto composed = composeSettlement(type, kind, values, settlement, context, clock.now(),
                                            tranNo == 0 ? frame::HeaderWrite::Add : frame::HeaderWrite::Update);
    ASSERT_TRUE(composed) << composed.error();
    store::Recordset tran(context.KORDconn, "SELECT * from transactions where tranno = " + std::to_string(tranNo));
    sheet.detach();
    const std::int64_t written = frame::writeDocument(context.KORDconn, *composed, tran, [&](std::int64_t number) {
      writeSettlement(kind, invoices, values, number, 1);
    });
    documents[written] = std::move(saved);
  }
};

TEST(SettlementProperties, PendingListsAndPartiesAgreeWithTheDocumentsWhateverIsPaidChangedAndTakenBack) {
  SettlementBooks books;
  std::size_t open = 0;
  std::size_t settled = 0;
  for (std::int64_t number = 1; number <= 600; ++number) {
    switch (books.pick(5)) {
      case 0:
      case 1:
        books.trade(number);
        break;
      case 2:
      case 3:
        books.settle(number);
        break;
      default:
        books.change();
    }
    if (HasFatalFailure()) return;
    if (number % 10 != 0) continue;
    SCOPED_TRACE("after " + std::to_string(number) + " steps");
    for (const std::int64_t party : parties) {
      const std::vector<std::string> expected = books.openByTheDocuments(party);
      open += expected.size();
      EXPECT_EQ(books.openByTheList(party, false), expected) << party;
      EXPECT_EQ(books.openByTheList(party, true), expected) << party;
      EXPECT_NEAR(books.owedByTheLedger(party), books.owedByTheDocuments(party), 0.005) << party;
    }
    EXPECT_NEAR(books.sum("select sum(debit) as s from subtransactions"),
                books.sum("select sum(credit) as s from subtransactions"), 0.005);
  }
  for (const auto& [tranNo, saved] : books.documents) settled += saved.settlement ? saved.entries.size() : 0;
  EXPECT_GT(open, 100u);
  EXPECT_GT(settled, 30u);
}

}  // namespace
