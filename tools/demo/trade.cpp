#include "demo_company/trade.h"

#include <map>
#include <stdexcept>
#include <vector>

#include "demo_company/money.h"
#include "demo_company/next_number.h"
#include "demo_company/orders.h"
#include "demo_company/parties.h"
#include "documents/invoices/purchase_bill_type.h"
#include "documents/invoices/purchase_return_type.h"
#include "documents/invoices/sale_invoice_pos_type.h"
#include "documents/invoices/sale_invoice_type.h"
#include "documents/invoices/sale_return_type.h"
#include "frame/document/compose_document.h"
#include "frame/items/line_arithmetic.h"
#include "frame/posting/day_text.h"
#include "schema/account_types.h"
#include "text/format.h"
#include "text/number.h"

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

// A line of a document that goods may come or go back from.
struct TradedLine {
  std::int64_t docNo = 0;
  text::DateTime day;
  std::int64_t party = 0;
  std::string reference;  // the vendor's number
  std::string itemCode;
  int quantity = 0;
  double rate = 0;
};

class TradeClerk {
 public:
  TradeClerk(session::LoginContext& context, Dice& dice)
      : context_(context),
        dice_(dice),
        items_(context.KORDconn, "SELECT * FROM StockLevel3 ORDER BY ItemCode"),
        parties_(context.KORDconn,
                 "SELECT * from AccLevel3 where " + schema::account_type::parties() + " order by acccode") {
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
      values_.PartyNameTxt = dice_.pick(counterNames);
    else if (dice_.inHundred(50))
      refer("D1", "PO-" + std::to_string(dice_.between(1000, 9999)), moment.addDays(-dice_.between(0, 6)));
    for (int count = dice_.between(1, 6); count > 0; --count) sellLine();
    if (!walksIn && dice_.inHundred(15)) typed_.Carriage = money(dice_.between(3, 12) * 5.0);
    if (!walksIn && dice_.inHundred(25)) paidShare_ = dice_.between(20, 60) / 100.0;
    save(walksIn ? frame::ReceivedRule::WholeNetTotal : frame::ReceivedRule::AsTyped, &sold_);
  }

  void sellAtCounter(const text::DateTime& moment) {
    begin(documents::saleInvoicePosType(), documents::saleInvoicePosKind(), moment);
    chooseParty(frame::walkInCustomer);
    values_.ACodeTxt = std::to_string(frame::cashInHand.code);
    values_.Acc = frame::cashInHand.name;
    if (dice_.inHundred(30)) values_.fields["PayMode"] = "2";
    for (int count = dice_.between(1, 4); count > 0; --count) sellLine();
    paidShare_ = 1;
    save(frame::ReceivedRule::Tendered, nullptr);
  }

  void buy(const text::DateTime& moment) {
    begin(documents::purchaseBillType(), documents::purchaseBillKind(), moment);
    chooseParty(firstVendor + dice_.between(0, vendorCount - 1));
    refer("D1", "V-" + std::to_string(dice_.between(10000, 99999)), moment.addDays(-dice_.between(0, 3)));
    for (int count = dice_.between(4, 10); count > 0; --count) {
      chooseItem([](double) { return true; });
      addLine(dice_.between(2, 12) * 5, items_.number("PurchasePrice"), 0);
    }
    if (dice_.inHundred(30)) typed_.Carriage = money(dice_.between(2, 8) * 10.0);
    if (dice_.inHundred(20)) paidShare_ = 1;
    save(frame::ReceivedRule::AsTyped, &bought_);
  }

  // A customer brings back what he was billed for.
  void takeBack(const text::DateTime& moment) {
    if (sold_.empty()) return;
    const TradedLine line = dice_.pick(sold_);
    begin(documents::saleReturnType(), documents::saleReturnKind(), moment);
    chooseParty(line.party);
    refer("D1", std::to_string(line.docNo), line.day);
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
    refer("D1", line.reference, line.day);
    refer("D2", std::to_string(line.docNo), line.day);
    sendLine(line, dice_.between(1, line.quantity));
    save(frame::ReceivedRule::AsTyped, nullptr);
  }

  // What is left to sell, by item.
  std::map<std::string, double>& stock() { return stock_; }

 private:
  void begin(const frame::DocumentType& type, const documents::TradeKind& kind, const text::DateTime& moment) {
    context_.UserID = dice_.inHundred(70) ? 2 : 1;
    type_ = &type;
    kind_ = &kind;
    moment_ = moment;
    typed_ = {.Discount = "0.00", .Carriage = "0.00", .Received = "0.00"};
    paidShare_ = 0;
    traded_.clear();
    lines_ = store::Recordset(context_.KORDconn, "Select * from stockflow where tranno = 0",
                              store::LockType::BatchOptimistic);
    values_ = {};
    values_.DocNo = std::to_string(nextNumber(context_, type.form.tranType));
    values_.TrDate = moment.date();
    values_.IncomeCode = std::to_string(kind.head->initialCode);
    values_.IncomeAcc =
        store::Recordset(context_.KORDconn, "select accname from acclevel3 where acccode=" + values_.IncomeCode)
            .text("accname");
    values_.LocationList = {.text = "Main Store", .id = context_.stocklocationid, .matches = true};
  }

