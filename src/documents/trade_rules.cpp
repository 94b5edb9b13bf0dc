#include "documents/trade_rules.h"

#include "store/value.h"
#include "text/number.h"

namespace velmo::documents {

using frame::DocumentValues;
using frame::Figure;
using frame::SaveSituation;

frame::ValidationStep headAccountChosen(std::string_view words) {
  return {.fails = [](const DocumentValues& v, const SaveSituation&) { return v.IncomeAcc.empty(); },
          .text = words,
          .control = "IncomeCode"};
}

frame::ValidationStep partyChosen(std::string_view words) {
  return {.fails = [](const DocumentValues& v, const SaveSituation&) { return v.PartyNameTxt.empty(); },
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
  return {.fails = [field](const DocumentValues& v, const SaveSituation&) { return v.field(field).empty(); },
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

bool returnLeavesStock(const DocumentValues& values, const session::LoginContext& context) {
  return context.BillInvLedger || values.field("NoteType") == "1";
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
