#include "demo/own_books.h"

#include <algorithm>
#include <cmath>

namespace velmo::test {
namespace {

constexpr std::int64_t cash = 10001001;

// What the company had in hand and in its banks when it came into the year.
constexpr std::pair<std::int64_t, std::int64_t> openingMoney[] = {
    {cash, 3150'75}, {11001001, 42810'20}, {11001002, 17345'00}, {11001003, 8620'55}};

// The other account of petty receipts and payments, by their description.
const std::map<std::string, std::int64_t> pettyAccounts = {
    {"Takings banked", cash},      {"Tea and refreshments", 60002010},
    {"Window cleaning", 60002014}, {"Receipt rolls", 60002005},
    {"Taxi fare", 60002009},       {"Repair of the shutter", 60002007}};

// Counted as the program's dates are.
const std::string dayOf = "CAST(round(julianday(TranDate) - julianday('1899-12-30')) AS INTEGER)";

struct Document {
  std::int64_t tranNo, day;
  int type;
  bool cancelled;
  std::int64_t partyCode, partyCode2;
  std::string nature, desc, text4, text12;
  std::int64_t discount, carriage, amount, received, balance, adjusted;
};

struct Settled {
  std::int64_t payment = 0, tax = 0, adjusted = 0, discount = 0, total = 0;
};

class Clerk {
 public:
  Clerk(PlainFile& company, bool stockCounted) : company_(company), stockCounted_(stockCounted) {}

  OwnBooks books() {
    PlainRows rows(
        company_, "SELECT TranNo, " + dayOf +
                      ", TranType, Cancel, PartyCode, PartyCode2, Nature, \"Desc\", Text4, Text12, "
                      "Discount, Carriage, TrAmount, Received, Balance, AdditionalTax FROM Transactions WHERE FYID = 1 "
                      "ORDER BY TranDate, TranNo");
    while (rows.next()) {
      document_ = {rows.integer(0),      rows.integer(1), static_cast<int>(rows.integer(2)),
                   rows.integer(3) != 0, rows.integer(4), rows.integer(5),
                   rows.text(6),         rows.text(7),    rows.text(8),
                   rows.text(9),         rows.cents(10),  rows.cents(11),
                   rows.cents(12),       rows.cents(13),  rows.cents(14),
                   rows.cents(15)};
      ++books_.counts[kind()];
      postings_.clear();
      postDocument();
      enter();
    }
    return std::move(books_);
  }

 private:
  void postDocument() {
    constexpr std::int64_t carriageOut = 60001001, carriageIn = 50001004;
    switch (document_.type) {
      case 11:
        return postOpening();
      case 22:
        return postInward(carriageIn);
      case 25:
        return postOutward(carriageIn);
      case 28:
      case 29:
        return document_.nature == "Petty Payment" ? postPetty(1) : postPaid();
      case 32:
        return isAtCounter() ? postAtCounter() : postOutward(carriageOut);
      case 35:
        return postInward(carriageOut);
      case 38:
      case 39:
        return document_.nature == "Petty Receipt" ? postPetty(-1) : postReceived();
      case 51:
        return postStock();
      case 42:
        return postMade();
      case 45:
        return postAdjusted(50001002, 50001005);
      case 47:
        return postAdjusted(50001005, 50001002);
      case 20:
      case 30:
      case 43:
      case 91:
      case 92:
      case 93:
      case 94:
      case 95:
        return;  // papers without a ledger
      default:
        odd("is of type " + std::to_string(document_.type));
    }
  }

