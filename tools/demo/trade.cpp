#include "demo_company/trade.h"

#include <algorithm>
#include <map>
#include <optional>
#include <stdexcept>

#include "demo_company/money.h"
#include "demo_company/next_number.h"
#include "demo_company/orders.h"
#include "demo_company/parties.h"
#include "demo_company/storekeeper.h"
#include "demo_company/tool_serials.h"
#include "demo_company/trade_document.h"
#include "demo_company/workshop.h"
#include "documents/invoices/purchase_bill_type.h"
#include "documents/invoices/purchase_return_type.h"
#include "documents/invoices/sale_invoice_pos_type.h"
#include "documents/invoices/sale_invoice_type.h"
#include "documents/invoices/sale_return_type.h"
#include "text/format.h"

namespace velmo::demo {
namespace {

constexpr int daysOfTrade = 182;
constexpr const char* counterNames[] = {"Mrs. Field", "Cash Sale", "J. Porter", "S. Lindqvist", "Cash Sale"};

std::string money(double amount) {
  return text::formatNumber(amount, "0.00");
}

std::string weekday(const text::DateTime& date) {
  return text::formatDate(date, "ddd");
}

class TradeClerk {
 public:
  TradeClerk(session::LoginContext& context, Dice& dice)
      : context_(context), dice_(dice), items_(readItems(context.KORDconn)), parties_(readParties(context.KORDconn)) {
    for (store::Recordset stock(context.KORDconn,
                                "SELECT ItemCode, Sum(IIf(IsNull([StockIn]),0,[StockIn])) AS Ins FROM StockFlow GROUP "
                                "BY ItemCode");
         !stock.eof(); stock.moveNext())
      stock_[stock.text("ItemCode")] = stock.number("Ins");
  }

  void sell(const text::DateTime& moment) {
    begin(documents::saleInvoiceType(), documents::saleInvoiceKind(), moment);
    const bool walksIn = dice_.inHundred(15);
    chooseParty(walksIn ? frame::walkInCustomer : firstCustomer + dice_.between(0, customerCount - 1));
    if (walksIn)
      document_->values().PartyNameTxt = dice_.pick(counterNames);
    else if (dice_.inHundred(50))
      document_->refer("D1", "PO-" + std::to_string(dice_.between(1000, 9999)), moment.addDays(-dice_.between(0, 6)));
    for (int count = dice_.between(1, 6); count > 0; --count) sellLine();
    if (!walksIn && dice_.inHundred(15)) document_->typed().Carriage = money(dice_.between(3, 12) * 5.0);
    if (!walksIn && dice_.inHundred(25)) paidShare_ = dice_.between(20, 60) / 100.0;
    save(walksIn ? frame::ReceivedRule::WholeNetTotal : frame::ReceivedRule::AsTyped, &sold_);
  }

  void sellAtCounter(const text::DateTime& moment) {
    begin(documents::saleInvoicePosType(), documents::saleInvoicePosKind(), moment);
    chooseParty(frame::walkInCustomer);
    document_->values().ACodeTxt = std::to_string(frame::cashInHand.code);
    document_->values().Acc = frame::cashInHand.name;
    if (dice_.inHundred(30)) document_->values().fields["PayMode"] = "2";
    for (int count = dice_.between(1, 4); count > 0; --count) sellLine();
    paidShare_ = 1;
    save(frame::ReceivedRule::Tendered, nullptr);
  }

  void buy(const text::DateTime& moment) {
    begin(documents::purchaseBillType(), documents::purchaseBillKind(), moment);
    chooseParty(firstVendor + dice_.between(0, vendorCount - 1));
    document_->refer("D1", "V-" + std::to_string(dice_.between(10000, 99999)), moment.addDays(-dice_.between(0, 3)));
    for (int count = dice_.between(4, 10); count > 0; --count) {
      const TradedItem* item = chooseItem([](double) { return true; });
      addLine(*item, dice_.between(2, 12) * 5, item->cost, 0);
    }
    if (dice_.inHundred(30)) document_->typed().Carriage = money(dice_.between(2, 8) * 10.0);
    if (dice_.inHundred(20)) paidShare_ = 1;
    save(frame::ReceivedRule::AsTyped, &bought_);
  }

  // A customer brings back what he was billed for.
  void takeBack(const text::DateTime& moment) {
    if (sold_.empty()) return;
    const TradedLine line = dice_.pick(sold_);
    begin(documents::saleReturnType(), documents::saleReturnKind(), moment);
    chooseParty(line.party);
    document_->refer("D1", std::to_string(line.docNo), line.day);
    sendLine(line, dice_.between(1, line.quantity));
    save(line.party == frame::walkInCustomer ? frame::ReceivedRule::WholeNetTotal : frame::ReceivedRule::AsTyped,
         nullptr);
  }

  // Goods of a bill go back to the vendor, as far as they are still there.
  void sendBack(const text::DateTime& moment) {
    if (bought_.empty()) return;
    const TradedLine line = dice_.pick(bought_);
    if (stock_[line.itemCode] < line.quantity) return;
    begin(documents::purchaseReturnType(), documents::purchaseReturnKind(), moment);
    chooseParty(line.party);
    document_->refer("D1", line.reference, line.day);
    document_->refer("D2", std::to_string(line.docNo), line.day);
    sendLine(line, dice_.between(1, line.quantity));
    save(frame::ReceivedRule::AsTyped, nullptr);
  }

