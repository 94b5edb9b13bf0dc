#include "demo_company/shop_clerk.h"

#include <set>

#include "demo_company/parties.h"
#include "demo_company/settlement_document.h"
#include "documents/invoices/purchase_bill_type.h"
#include "documents/invoices/purchase_return_type.h"
#include "documents/invoices/sale_invoice_pos_type.h"
#include "documents/invoices/sale_invoice_type.h"
#include "documents/invoices/sale_return_type.h"
#include "frame/document/compose_document.h"
#include "frame/sheets/ledger_sheet.h"
#include "text/format.h"
#include "text/number.h"
#include "vouchers/journal/general_journal_type.h"

namespace velmo::demo {
namespace {

constexpr std::size_t remembered = 5000;  // lines that may come back
constexpr int reorderLevel = 24;          // pieces

constexpr PettyLine expenses[] = {
    {60002003, "Electricity"},   {60002004, "Telephone"}, {60002005, "Receipt rolls"}, {60002006, "Postage"},
    {60002007, "Small repairs"}, {60002008, "Fuel"},      {60002009, "Taxi fare"},     {60002010, "Tea for guests"},
    {60002014, "Cleaning"},      {60002015, "Sundry"},    {60001003, "Advertisement"}, {60001005, "Bags and paper"}};
constexpr PettyLine incomes[] = {{70001001, "Interest"}, {70001002, "Scrap sold"}, {10001001, "Takings banked"}};
constexpr std::int64_t journalDebits[] = {60002001, 60002002, 60002011, 60003001, 60001006, 60001004, 14002003};
constexpr std::int64_t journalCredits[] = {22002001, 22002002, 22002003, 15004001, 14002004, 22001002, 31001002};

void keep(std::vector<TradedLine>& lines, const TradedLine& line, Dice& dice) {
  if (lines.size() < remembered)
    lines.push_back(line);
  else
    lines[static_cast<std::size_t>(dice.between(0, remembered - 1))] = line;
}

// Half of all sales are of one item, one in 25 is of many.
int linesOfSale(Dice& dice) {
  const int chance = dice.between(1, 100);
  if (chance <= 50) return 1;
  if (chance <= 70) return 2;
  if (chance <= 82) return 3;
  return chance <= 96 ? dice.between(4, 8) : dice.between(9, 20);
}

int pieces(Dice& dice) {
  const int chance = dice.between(1, 100);
  if (chance <= 60) return 1;
  return chance <= 90 ? dice.between(2, 4) : dice.between(5, 12);
}

std::vector<TradedParty> ofType(std::vector<TradedParty> parties, std::int64_t type) {
  std::erase_if(parties, [&](const TradedParty& party) { return party.code / 100000 != type; });
  return parties;
}

std::vector<TradedItem> goods(std::vector<TradedItem> items) {
  std::erase_if(items, [](const TradedItem& item) { return item.isService; });
  return items;
}

}  // namespace

ShopClerk::ShopClerk(session::LoginContext& context, Dice& dice)
    : context_(context),
      dice_(dice),
      items_(goods(readItems(context.KORDconn))),
      customers_(ofType(readParties(context.KORDconn), 120)),
      vendors_(ofType(readParties(context.KORDconn), 210)),
      itemsSkew_(static_cast<int>(items_.size())),
      customersSkew_(static_cast<int>(customers_.size()) - 1),
      vendorsSkew_(static_cast<int>(vendors_.size()) - 1),
      stock_(items_.size()) {
  for (auto& places : stock_)
    places = {dice.between(24, 240), dice.inHundred(30) ? dice.between(1, 60) : 0,
              dice.inHundred(10) ? dice.between(1, 12) : 0};
}

void ShopClerk::open(OpeningEntry& entry) {
  double worth = 0;
  for (std::size_t i = 0; i < items_.size(); ++i)
    for (int location = 0; location < locations; ++location)
      if (const int left = stock_[i][static_cast<std::size_t>(location)]; left > 0)
        worth += entry.stock({.location = location + 1,
                              .code = items_[i].code,
                              .name = items_[i].name,
                              .unit = items_[i].unit,
                              .quantity = static_cast<double>(left),
                              .rate = items_[i].cost});
  constexpr int openingInventory = 50001001;
  entry.debit(openingInventory, worth);
  const auto carry = [&](frame::AgingSide side, OpenItems& items) {
    for (const auto& [party, open] : items.all())
      for (const vouchers::PendingItem& item : open)
        entry.owe(side, {.party = static_cast<int>(party),
                         .number = item.docNo,
                         .date = item.tranDate,
                         .amount = item.balance,
                         .vendorNumber = side == frame::AgingSide::Payable ? item.key : ""});
  };
  carry(frame::AgingSide::Receivable, receivables_);
  carry(frame::AgingSide::Payable, payables_);
}

int ShopClerk::pickLocation() {
  const int chance = dice_.between(1, 100);
  return chance <= 70 ? 0 : chance <= 90 ? 1 : 2;
}

int& ShopClerk::stockOf(const TradedItem& item, int location) {
  return stock_[static_cast<std::size_t>(&item - items_.data())][static_cast<std::size_t>(location)];
}

const TradedItem& ShopClerk::itemOf(const std::string& code) const {
  return *std::lower_bound(items_.begin(), items_.end(), code,
                           [](const TradedItem& item, const std::string& sought) { return item.code < sought; });
}

TradeDocument ShopClerk::begin(const frame::DocumentType& type, const documents::TradeKind& kind,
                               const text::DateTime& moment, int location) {
  context_.UserID = dice_.between(1, 4);
  TradeDocument document(context_, type, kind, moment, nextNumber(type.form.tranType));
  document.values().LocationList = {.text = std::to_string(location + 1), .id = location + 1, .matches = true};
  document.values().Cancel = dice_.inHundred(1);
  return document;
}

void ShopClerk::sellLines(TradeDocument& document, int location) {
  std::set<const TradedItem*> sold;
  for (int count = linesOfSale(dice_), attempts = 40 * count; count > 0 && attempts > 0; --attempts) {
    const TradedItem& item = items_[static_cast<std::size_t>(itemsSkew_.pick(dice_))];
    const int there = stockOf(item, location);
    if (there == 0 || !sold.insert(&item).second) continue;
    document.add(item, std::min(pieces(dice_), there), item.price, dice_.inHundred(10) ? dice_.between(2, 10) : 0);
    --count;
  }
}

void ShopClerk::write(const frame::DocumentWrite& document, const std::function<void(std::int64_t)>& writeRows) {
  store::Recordset tran(context_.KORDconn, "SELECT * from transactions where tranno = 0");
  frame::writeDocumentWithin(context_.KORDconn, document, tran, writeRows);
  const auto column = [&](const char* name) { return static_cast<int>(store::integerOf(document.header.value(name))); };
  ++numbers_[{column("FYID"), column("TranType")}];
}

bool ShopClerk::save(TradeDocument& document, const frame::DocumentType& type, frame::ReceivedRule rule) {
  if (document.lines().empty()) return false;
  const frame::DocumentWrite written = document.compose(rule);
  store::Recordset tran(context_.KORDconn, "SELECT * from transactions where tranno = 0");
  frame::writeDocumentWithin(context_.KORDconn, written, tran, document.sheet());
  ++numbers_[{context_.FYID, type.form.tranType}];
  if (document.values().Cancel) return false;
  const bool comesIn = document.kind().lines.quantityField == "StockIn";
  const auto location = static_cast<int>(document.values().LocationList.id) - 1;
  for (const TradedLine& line : document.lines()) {
    const TradedItem& item = itemOf(line.itemCode);
    int& left = stockOf(item, location);
    left += comesIn ? line.quantity : -line.quantity;
    if (!comesIn && left < reorderLevel) low_.push_back(static_cast<int>(&item - items_.data()));
  }
  return true;
}

void ShopClerk::owe(OpenItems& items, const TradeDocument& document, const std::string& key, double amount) {
  if (amount <= 0) return;
  const TradedLine& line = document.lines().front();
  items.add({.key = key, .docNo = line.docNo, .tranDate = line.day, .partyCode = line.party, .balance = cents(amount)});
}

void ShopClerk::sell(const text::DateTime& moment) {
  const frame::DocumentType& type = documents::saleInvoiceType();
  const int location = pickLocation();
  TradeDocument document = begin(type, documents::saleInvoiceKind(), moment, location);
  const bool walksIn = dice_.inHundred(10);
  document.setParty(customers_[walksIn ? 0 : static_cast<std::size_t>(customersSkew_.pick(dice_) + 1)]);
  sellLines(document, location);
  if (document.lines().empty()) return;
  const frame::ReceivedRule rule = walksIn ? frame::ReceivedRule::WholeNetTotal : frame::ReceivedRule::AsTyped;
  if (!walksIn && dice_.inHundred(15)) document.typed().Carriage = std::to_string(dice_.between(1, 12) * 5) + ".00";
  if (!walksIn && dice_.inHundred(25)) document.pay(dice_.between(20, 60) / 100.0, rule);
  if (!save(document, type, rule)) return;
  for (const TradedLine& line : document.lines()) keep(sold_, line, dice_);
  if (!walksIn)
    owe(receivables_, document, document.values().DocNo,
        document.netTotal(rule) - text::amountFrom(document.typed().Received));
}

void ShopClerk::sellAtCounter(const text::DateTime& moment) {
  const frame::DocumentType& type = documents::saleInvoicePosType();
  const int location = pickLocation();
  TradeDocument document = begin(type, documents::saleInvoicePosKind(), moment, location);
  document.setParty(customers_.front());
  document.values().ACodeTxt = std::to_string(frame::cashInHand.code);
  document.values().Acc = frame::cashInHand.name;
  if (dice_.inHundred(30)) document.values().fields["PayMode"] = "2";
  sellLines(document, location);
  if (document.lines().empty()) return;
  document.pay(1, frame::ReceivedRule::Tendered);
  save(document, type, frame::ReceivedRule::Tendered);
}

void ShopClerk::addReturned(TradeDocument& document, const TradedLine& line, std::optional<int> from) {
  const TradedItem& item = itemOf(line.itemCode);
  const int most = from ? std::min(line.quantity, stockOf(item, *from)) : line.quantity;
  if (most > 0) document.add(item, dice_.between(1, most), line.rate, 0);
}

void ShopClerk::takeBack(const text::DateTime& moment) {
  if (sold_.empty()) return;
  const frame::DocumentType& type = documents::saleReturnType();
  const TradedLine line = dice_.pick(sold_);
  TradeDocument document = begin(type, documents::saleReturnKind(), moment, 0);
  const auto party = std::find_if(customers_.begin(), customers_.end(),
                                  [&](const TradedParty& customer) { return customer.code == line.party; });
  document.setParty(*party);
  document.refer("D1", std::to_string(line.docNo), line.day);
  addReturned(document, line, {});
  save(document, type,
       line.party == frame::walkInCustomer ? frame::ReceivedRule::WholeNetTotal : frame::ReceivedRule::AsTyped);
}

void ShopClerk::buy(const text::DateTime& moment) {
  const frame::DocumentType& type = documents::purchaseBillType();
  const int location = pickLocation();
  TradeDocument document = begin(type, documents::purchaseBillKind(), moment, location);
  document.setParty(vendors_[static_cast<std::size_t>(vendorsSkew_.pick(dice_) + 1)]);
  const std::string number = "V-" + std::to_string(context_.FYID) + "-" + document.values().DocNo;
  document.refer("D1", number, moment.addDays(-dice_.between(0, 3)));
  std::set<int> bought;
  for (int count = dice_.between(2, 8); count > 0; --count) {
    const bool isLow = !low_.empty();
    const int item = isLow ? low_.back() : itemsSkew_.pick(dice_);
    if (isLow) low_.pop_back();
    if (bought.insert(item).second) {
      const TradedItem& wanted = items_[static_cast<std::size_t>(item)];
      document.add(wanted, isLow ? dice_.between(3, 12) * 12 : dice_.between(1, 4) * 2, wanted.cost, 0);
    }
  }
  if (dice_.inHundred(30)) document.typed().Carriage = std::to_string(dice_.between(2, 8) * 10) + ".00";
  if (!save(document, type, frame::ReceivedRule::AsTyped)) return;
  for (const TradedLine& line : document.lines()) keep(bought_, line, dice_);
  owe(payables_, document, number, document.netTotal(frame::ReceivedRule::AsTyped));
}

void ShopClerk::sendBack(const text::DateTime& moment) {
  if (bought_.empty()) return;
  const frame::DocumentType& type = documents::purchaseReturnType();
  const TradedLine line = dice_.pick(bought_);
  TradeDocument document = begin(type, documents::purchaseReturnKind(), moment, 0);
  const auto party = std::find_if(vendors_.begin(), vendors_.end(),
                                  [&](const TradedParty& vendor) { return vendor.code == line.party; });
  document.setParty(*party);
  document.refer("D1", line.reference, line.day);
  document.refer("D2", std::to_string(line.docNo), line.day);
  addReturned(document, line, 0);
  save(document, type, frame::ReceivedRule::AsTyped);
}

void ShopClerk::settle(const vouchers::SettlementKind& kind, const text::DateTime& moment) {
  OpenItems& open = vouchers::isReceipt(kind) ? receivables_ : payables_;
  const std::optional<std::int64_t> party = open.pickParty(dice_);
  if (!party) return bookPetty(kind, moment);
  context_.UserID = dice_.between(1, 4);
  SettlementDocument document(context_, kind, moment, nextNumber(kind.form.tranType));
  document.values().Cancel = dice_.inHundred(1);
  document.setParty(*party);
  std::deque<vouchers::PendingItem>& items = open.of(*party);
  for (int count = std::min(dice_.between(1, 3), static_cast<int>(items.size())), i = 0; i < count; ++i) {
    const vouchers::PendingItem item = items.front();
    items.pop_front();
    const bool inPart = dice_.inHundred(20) && item.balance > 1;
    const double amount = inPart ? cents(item.balance / 2) : item.balance;
    const double tax = dice_.inHundred(5) ? text::roundHalfEven(amount * 0.02) : 0;
    document.settle(item, amount, tax, dice_.inHundred(5) ? cents(amount * 0.01) : 0);
    vouchers::PendingItem rest = item;
    if (!document.values().Cancel) rest.balance = cents(item.balance - amount);
    if (rest.balance > 0) open.add(rest);
  }
  document.prepay(dice_.inHundred(2) ? "250.00" : "0.00");
  write(document.compose(), [&](std::int64_t tranNo) { document.writeRows(tranNo); });
}

void ShopClerk::bookPetty(const vouchers::SettlementKind& kind, const text::DateTime& moment) {
  context_.UserID = dice_.between(1, 4);
  SettlementDocument document(context_, kind, moment, nextNumber(kind.form.tranType));
  document.values().Cancel = dice_.inHundred(1);
  // The till is not the other side of itself.
  const bool byCash = kind.by == vouchers::PaidBy::Cash;
  const PettyLine line = vouchers::isReceipt(kind) ? incomes[dice_.between(0, byCash ? 1 : 2)] : dice_.pick(expenses);
  document.book(line, dice_.between(100, 9000) / 100.0);
  write(document.compose(), [&](std::int64_t tranNo) { document.writeRows(tranNo); });
}

void ShopClerk::journal(const text::DateTime& moment) {
  context_.UserID = dice_.between(1, 4);
  const frame::DocumentType type = vouchers::generalJournalType();
  store::Recordset lines(context_.KORDconn, "Select * from subtransactions where tranno = 0",
                         store::LockType::BatchOptimistic);
  frame::DocumentValues values;
  values.DocNo = std::to_string(nextNumber(type.form.tranType));
  values.TrDate = moment.date();
  values.Desc = "Month's share, voucher " + values.DocNo;
  values.Cancel = dice_.inHundred(1);
  double total = 0;
  for (int pairs = dice_.between(1, 4); pairs > 0; --pairs) {
    const double amount = dice_.between(500, 50000) / 100.0;
    const auto add = [&](std::int64_t account, const char* side) {
      const store::Recordset name(context_.KORDconn,
                                  "select accname from acclevel3 where acccode=" + std::to_string(account),
                                  store::LockType::ReadOnly);
      lines.addNew({{"acccode", account}, {"accname", name.text("accname")}, {side, amount}});
    };
    add(dice_.pick(journalDebits), "debit");
    add(dice_.inHundred(20) ? customers_[static_cast<std::size_t>(customersSkew_.pick(dice_) + 1)].code
                            : dice_.pick(journalCredits),
        "credit");
    total += amount;
  }
  for (const char* side : {"DTot", "CTot"}) values.fields[side] = text::formatNumber(cents(total), "0.00");
  write(frame::composeHeader(type, values, context_, moment, frame::HeaderWrite::Add),
        [&](std::int64_t tranNo) { frame::writeLedgerSheet(lines, tranNo, values.Desc); });
}

}  // namespace velmo::demo
