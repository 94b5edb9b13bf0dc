#include "documents/trade/trade_rules.h"

#include "frame/posting/day_text.h"
#include "schema/account_types.h"
#include "store/values/value.h"
#include "text/blanks.h"
#include "text/number.h"

namespace velmo::documents {

using frame::above;
using frame::below;
using frame::DocumentValues;
using frame::Figure;
using frame::minus;
using frame::Narration;
using frame::PostedAccount;
using frame::SaveSituation;

frame::ValidationStep headAccountChosen(std::string_view words) {
  return {.fails = [](const DocumentValues& v, const SaveSituation&) { return v.IncomeAcc.empty(); },
          .text = words,
          .control = "IncomeCode"};
}

frame::ValidationStep partyChosen(std::string_view words) {
  return {.fails = [](const DocumentValues& v, const SaveSituation&) { return text::isBlank(v.PartyNameTxt); },
          .text = words,
          .control = "PartyCodeTxt"};
}

frame::ValidationStep cashPartySettles(std::string_view partyCode, std::string_view words) {
  return {
      .fails = [partyCode](const DocumentValues& v,
                           const SaveSituation&) { return v.PartyCodeTxt == partyCode && v.totals.Balance != "0.00"; },
      .text = words,
      .control = "PartyCodeTxt"};
}

frame::ValidationStep fieldFilled(std::string_view field, std::string_view words) {
  return {.fails = [field](const DocumentValues& v, const SaveSituation&) { return text::isBlank(v.field(field)); },
          .text = words,
          .control = field};
}

frame::ValidationStep fieldNumeric(std::string_view field, std::string_view words) {
  return {.fails = [field](const DocumentValues& v, const SaveSituation&) { return !text::isNumeric(v.field(field)); },
          .text = words,
          .control = field};
}

void writeTradeHeader(const DocumentValues& values, frame::HeaderRow& row) {
  const auto amount = [](const std::string& shown) { return text::amountFrom(shown); };
  row.set("PartyCode", store::integerOf(values.IncomeCode));
  row.set("PartyCode2", store::integerOf(values.PartyCodeTxt));
  row.set("Discount", amount(values.totals.Discount));
  row.set("Carriage", amount(values.totals.Carriage));
  row.set("TrAmount", amount(values.totals.NetTotal));
  row.set("Received", amount(values.totals.Received));
  row.set("Balance", amount(values.totals.Balance));
  row.set("WordsAmt", frame::amountInWordsOnly(amount(values.totals.NetTotal)));
}

void writeReturnHeader(const DocumentValues& values, frame::HeaderRow& row) {
  writeTradeHeader(values, row);
  if (values.field("NoteType") == "1") row.set("InvLedger", true);
}

PartyRules customers() {
  return {.caption = "Customer",
          .listCondition = schema::account_type::parties(),
          .newParty = {.caption = "New Customer", .right = 12, .dialog = "ModifyCustomers"},
          .cashCode = frame::walkInCustomer,
          .cashRule = frame::ReceivedRule::WholeNetTotal};
}

PartyRules vendors() {
  return {.caption = "Vendor",
          .listCondition = schema::account_type::parties(),
          .newParty = {.caption = "New Vendor", .right = 12, .dialog = "ModifySuppliers"}};
}

HeadRules incomeAccount(std::int64_t initialCode) {
  return {.caption = "Income Account",
          .listCondition = schema::account_type::anyOf({schema::account_type::Income}),
          .initialCode = initialCode};
}

HeadRules expenseAccount(std::int64_t initialCode) {
  return {.caption = "Expense Account",
          .listCondition = schema::account_type::anyOf({schema::account_type::Expense}),
          .initialCode = initialCode};
}

frame::ItemGridKind purchaseLines(const std::string& quantityField) {
  return {.quantityField = quantityField,
          .priceField = "PurchasePrice",
          .priceCaption = "Purchase Price",
          .historyTranTypes = {schema::tran_type::PurchaseBill},
          .historyQuantityField = "StockIn",
          .serialNumbers = frame::SerialNumbers::Kept};
}

std::vector<frame::PostingRow> receivableRows(const frame::FixedAccount& carriage) {
  using enum Figure;
  return {
      {.when = {above(Received)}, .account = frame::cashInHand, .debit = Received},
      {.when = {above(Balance)}, .account = PostedAccount::Party, .debit = NetTotal},
      {.when = {above(Received), above(Balance)}, .account = PostedAccount::Party, .credit = Received},
      {.account = PostedAccount::Head, .narration = Narration::Lines, .credit = GTotal},
      {.when = {above(Carriage)}, .account = carriage, .narration = Narration::Lines, .credit = Carriage},
      {.when = {below(Carriage)}, .account = carriage, .narration = Narration::Lines, .debit = minus(Carriage)},
  };
}

std::vector<frame::PostingRow> payableRows(const frame::FixedAccount& carriage) {
  using enum Figure;
  return {
      {.account = PostedAccount::Head, .narration = Narration::Lines, .debit = GTotal},
      {.when = {above(Carriage)}, .account = carriage, .narration = Narration::Lines, .debit = Carriage},
      {.when = {below(Carriage)}, .account = carriage, .narration = Narration::Lines, .credit = minus(Carriage)},
      {.when = {above(Received), above(Balance)}, .account = PostedAccount::Party, .debit = Received},
      {.when = {above(Received)}, .account = frame::cashInHand, .credit = Received},
      {.when = {above(Balance)}, .account = PostedAccount::Party, .credit = NetTotal},
  };
}

frame::AgingRow ownOpenItem(const DocumentValues& values) {
  const std::int64_t docNo = store::integerOf(values.DocNo);
  return {.docNo = docNo,
          .docNo2 = docNo,
          .tranDate = values.TrDate,
          .tranDate2 = values.TrDate,
          .partyCode = store::integerOf(values.PartyCodeTxt),
          .trAmount = netTotalOf(values),
          .payment = receivedOf(values),
          .totPayment = receivedOf(values)};
}

frame::AgingRow returnedItem(const DocumentValues& values, std::string_view numberField, std::string_view dayField) {
  return {.docNo = store::integerOf(values.field(numberField)),
          .docNo2 = store::integerOf(values.DocNo),
          .tranDate = frame::dayFrom(values.field(dayField)).value_or(values.TrDate),
          .tranDate2 = values.TrDate,
          .partyCode = store::integerOf(values.PartyCodeTxt),
          .returned = netTotalOf(values),
          .payment = -receivedOf(values),
          .totPayment = balanceOf(values)};
}

double netTotalOf(const DocumentValues& values) {
  return figureOf(values.totals, Figure::NetTotal);
}

double receivedOf(const DocumentValues& values) {
  return figureOf(values.totals, Figure::Received);
}

double balanceOf(const DocumentValues& values) {
  return figureOf(values.totals, Figure::Balance);
}

}  // namespace velmo::documents
