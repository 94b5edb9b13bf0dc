#include "demo_company/orders.h"

#include <stdexcept>
#include <utility>

#include "demo_company/next_number.h"
#include "demo_company/parties.h"
#include "documents/conversions/convert_document.h"
#include "documents/invoices/purchase_bill_type.h"
#include "documents/orders/order_types.h"
#include "frame/document/compose_document.h"
#include "frame/items/line_arithmetic.h"
#include "frame/posting/day_text.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::demo {
namespace {

using namespace schema::tran_type;

constexpr std::uint32_t seed = 9194;
constexpr const char* subjects[] = {"Tools for the workshop", "Yearly demand", "Your enquiry", "Fittings"};
constexpr const char* vehicles[] = {"LXR 4711", "KHI 0815", "MN 2204"};
constexpr const char* drivers[] = {"R. Ahmed", "S. Lind", "T. Brook"};

const documents::Conversion& way(int from, int to) {
  for (const documents::Conversion& conversion : documents::conversions())
    if (conversion.from == from && conversion.to == to) return conversion;
  throw std::logic_error("no way from " + std::to_string(from) + " to " + std::to_string(to));
}

bool isInward(const frame::DocumentType& type) {
  return type.form.tranType == PurchaseOrder || type.form.tranType == PurchaseBill;
}

frame::DocumentTotals totalsOf(const store::Recordset& sheet, const session::LoginContext& context) {
  return frame::RecalculateTotals(frame::sumLines(sheet), {}, frame::ReceivedRule::AsTyped, context.currencyname);
}

double amountOf(double quantity, double rate) {
  return text::amountFrom(frame::lineAmounts({.quantity = text::numberText(quantity),
                                              .rate = text::numberText(rate),
                                              .discountRate = {},
                                              .discount = "0.00"})
                              .gross);
}

}  // namespace

OrderClerk::OrderClerk(session::LoginContext& context, std::map<std::string, double>& stock)
    : context_(context),
      stock_(stock),
      dice_(seed),
      items_(context.KORDconn, "SELECT * FROM StockLevel3 WHERE CatID not like 'Service' ORDER BY ItemCode") {}

void OrderClerk::work(const text::DateTime& day, const text::DateTime& now) {
  const std::string name = text::formatDate(day, "ddd");
  const auto at = [&](int hour) { return text::DateTime{day.day, hour * 3600 + dice_.between(0, 3599)}; };
  const auto on = [&](const text::DateTime& moment, void (OrderClerk::*step)(const text::DateTime&)) {
    if (moment <= now) (this->*step)(moment);
  };
  if (name == "Sun") return;
  context_.UserID = 2;
  on(at(8), &OrderClerk::carryOn);
  if (name == "Thu") on(at(9), &OrderClerk::orderGoods);
  if (name == "Tue") on(at(10), &OrderClerk::quote);
  if (name == "Mon" || name == "Wed") on(at(11), &OrderClerk::takeOrder);
}

// New papers

void OrderClerk::quote(const text::DateTime& moment) {
  const std::int64_t made =
      write(documents::quotationType(), moment, firstCustomer + dice_.between(0, customerCount - 1),
            {{"Subject", dice_.pick(subjects)}, {"Conditions", "Valid for 30 days"}});
  expect(60, made, Quotation, SaleOrder, moment);
}

void OrderClerk::takeOrder(const text::DateTime& moment) {
  const std::int64_t made =
      write(documents::saleOrderType(), moment, firstCustomer + dice_.between(0, customerCount - 1),
            {{"D1", "PO-" + std::to_string(dice_.between(1000, 9999))}, {"D1Dt", frame::dayText(moment)}});
  follow(made, SaleOrder, moment);
}

void OrderClerk::orderGoods(const text::DateTime& moment) {
  const std::int64_t made = write(documents::purchaseOrderType(), moment,
                                  firstVendor + dice_.between(0, vendorCount - 1), {{"Conditions", "Carriage paid"}});
  follow(made, PurchaseOrder, moment);
}

// What becomes of them

void OrderClerk::expect(int chances, std::int64_t tranNo, int from, int to, const text::DateTime& day) {
  if (dice_.inHundred(chances)) due_.push_back({day.date().addDays(dice_.between(1, 4)), tranNo, from, to});
}

void OrderClerk::follow(std::int64_t tranNo, int tranType, const text::DateTime& day) {
  switch (tranType) {
    case SaleOrder:
      return expect(80, tranNo, SaleOrder, DeliveryChallan, day);
    case DeliveryChallan:
      expect(40, tranNo, DeliveryChallan, OutwardGatePass, day);
      return expect(80, tranNo, DeliveryChallan, SaleInvoice, day.addDays(2));
    case PurchaseOrder:
      expect(70, tranNo, PurchaseOrder, InwardGatePass, day.addDays(3));
      return expect(70, tranNo, PurchaseOrder, PurchaseBill, day.addDays(7));
    default:
      return;
  }
}

