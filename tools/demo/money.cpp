#include "demo_company/money.h"

#include <cmath>
#include <limits>

#include "demo_company/next_number.h"
#include "demo_company/parties.h"
#include "demo_company/settlement_document.h"
#include "text/format.h"
#include "text/number.h"
#include "vouchers/settlement/pending_items.h"

namespace velmo::demo {
namespace {

using namespace vouchers;

constexpr PettyLine pettyExpenses[] = {{60002010, "Tea and refreshments"},
                                       {60002014, "Window cleaning"},
                                       {60002005, "Receipt rolls"},
                                       {60002009, "Taxi fare"},
                                       {60002007, "Repair of the shutter"}};

// A receipt or payment under the next number of its kind.
class Settlement {
 public:
  Settlement(session::LoginContext& context, const SettlementKind& kind, const text::DateTime& moment)
      : context_(context), kind_(kind), document_(context, kind, moment, nextNumber(context, kind.form.tranType)) {}

  // The oldest open invoices of the party, as many as wanted, as far as there is money. False when there are none.
  bool settle(std::int64_t party, int count, double money, Dice& dice) {
    store::Recordset pending(context_.KORDconn, pendingStatement(kind_, party, context_.FYID));
    if (pending.isEmpty()) return false;
    document_.setParty(party);
    for (; count > 0 && !pending.eof(); --count, pending.moveNext()) {
      const PendingItem item = pendingItem(kind_, pending);
      money -= item.balance;
      if (money < 0) break;
      const double tax = dice.inHundred(10) ? text::roundHalfEven(item.balance * 0.02) : 0;
      const double discount = dice.inHundred(15) ? text::roundHalfEven(item.balance * 0.01, 2) : 0;
      document_.settle(item, item.balance, tax, discount);
    }
    document_.prepay(dice.inHundred(5) ? "250.00" : "0.00");
    return document_.settled() > 0;
  }

  void book(const PettyLine& line, double amount) { document_.book(line, amount); }

  void save() {
    store::Recordset tran(context_.KORDconn, "SELECT * from transactions where tranno = 0");
    frame::writeDocument(context_.KORDconn, document_.compose(), tran,
                         [this](std::int64_t tranNo) { document_.writeRows(tranNo); });
  }

 private:
  session::LoginContext& context_;
  const SettlementKind& kind_;
  SettlementDocument document_;
};

double heldByTill(session::LoginContext& context) {
  const store::Recordset till(
      context.KORDconn,
      "select Sum(IIf(IsNull(debit),0,debit)) as Debits, Sum(IIf(IsNull(credit),0,credit)) as Credits from "
      "transactions inner join subtransactions on transactions.tranno = subtransactions.tranno where acccode=" +
          std::to_string(frame::cashInHand.code) + " and cancel=no and fyid=" + std::to_string(context.FYID));
  return till.number("Debits") - till.number("Credits");
}

void settle(session::LoginContext& context, Dice& dice, const SettlementKind& kind, const text::DateTime& moment) {
  const std::int64_t party = isReceipt(kind) ? firstCustomer + dice.between(0, customerCount - 1)
                                             : firstVendor + dice.between(0, vendorCount - 1);
  Settlement settlement(context, kind, moment);
  const bool fromTill = kind.by == PaidBy::Cash && !isReceipt(kind);
  const double money = fromTill ? heldByTill(context) - 1000 : std::numeric_limits<double>::max();
  if (settlement.settle(party, dice.between(1, 4), money, dice)) settlement.save();
}

// What the till holds above its float goes to the bank.
void bankTakings(session::LoginContext& context, const text::DateTime& moment) {
  constexpr double floatOfTill = 3000;
  const double takings = std::floor((heldByTill(context) - floatOfTill) / 100) * 100;
  if (takings <= 0) return;
  Settlement deposit(context, bankReceipts(), moment);
  deposit.book({frame::cashInHand.code, "Takings banked"}, takings);
  deposit.save();
}

}  // namespace

void moveMoney(session::LoginContext& context, Dice& dice, const text::DateTime& day, const text::DateTime& now) {
  const std::string weekday = text::formatDate(day, "ddd");
  if (weekday == "Sun") return;
  const text::DateTime moment{day.day, 16 * 3600 + dice.between(0, 3599)};
  if (moment > now) return;
  for (int cheques = dice.between(0, 3); cheques > 0; --cheques) settle(context, dice, bankReceipts(), moment);
  if (dice.inHundred(40)) settle(context, dice, cashReceipts(), moment);
  if (weekday == "Wed" || weekday == "Fri")
    for (int cheques = dice.between(1, 3); cheques > 0; --cheques) settle(context, dice, bankPayments(), moment);
  if (dice.inHundred(10)) settle(context, dice, cashPayments(), moment);
  if (weekday == "Tue" || weekday == "Fri") bankTakings(context, moment);
  if (!dice.inHundred(30)) return;
  Settlement petty(context, cashPayments(), moment);
  petty.book(dice.pick(pettyExpenses), dice.between(8, 90) / 2.0);
  petty.save();
}

}  // namespace velmo::demo
