#pragma once

#include <string>

#include "documents/production/cost_panel.h"
#include "frame/posting/validation.h"

// What a product costs, from the sums of its lines and from the typed amounts: pure, from shown texts to shown texts,
// so that what is posted adds up as the eye adds it. A typed text that is no number counts as 0.
namespace velmo::documents {

// `TExc`, `Labour`, `FOH` and `TotalCost` of a recipe.
Costs recipeCosts(double material, const Costs& typed, const std::string& currencyName);

// `TotM`, `TotL`, `TotFOH`, `TotOS`, `TotCOP` and `TotCGM` of a production, which is about the goods that were made.
Costs productionCosts(double material, double made, const Costs& typed, const std::string& currencyName);

// A charge below zero would be counted in the cost, and no ledger line could bear it.
frame::ValidationStep notNegative(const char* box, std::string_view text);

}  // namespace velmo::documents