  // A sale on account or a return to a vendor: what is billed stands against the party, what was paid on the spot goes
  // through the party's ledger only when something is left.
  void postOutward(std::int64_t carriageAccount) {
    const auto [gross, net] = billed();
    post(cash, document_.received);
    if (net > document_.received) {
      post(document_.partyCode2, net);
      post(document_.partyCode2, -document_.received);
    }
    post(document_.partyCode, -gross);
    post(carriageAccount, -document_.carriage);
  }
  // A purchase or a return from a customer: the same from the other side.
  void postInward(std::int64_t carriageAccount) {
    const auto [gross, net] = billed();
    post(document_.partyCode, gross);
    post(carriageAccount, document_.carriage);
    if (net > document_.received) post(document_.partyCode2, document_.received);
    post(cash, -document_.received);
    if (net > document_.received) post(document_.partyCode2, -net);
  }
  // The whole amount of the lines, whatever discount they have.
  void postAdjusted(std::int64_t debit, std::int64_t credit) {
    const std::int64_t gross =
        plainSums(company_, "SELECT GrossAmt FROM StockFlow WHERE TranNo = " + std::to_string(document_.tranNo))[0];
    post(debit, gross);
    post(credit, -gross);
  }
  // What comes out against what went in, labour, overhead, and the party that did a part of the work.
  void postMade() {
    const auto lines = [this](const char* side) {
      return plainSums(company_, "SELECT GrossAmt FROM StockFlow" + ofDocument() + " AND " + side + " IS NOT NULL")[0];
    };
    const std::int64_t made = lines("StockIn"), materials = lines("StockOut");
    if (document_.amount != made || document_.discount != materials) odd("was made for other amounts");
    post(document_.partyCode2, made);
    post(document_.partyCode, -materials);
    post(50002001, -document_.carriage);
    post(50003001, -document_.received);
    post(std::stoll(plainTexts(company_, "SELECT Text3 FROM Transactions" + ofDocument()).front()), -document_.balance);
  }
  void postAtCounter() {
    const auto [gross, net] = billed();
    post(std::stoll(document_.text4), net);
    post(document_.partyCode, -gross);
    post(60001001, -document_.carriage);
  }

  void postReceived() {
    const Settled sums = settled("AgingDr");
    const std::int64_t party = document_.partyCode;
    post(document_.partyCode2, sums.payment);
    post(party, -sums.total);
    post(14001001, sums.tax);
    post(party, sums.adjusted);
    post(60001002, sums.discount);
  }
  void postPaid() {
    const Settled sums = settled("AgingCr");
    const std::int64_t party = document_.partyCode;
    post(party, sums.total);
    post(document_.partyCode2, -sums.payment);
    post(22001001, -sums.tax);
    post(party, -sums.adjusted);
    post(40001003, -sums.discount);
  }
  void postPetty(int side) {
    const auto account = pettyAccounts.find(document_.desc);
    if (account == pettyAccounts.end()) return odd("is for \"" + document_.desc + "\"");
    post(account->second, side * document_.amount);
    post(document_.partyCode2, -side * document_.amount);
  }
  void postOpening() {
    for (const auto& [account, amount] : openingMoney) post(account, amount);
    postOpenItems("AgingDr", 1);
    post(50001001, goods());
    postOpenItems("AgingCr", -1);
    std::int64_t rest = 0;
    for (const Posting& posting : postings_) rest += posting.amount;
    post(31001001, -rest);
  }
  void postOpenItems(const std::string& table, int side) {
    std::map<std::int64_t, std::int64_t> parties;
    PlainRows rows(company_, "SELECT PartyCode, TrAmount FROM " + table + ofDocument());
    while (rows.next()) parties[rows.integer(0)] += rows.cents(1);
    for (const auto& [party, amount] : parties) post(party, side * amount);
  }

  // Goods in hand at the end of the entry's day, at their cost.
  void postStock() {
    if (!stockCounted_) return;
    long double worth = 0;
    PlainRows rows(company_,
                   "SELECT coalesce(StockIn, 0) - coalesce(StockOut, 0), ValuationCost2 FROM StockFlow JOIN "
                   "Transactions USING (TranNo) JOIN StockLevel3 USING (ItemCode) WHERE FYID = 1 AND Cancel = 0 AND "
                   "InvLedger = 0 AND CatID <> 'Service' AND " +
                       dayOf + " <= " + std::to_string(document_.day));
    while (rows.next()) worth += static_cast<long double>(rows.number(0)) * rows.number(1);
    const std::int64_t value = std::llroundl(worth * 100);
    post(13001001, value);
    post(50001006, -value);
  }