  // What is left to sell, by item.
  std::map<std::string, double>& stock() { return stock_; }

 private:
  void begin(const frame::DocumentType& type, const documents::TradeKind& kind, const text::DateTime& moment) {
    context_.UserID = dice_.inHundred(70) ? 2 : 1;
    type_ = &type;
    paidShare_ = 0;
    document_.emplace(context_, type, kind, moment, nextNumber(context_, type.form.tranType));
  }

  void chooseParty(std::int64_t code) {
    const auto party =
        std::find_if(parties_.begin(), parties_.end(), [&](const auto& one) { return one.code == code; });
    if (party == parties_.end()) throw std::logic_error("no party " + std::to_string(code));
    document_->setParty(*party);
  }

  // Null when chance found no fitting item.
  template <typename Fits>
  const TradedItem* chooseItem(Fits fits) {
    for (int attempt = 0; attempt < 20; ++attempt) {
      const TradedItem& item = dice_.pick(items_);
      if (!item.isService && fits(stock_[item.code])) return &item;
    }
    return nullptr;
  }

  void sellLine() {
    const TradedItem* item = chooseItem([](double stock) { return stock >= 1; });
    if (!item) return;
    const int wanted = item->price > 20 ? dice_.between(1, 3) : dice_.between(1, 24);
    const int quantity = std::min(wanted, static_cast<int>(stock_[item->code]));
    addLine(*item, quantity, item->price, dice_.inHundred(20) ? dice_.between(2, 10) : 0);
  }

  void sendLine(const TradedLine& line, int quantity) {
    const auto item =
        std::find_if(items_.begin(), items_.end(), [&](const auto& one) { return one.code == line.itemCode; });
    addLine(*item, quantity, line.rate, 0);
  }

  void addLine(const TradedItem& item, int quantity, double rate, int discountRate) {
    const bool arrives = document_->kind().lines.quantityField == "StockIn";
    document_->add(item, quantity, rate, discountRate,
                   arrives ? serials_.arrive(item, quantity) : serials_.leave(item, quantity));
    stock_[item.code] += arrives ? quantity : -quantity;
  }

  // Remembers the lines where later documents may refer to them. A document without lines is none.
  void save(frame::ReceivedRule rule, std::vector<TradedLine>* remembered) {
    if (document_->lines().empty()) return;
    if (paidShare_ > 0) document_->pay(paidShare_, rule);
    const frame::DocumentWrite written = document_->compose(rule);
    store::Recordset tran(context_.KORDconn, "SELECT * from transactions where tranno = 0");
    frame::writeDocument(context_.KORDconn, written, tran, document_->sheet());
    if (remembered) remembered->insert(remembered->end(), document_->lines().begin(), document_->lines().end());
  }

  session::LoginContext& context_;
  Dice& dice_;
  const std::vector<TradedItem> items_;
  const std::vector<TradedParty> parties_;
  std::map<std::string, double> stock_;
  ToolSerials serials_;
  std::vector<TradedLine> sold_;
  std::vector<TradedLine> bought_;

  // The document that is being written.
  const frame::DocumentType* type_ = nullptr;
  std::optional<TradeDocument> document_;
  double paidShare_ = 0;  // of the net total
};

void tradeOn(TradeClerk& clerk, Dice& dice, const text::DateTime& day, const text::DateTime& now) {
  const std::string name = weekday(day);
  if (name == "Sun") return;
  const auto at = [&](int hour) { return text::DateTime{day.day, hour * 3600 + dice.between(0, 3599)}; };
  const auto on = [&](const text::DateTime& moment, void (TradeClerk::*write)(const text::DateTime&)) {
    if (moment <= now) (clerk.*write)(moment);
  };
  if (name == "Mon" || name == "Thu")
    for (int bills = dice.between(1, 2); bills > 0; --bills) on(at(8), &TradeClerk::buy);
  for (int hour = 9; hour < 17; ++hour) {
    if (dice.inHundred(45)) on(at(hour), &TradeClerk::sell);
    if (dice.inHundred(45)) on(at(hour), &TradeClerk::sellAtCounter);
  }
  if (dice.inHundred(20)) on(at(17), &TradeClerk::takeBack);
  if (name == "Fri" && dice.inHundred(60)) on(at(17), &TradeClerk::sendBack);
}

}  // namespace

void writeTrade(session::LoginContext& context, Dice& dice, const text::DateTime& now) {
  TradeClerk clerk(context, dice);
  OrderClerk orders(context, clerk.stock());
  Storekeeper storekeeper(context, clerk.stock());
  Workshop workshop(context, clerk.stock(), context.FinancialYearStart);
  const text::DateTime firstTrade = now.date().addDays(1 - daysOfTrade);
  constexpr std::uint32_t seed = 39;
  Dice moneyDice(seed);  // of its own, so that the trade stays as it is
  for (text::DateTime day = context.FinancialYearStart; day <= now.date(); day = day.addDays(1)) {
    workshop.work(day, now);
    if (day < firstTrade) continue;
    tradeOn(clerk, dice, day, now);
    orders.work(day, now);
    storekeeper.work(day, now);
    moveMoney(context, moneyDice, day, now);
  }
}

}  // namespace velmo::demo
