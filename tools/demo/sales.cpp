#include "demo_company/sales.h"

#include <stdexcept>

#include "demo_company/parties.h"
#include "documents/sale_invoice_type.h"
#include "frame/compose_document.h"
#include "frame/line_arithmetic.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::demo {
namespace {

constexpr int daysOfSales = 35;
constexpr const char* counterNames[] = {"Mrs. Field", "Cash Sale", "J. Porter", "S. Lindqvist", "Cash Sale"};

std::string money(double amount) {
  return text::formatNumber(amount, "0.00");
}

bool isSunday(const text::DateTime& date) {
  return text::formatDate(date, "ddd") == "Sun";
}

enum class Terms { Counter, OnAccount, PartPaid };

class SalesClerk {
 public:
  SalesClerk(session::LoginContext& context, Dice& dice)
      : context_(context),
        dice_(dice),
        items_(context.KORDconn, "SELECT * FROM StockLevel3 ORDER BY ItemCode"),
        customers_(context.KORDconn, "SELECT * from AccLevel3 where Level1ID=120 order by acccode"),
        tran_(context.KORDconn, "SELECT * from transactions where trantype=32 and fyid = " +
                                    std::to_string(context.FYID) + " order by docno") {}

  void sell(const text::DateTime& moment) {
    context_.UserID = dice_.inHundred(70) ? 2 : 1;
    frame::DocumentValues invoice = blankInvoice(moment);
    const Terms terms = chooseCustomer(invoice);
    store::Recordset lines(context_.KORDconn, "Select * from stockflow where tranno = 0",
                           store::LockType::BatchOptimistic);
    for (int count = dice_.between(1, 6); count > 0; --count) addLine(lines);
    total(invoice, frame::sumLines(lines), terms);
    auto document =
        frame::composeDocument(documents::saleInvoiceType(), invoice, context_, moment, lines, frame::HeaderWrite::Add);
    if (!document) throw std::logic_error(document.error());
    frame::writeDocument(context_.KORDconn, *document, tran_, lines);
  }

 private:
  frame::DocumentValues blankInvoice(const text::DateTime& moment) {
    frame::DocumentValues invoice;
    invoice.DocNo = std::to_string(++lastNumber_);
    invoice.TrDate = moment.date();
    invoice.IncomeCode = std::to_string(frame::salesIncome);
    invoice.IncomeAcc = "Sales";
    invoice.LocationList = {.text = "Main Store", .id = context_.stocklocationid, .matches = true};
    return invoice;
  }

  Terms chooseCustomer(frame::DocumentValues& invoice) {
    const bool walksIn = dice_.inHundred(30);
    customers_.moveTo(walksIn ? 0 : dice_.between(1, customerCount));
    invoice.PartyCodeTxt = customers_.text("AccCode");
    invoice.PartyNameTxt = walksIn ? dice_.pick(counterNames) : customers_.text("AccName");
    invoice.PartyAddress = customers_.text("Address");
    invoice.PartyTel = customers_.text("Phone");
    invoice.Terms = customers_.text("CreditTerms");
    invoice.EmpList = {.text = {}, .id = customers_.integer("EmpID"), .matches = true};
    if (!walksIn && dice_.inHundred(50)) {
      invoice.fields["D1"] = "PO-" + std::to_string(dice_.between(1000, 9999));
      invoice.fields["D1Dt"] = text::formatDate(invoice.TrDate.addDays(-dice_.between(0, 6)), "dd-mm-yyyy");
    }
    if (walksIn) return Terms::Counter;
    return dice_.inHundred(75) ? Terms::OnAccount : Terms::PartPaid;
  }

  void addLine(store::Recordset& lines) {
    items_.moveTo(dice_.between(0, static_cast<int>(items_.recordCount()) - 1));
    const bool dear = items_.number("SellingPrice") > 20;
    const int quantity = dear ? dice_.between(1, 3) : dice_.between(1, 24);
    const bool discounted = dice_.inHundred(20);
    const std::string rate = text::numberText(items_.number("SellingPrice"));
    const std::string discountRate = discounted ? std::to_string(dice_.between(2, 10)) : "";
    const frame::LineAmounts amounts = frame::lineAmounts(
        {.quantity = std::to_string(quantity), .rate = rate, .discountRate = discountRate, .discount = "0.00"});
    lines.addNew({{"ItemCode", items_.text("ItemCode")},
                  {"ItemName", items_.text("ItemName")},
                  {"StockOut", static_cast<double>(quantity)},
                  {"Unit", items_.text("Unit")},
                  {"Rate", items_.number("SellingPrice")},
                  {"GrossAmt", text::amountFrom(amounts.gross)},
                  {"DiscRate", text::amountFrom(discountRate)},
                  {"DiscAmt", text::amountFrom(amounts.discount)},
                  {"ItemValue", text::amountFrom(amounts.net)}});
  }

  void total(frame::DocumentValues& invoice, const frame::LineSums& sums, Terms terms) {
    frame::TypedAmounts typed{.Discount = "0.00", .Carriage = "0.00", .Received = "0.00"};
    if (terms != Terms::Counter && dice_.inHundred(15)) typed.Carriage = money(dice_.between(3, 12) * 5.0);
    if (sums.net > 200 && dice_.inHundred(25)) typed.Discount = money(dice_.between(1, 10));
    if (terms == Terms::PartPaid) typed.Received = money(text::wholePart(sums.net * dice_.between(20, 60) / 100));
    const auto rule = terms == Terms::Counter ? frame::ReceivedRule::WholeNetTotal : frame::ReceivedRule::AsTyped;
    invoice.totals = frame::RecalculateTotals(sums, typed, rule, context_.currencyname);
  }

  session::LoginContext& context_;
  Dice& dice_;
  store::Recordset items_;
  store::Recordset customers_;
  store::Recordset tran_;
  std::int64_t lastNumber_ = 0;
};

}  // namespace

void writeSales(session::LoginContext& context, Dice& dice, const text::DateTime& now) {
  SalesClerk clerk(context, dice);
  text::DateTime day = now.date().addDays(1 - daysOfSales);
  if (day < context.FinancialYearStart) day = context.FinancialYearStart;
  for (; day <= now.date(); day = day.addDays(1)) {
    if (isSunday(day)) continue;
    const int invoices = dice.between(4, 10);
    for (int sale = 0; sale < invoices; ++sale) {
      const text::DateTime moment{day.day, 8 * 3600 + sale * 3000 + dice.between(0, 2400)};
      if (moment <= now) clerk.sell(moment);
    }
  }
}

}  // namespace velmo::demo