  void chooseParty(std::int64_t code) {
    parties_.moveFirst();
    if (!parties_.find("acccode=" + std::to_string(code))) throw std::logic_error("no party " + std::to_string(code));
    values_.PartyCodeTxt = std::to_string(code);
    values_.PartyNameTxt = parties_.text("AccName");
    values_.PartyAddress = parties_.text("Address");
    values_.PartyTel = parties_.text("Phone");
    values_.Terms = parties_.text("CreditTerms");
    values_.EmpList = {.text = {}, .id = parties_.integer("EmpID"), .matches = true};
  }

  void refer(const std::string& field, const std::string& number, const text::DateTime& day) {
    values_.fields[field] = number;
    values_.fields[field + "Dt"] = frame::dayText(day);
  }

  bool isService() const { return items_.text("CatID") == "Service"; }

  // False when chance found no fitting item.
  template <typename Fits>
  bool chooseItem(Fits fits) {
    for (int attempt = 0; attempt < 20; ++attempt) {
      items_.moveTo(dice_.between(0, static_cast<int>(items_.recordCount()) - 1));
      if (!isService() && fits(stock_[items_.text("ItemCode")])) return true;
    }
    return false;
  }

  void sellLine() {
    if (!chooseItem([](double stock) { return stock >= 1; })) return;
    const bool dear = items_.number("SellingPrice") > 20;
    const int wanted = dear ? dice_.between(1, 3) : dice_.between(1, 24);
    const int quantity = std::min(wanted, static_cast<int>(stock_[items_.text("ItemCode")]));
    addLine(quantity, items_.number("SellingPrice"), dice_.inHundred(20) ? dice_.between(2, 10) : 0);
  }

  void sendLine(const TradedLine& line, int quantity) {
    items_.moveFirst();
    items_.find("itemcode = '" + line.itemCode + "'");
    addLine(quantity, line.rate, 0);
  }

  void addLine(int quantity, double rate, int discountRate) {
    const std::string itemCode = items_.text("ItemCode");
    const frame::LineAmounts amounts =
        frame::lineAmounts({.quantity = std::to_string(quantity),
                            .rate = text::numberText(rate),
                            .discountRate = discountRate == 0 ? "" : std::to_string(discountRate),
                            .discount = "0.00"});
    lines_.addNew({{"ItemCode", itemCode},
                   {"ItemName", items_.text("ItemName")},
                   {kind_->lines.quantityField, static_cast<double>(quantity)},
                   {"Unit", items_.text("Unit")},
                   {"Rate", rate},
                   {"GrossAmt", text::amountFrom(amounts.gross)},
                   {"DiscRate", discountRate == 0 ? store::Value() : store::Value(std::int64_t{discountRate})},
                   {"DiscAmt", text::amountFrom(amounts.discount)},
                   {"ItemValue", text::amountFrom(amounts.net)}});
    stock_[itemCode] += kind_->lines.quantityField == "StockIn" ? quantity : -quantity;
    traded_.push_back({.docNo = std::stoll(values_.DocNo),
                       .day = values_.TrDate,
                       .party = std::stoll(values_.PartyCodeTxt),
                       .reference = values_.field("D1"),
                       .itemCode = itemCode,
                       .quantity = quantity,
                       .rate = rate});
  }

  // Remembers the lines where later documents may refer to them. A document without lines is none.
  void save(frame::ReceivedRule rule, std::vector<TradedLine>* remembered) {
    if (traded_.empty()) return;
    const frame::LineSums sums = frame::sumLines(lines_);
    const auto totals = [&] { return frame::RecalculateTotals(sums, typed_, rule, context_.currencyname); };
    if (paidShare_ > 0) {
      const double net = text::amountFrom(totals().NetTotal);
      typed_.Received = money(paidShare_ == 1 ? net : text::wholePart(net * paidShare_));
    }
    values_.totals = totals();
    const std::string narrations = frame::lineNarrations(lines_, kind_->lines.quantityField, context_.ccode);
    const auto document =
        frame::composeDocument(*type_, values_, context_, moment_, narrations, frame::HeaderWrite::Add);
    if (!document) throw std::logic_error(document.error());
    store::Recordset tran(context_.KORDconn, "SELECT * from transactions where tranno = 0");
    frame::writeDocument(context_.KORDconn, *document, tran, lines_);
    if (remembered) remembered->insert(remembered->end(), traded_.begin(), traded_.end());
  }

  session::LoginContext& context_;
  Dice& dice_;
  store::Recordset items_;
  store::Recordset parties_;
  std::map<std::string, double> stock_;
  std::vector<TradedLine> sold_;
  std::vector<TradedLine> bought_;

  // The document that is being written.
  const frame::DocumentType* type_ = nullptr;
  const documents::TradeKind* kind_ = nullptr;
  text::DateTime moment_;
  frame::DocumentValues values_;
  frame::TypedAmounts typed_;
  double paidShare_ = 0;  // of the net total
  store::Recordset lines_;
  std::vector<TradedLine> traded_;
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
  text::DateTime day = now.date().addDays(1 - daysOfTrade);
  if (day < context.FinancialYearStart) day = context.FinancialYearStart;
  constexpr std::uint32_t seed = 39;
  Dice moneyDice(seed);  // of its own, so that the trade stays as it is
  for (; day <= now.date(); day = day.addDays(1)) {
    tradeOn(clerk, dice, day, now);
    orders.work(day, now);
    moveMoney(context, moneyDice, day, now);
  }
}

}  // namespace velmo::demo
