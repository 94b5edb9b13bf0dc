#include "demo_company/trade_document.h"

#include <stdexcept>

#include "frame/document/compose_document.h"
#include "frame/items/line_arithmetic.h"
#include "frame/posting/day_text.h"
#include "schema/account_types.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::demo {

std::vector<TradedParty> readParties(store::Connection& connection) {
  std::vector<TradedParty> parties;
  for (store::Recordset rows(connection,
                             "SELECT * from AccLevel3 where " + schema::account_type::parties() + " order by acccode",
                             store::LockType::ReadOnly);
       !rows.eof(); rows.moveNext())
    parties.push_back({.code = rows.integer("AccCode"),
                       .name = rows.text("AccName"),
                       .address = rows.text("Address"),
                       .phone = rows.text("Phone"),
                       .terms = rows.text("CreditTerms"),
                       .employee = rows.integer("EmpID")});
  return parties;
}

std::vector<TradedItem> readItems(store::Connection& connection) {
  std::vector<TradedItem> items;
  for (store::Recordset rows(connection, "SELECT * FROM StockLevel3 ORDER BY ItemCode", store::LockType::ReadOnly);
       !rows.eof(); rows.moveNext())
    items.push_back({.code = rows.text("ItemCode"),
                     .name = rows.text("ItemName"),
                     .unit = rows.text("Unit"),
                     .cost = rows.number("PurchasePrice"),
                     .price = rows.number("SellingPrice"),
                     .subCategory = rows.text("SubCatID"),
                     .isService = rows.text("CatID") == "Service"});
  return items;
}

TradeDocument::TradeDocument(session::LoginContext& context, const frame::DocumentType& type,
                             const documents::TradeKind& kind, const text::DateTime& moment, std::int64_t docNo)
    : context_(context),
      type_(type),
      kind_(kind),
      moment_(moment),
      sheet_(context.KORDconn, "Select * from stockflow where tranno = 0", store::LockType::BatchOptimistic) {
  values_.DocNo = std::to_string(docNo);
  values_.TrDate = moment.date();
  values_.IncomeCode = std::to_string(kind.head->initialCode);
  values_.IncomeAcc =
      store::Recordset(context.KORDconn, "select accname from acclevel3 where acccode=" + values_.IncomeCode)
          .text("accname");
  values_.LocationList = {.text = "Main Store", .id = context.stocklocationid, .matches = true};
}

void TradeDocument::setParty(const TradedParty& party) {
  values_.PartyCodeTxt = std::to_string(party.code);
  values_.PartyNameTxt = party.name;
  values_.PartyAddress = party.address;
  values_.PartyTel = party.phone;
  values_.Terms = party.terms;
  values_.EmpList = {.text = {}, .id = party.employee, .matches = true};
}

void TradeDocument::refer(const std::string& field, const std::string& number, const text::DateTime& day) {
  values_.fields[field] = number;
  values_.fields[field + "Dt"] = frame::dayText(day);
}

void TradeDocument::add(const TradedItem& item, int quantity, double rate, int discountRate,
                        const std::string& serials) {
  const frame::LineAmounts amounts =
      frame::lineAmounts({.quantity = std::to_string(quantity),
                          .rate = text::numberText(rate),
                          .discountRate = discountRate == 0 ? "" : std::to_string(discountRate),
                          .discount = "0.00"});
  sheet_.addNew({{"ItemCode", item.code},
                 {"ItemName", item.name},
                 {"ProductSerials", serials.empty() ? store::Value() : store::Value(serials)},
                 {kind_.lines.quantityField, static_cast<double>(quantity)},
                 {"Unit", item.unit},
                 {"Rate", rate},
                 {"GrossAmt", text::amountFrom(amounts.gross)},
                 {"DiscRate", discountRate == 0 ? store::Value() : store::Value(std::int64_t{discountRate})},
                 {"DiscAmt", text::amountFrom(amounts.discount)},
                 {"ItemValue", text::amountFrom(amounts.net)}});
  traded_.push_back({.docNo = std::stoll(values_.DocNo),
                     .day = values_.TrDate,
                     .party = std::stoll(values_.PartyCodeTxt),
                     .reference = values_.field("D1"),
                     .itemCode = item.code,
                     .quantity = quantity,
                     .rate = rate});
}

frame::DocumentTotals TradeDocument::totals(frame::ReceivedRule rule) const {
  return frame::RecalculateTotals(frame::sumLines(sheet_), typed_, rule, context_.currencyname);
}

double TradeDocument::netTotal(frame::ReceivedRule rule) const {
  return text::amountFrom(totals(rule).NetTotal);
}

void TradeDocument::pay(double share, frame::ReceivedRule rule) {
  const double net = netTotal(rule);
  typed_.Received = text::formatNumber(share == 1 ? net : text::wholePart(net * share), "0.00");
}

frame::DocumentWrite TradeDocument::compose(frame::ReceivedRule rule) {
  values_.totals = totals(rule);
  auto document = frame::composeDocument(type_, values_, context_, moment_,
                                         frame::lineNarrations(sheet_, kind_.lines.quantityField, context_.ccode),
                                         frame::HeaderWrite::Add);
  if (!document) throw std::logic_error(document.error());
  return std::move(*document);
}

}  // namespace velmo::demo