void OrderClerk::carryOn(const text::DateTime& moment) {
  std::vector<Due> later;
  for (const Due& due : std::exchange(due_, {})) {
    if (due.day > moment.date()) {
      later.push_back(due);
      continue;
    }
    const std::int64_t made = documents::convertDocument(context_, way(due.from, due.to), due.tranNo, moment);
    if (due.to == SaleOrder)
      complete(documents::saleOrderType(), made, moment,
               {{"D1", "PO-" + std::to_string(dice_.between(1000, 9999))}, {"D1Dt", frame::dayText(moment)}});
    if (due.to == DeliveryChallan)
      complete(documents::deliveryChallanType(), made, moment,
               {{"Vehicle", dice_.pick(vehicles)}, {"Driver", dice_.pick(drivers)}},
               dice_.inHundred(20) ? Delivered::Half : Delivered::Whole);
    if (due.to == PurchaseBill) {
      complete(documents::purchaseBillType(), made, moment,
               {{"D1", "V-" + std::to_string(dice_.between(10000, 99999))}, {"D1Dt", frame::dayText(moment)}});
      stockUp(made);
    }
    follow(made, due.to, moment);
  }
  due_.insert(due_.end(), later.begin(), later.end());
}

// Writing

void OrderClerk::addLines(store::Recordset& sheet, bool inward) {
  for (int count = dice_.between(1, 4); count > 0; --count) {
    items_.moveTo(dice_.between(0, static_cast<int>(items_.recordCount()) - 1));
    const std::string code = items_.text("ItemCode");
    const int quantity = inward ? dice_.between(2, 8) * 5 : dice_.between(1, 6);
    if (!inward && stock_[code] < 2 * quantity) continue;
    if (!inward) stock_[code] -= quantity;
    const double rate = items_.number(inward ? "PurchasePrice" : "SellingPrice");
    const double amount = amountOf(quantity, rate);
    sheet.addNew({{"ItemCode", code},
                  {"ItemName", items_.text("ItemName")},
                  {inward ? "StockIn" : "StockOut", static_cast<double>(quantity)},
                  {"Unit", items_.text("Unit")},
                  {"Rate", rate},
                  {"GrossAmt", amount},
                  {"DiscAmt", 0.0},
                  {"ItemValue", amount}});
  }
}

std::int64_t OrderClerk::write(const frame::DocumentType& type, const text::DateTime& moment, std::int64_t party,
                               Fields fields) {
  store::Recordset sheet(context_.KORDconn, "Select * from stockflow where tranno = 0",
                         store::LockType::BatchOptimistic);
  while (sheet.isEmpty()) addLines(sheet, isInward(type));
  const store::Recordset account(context_.KORDconn, "select * from acclevel3 where acccode=" + std::to_string(party));
  frame::DocumentValues values;
  values.DocNo = std::to_string(nextNumber(context_, type.form.tranType));
  values.TrDate = moment.date();
  values.PartyCodeTxt = std::to_string(party);
  values.PartyNameTxt = account.text("AccName");
  values.PartyAddress = account.text("Address");
  values.PartyTel = account.text("Phone");
  values.Terms = account.text("CreditTerms");
  values.EmpList.id = account.integer("EmpID");
  values.LocationList.id = context_.stocklocationid;
  values.fields = std::move(fields);
  values.totals = totalsOf(sheet, context_);
  const auto document = frame::composeDocument(type, values, context_, moment, {}, frame::HeaderWrite::Add);
  if (!document) throw std::logic_error(document.error());
  store::Recordset tran(context_.KORDconn, "SELECT * from transactions where tranno = 0");
  return frame::writeDocument(context_.KORDconn, *document, tran, sheet);
}

void OrderClerk::complete(const frame::DocumentType& type, std::int64_t tranNo, const text::DateTime& moment,
                          const Fields& given, Delivered delivered) {
  const std::string ofIt = " where tranno = " + std::to_string(tranNo);
  store::Recordset tran(context_.KORDconn, "SELECT * from transactions" + ofIt);
  store::Recordset sheet(context_.KORDconn, "Select * from stockflow" + ofIt + " order by serial",
                         store::LockType::BatchOptimistic);
  if (delivered == Delivered::Half)
    for (; !sheet.eof(); sheet.moveNext()) {
      const double quantity = text::wholePart((sheet.number("StockOut") + 1) / 2);
      const double amount = amountOf(quantity, sheet.number("Rate"));
      sheet.update({{"StockOut", quantity}, {"GrossAmt", amount}, {"ItemValue", amount}});
    }
  frame::DocumentValues values;
  values.DocNo = tran.text("DocNo");
  values.TrDate = tran.date("TranDate");
  values.Desc = tran.text("Desc");
  values.PartyCodeTxt = tran.text("PartyCode2");
  values.PartyNameTxt = tran.text("Text1");
  values.PartyAddress = tran.text("Text2");
  values.PartyTel = tran.text("Text3");
  values.Terms = tran.text("Nature");
  values.IncomeCode = tran.text("PartyCode");
  values.IncomeAcc = "Purchases";  // of bills, which alone have one
  values.EmpList.id = tran.integer("EmpID");
  values.LocationList.id = context_.stocklocationid;
  for (const frame::DocumentField& field : type.fields)
    values.fields[std::string(field.name)] = tran.text(field.column);
  for (const auto& [field, text] : given) values.fields[field] = text;
  values.totals = totalsOf(sheet, context_);
  const std::string narrations = frame::lineNarrations(sheet, isInward(type) ? "StockIn" : "StockOut", context_.ccode);
  const auto document = frame::composeDocument(type, values, context_, moment, narrations, frame::HeaderWrite::Update);
  if (!document) throw std::logic_error(document.error());
  frame::writeDocument(context_.KORDconn, *document, tran, sheet);
}

void OrderClerk::stockUp(std::int64_t bill) {
  for (store::Recordset lines(context_.KORDconn,
                              "select itemcode, stockin from stockflow where tranno=" + std::to_string(bill));
       !lines.eof(); lines.moveNext())
    stock_[lines.text("itemcode")] += lines.number("stockin");
}

}  // namespace velmo::demo