  // The item lines, quantity by rate less discount.
  std::int64_t goods() {
    std::int64_t sum = 0;
    PlainRows rows(
        company_,
        "SELECT coalesce(StockIn, 0) + coalesce(StockOut, 0), Rate, DiscRate, ItemValue FROM StockFlow" + ofDocument());
    while (rows.next()) {
      const std::int64_t gross = rows.integer(0) * rows.cents(1);
      const std::int64_t discount = (gross * rows.integer(2) + 50) / 100;
      if (rows.cents(3) != gross - discount) odd("has a line of " + rows.text(3));
      sum += gross - discount;
    }
    return sum;
  }
  // Without and with carriage.
  std::pair<std::int64_t, std::int64_t> billed() {
    const std::int64_t gross = goods() - document_.discount;
    const std::int64_t net = gross + document_.carriage;
    if (document_.amount != net || document_.balance != net - document_.received) odd("has another total");
    return {gross, net};
  }

  // Invoices and what was paid in advance, which is the header's balance.
  Settled settled(const std::string& table) {
    Settled sums{.payment = document_.balance, .total = document_.balance};
    PlainRows rows(company_, "SELECT Payment, WHTax, AdvAdj, Discount, TotPayment FROM " + table + ofDocument());
    while (rows.next()) {
      sums.payment += rows.cents(4) - rows.cents(1) - rows.cents(2) - rows.cents(3);
      sums.tax += rows.cents(1);
      sums.adjusted += rows.cents(2);
      sums.discount += rows.cents(3);
      sums.total += rows.cents(4);
    }
    if (document_.received != sums.payment || document_.amount != sums.total || document_.carriage != sums.tax ||
        document_.adjusted != sums.adjusted || document_.discount != sums.discount)
      odd("settles other amounts");
    return sums;
  }

  std::string kind() const {
    const bool settles = document_.nature.ends_with("Receipt") || document_.nature.ends_with("Payment");
    return std::to_string(document_.type) + (settles ? " " + document_.nature : isAtCounter() ? " counter" : "");
  }
  bool isAtCounter() const { return document_.type == 32 && document_.text12 == "0"; }
  std::string ofDocument() const { return " WHERE TranNo = " + std::to_string(document_.tranNo); }

  void post(std::int64_t account, std::int64_t amount) {
    if (amount != 0) postings_.push_back({document_.day, document_.tranNo, account, amount});
  }
  void enter() {
    std::int64_t difference = 0;
    for (const Posting& posting : postings_) {
      difference += posting.amount;
      if (!document_.cancelled) books_.ledgers[posting.account].push_back(posting);
    }
    if (difference != 0) odd("does not balance");
    books_.documents[document_.tranNo] = postings_;
  }
  void odd(const std::string& what) {
    books_.oddities.push_back("document " + std::to_string(document_.tranNo) + " " + what);
  }

  PlainFile& company_;
  bool stockCounted_;
  OwnBooks books_;
  Document document_ = {};
  std::vector<Posting> postings_;
};

}  // namespace

std::int64_t OwnBooks::balance(std::int64_t account, std::int64_t beforeDay) const {
  std::int64_t sum = 0;
  if (const auto ledger = ledgers.find(account); ledger != ledgers.end())
    for (const Posting& posting : ledger->second)
      if (posting.day < beforeDay) sum += posting.amount;
  return sum;
}

OwnBooks workOut(PlainFile& company, bool stockCounted) {
  return Clerk(company, stockCounted).books();
}

}  // namespace velmo::test
