#include "documents/production/production_posting.h"

#include "documents/production/production_costs.h"
#include "frame/posting/fixed_accounts.h"
#include "store/values/value.h"
#include "text/number.h"

namespace velmo::documents {

namespace {

using frame::DocumentValues;
using frame::SaveSituation;

constexpr frame::FixedAccount labourWages{50002001, "Labour Wages"};
constexpr frame::FixedAccount factoryOverhead{50003001, "Factory Overhead"};

double amountOf(const DocumentValues& values, const char* name) {
  return text::amountFrom(values.field(name));
}

}  // namespace

void productionHeader(const DocumentValues& values, const session::LoginContext&, frame::HeaderRow& row) {
  row.set("PartyCode", store::integerOf(values.IncomeCode));
  row.set("PartyCode2", store::integerOf(values.ACodeTxt));
  row.set("Text1", values.IncomeAcc);
  row.set("Text2", values.Acc);
  row.set("Text3", values.PartyCodeTxt.empty() ? std::string("0") : values.PartyCodeTxt);
  row.set("Discount", amountOf(values, "TotM"));
  row.set("Carriage", amountOf(values, "TotL"));
  row.set("TrAmount", amountOf(values, "TotCGM"));
  row.set("Received", amountOf(values, "TotFOH"));
  row.set("Balance", amountOf(values, "TotOS"));
  row.set("WordsAmt", frame::amountInWordsOnly(amountOf(values, "TotCGM")));
}

std::vector<frame::LedgerLine> productionLedger(const DocumentValues& values) {
  std::vector<frame::LedgerLine> lines;
  const auto add = [&](std::int64_t code, std::string_view name, std::optional<double> debit,
                       std::optional<double> credit) {
    lines.push_back(
        {.accCode = code, .accName = std::string(name), .desc = values.Desc, .debit = debit, .credit = credit});
  };
  const auto credit = [&](std::int64_t code, std::string_view name, const char* cost) {
    if (const double amount = amountOf(values, cost); amount > 0) add(code, name, {}, amount);
  };
  add(store::integerOf(values.ACodeTxt), values.Acc, amountOf(values, "TotCGM"), {});
  add(store::integerOf(values.IncomeCode), values.IncomeAcc, {}, amountOf(values, "TotM"));
  credit(labourWages.code, labourWages.name, "TotL");
  credit(factoryOverhead.code, factoryOverhead.name, "TotFOH");
  credit(store::integerOf(values.PartyCodeTxt), values.PartyNameTxt, "TotOS");
  return lines;
}

std::vector<frame::ValidationStep> productionSteps() {
  return {frame::locationIsListed(),
          frame::jobIsListedOrBlank(),
          frame::employeeIsListedOrBlank(),
          {.fails = [](const DocumentValues& v, const SaveSituation&) { return v.IncomeCode.empty(); },
           .text = "Select an appropriate input account to be credited.",
           .control = "IHead_0"},
          {.fails = [](const DocumentValues& v, const SaveSituation&) { return v.ACodeTxt.empty(); },
           .text = "Select an appropriate output account to be debited.",
           .control = "IHead_1"},
          {.fails = [](const DocumentValues& v,
                       const SaveSituation&) { return amountOf(v, "TotOS") > 0 && v.PartyCodeTxt.empty(); },
           .text = "Select a correct production outsourced party.",
           .control = "PartyList"},
          {.fails = [](const DocumentValues& v,
                       const SaveSituation&) { return amountOf(v, "TotCGM") != amountOf(v, "TotCOP"); },
           .text = "Total cost of goods produced must be equal to total value of goods manufactured.",
           .control = "GridOut"},
          notNegative("TotL", "The cost of labour cannot be below zero."),
          notNegative("TotFOH", "The factory overhead cannot be below zero."),
          notNegative("TotOS", "The outsourcing charges cannot be below zero.")};
}

}  // namespace velmo::documents
