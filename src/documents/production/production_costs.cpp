#include "documents/production/production_costs.h"

#include "text/decimal_sum.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::documents {

namespace {

std::string shown(double amount) {
  return text::formatNumber(amount, "0.00; (0.00)");
}

std::string sumOf(const Costs& costs, std::initializer_list<const char*> names) {
  text::DecimalSum sum;
  for (const char* name : names) sum += text::amountFrom(costs.at(name));
  return shown(sum.value());
}

void countTyped(const Costs& typed, Costs& costs) {
  for (const auto& [name, text] : typed) costs[name] = frame::countedText(text);
}

void addWords(Costs& costs, const char* name, const std::string& currencyName) {
  costs["AmtWords"] = currencyName + " " + frame::amountInWordsOnly(text::amountFrom(costs.at(name)));
}

}  // namespace

Costs recipeCosts(double material, const Costs& typed, const std::string& currencyName) {
  Costs costs{{"TExc", shown(material)}};
  countTyped(typed, costs);
  costs["TotalCost"] = sumOf(costs, {"TExc", "Labour", "FOH"});
  addWords(costs, "TotalCost", currencyName);
  return costs;
}

Costs productionCosts(double material, double made, const Costs& typed, const std::string& currencyName) {
  Costs costs{{"TotM", shown(material)}, {"TotCGM", shown(made)}};
  countTyped(typed, costs);
  costs["TotCOP"] = sumOf(costs, {"TotM", "TotL", "TotFOH", "TotOS"});
  addWords(costs, "TotCGM", currencyName);
  return costs;
}

frame::ValidationStep notNegative(const char* box, std::string_view text) {
  return {.fails = [box](const frame::DocumentValues& v,
                         const frame::SaveSituation&) { return text::amountFrom(v.field(box)) < 0; },
          .text = text,
          .control = box};
}

}  // namespace velmo::documents
