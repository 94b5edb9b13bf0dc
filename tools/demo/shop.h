#pragma once

#include <filesystem>

namespace velmo::demo {

// Grows with whatever changes in the rows of the shop.
inline constexpr int shopRecipe = 1;

// Makes a shop of two years of trade in the folder, for measurements: 330,000 documents of every kind that the program
// writes, a tenth of them in 2025 and the others in 2026, one in a hundred cancelled; 20,000 items, of which an invoice
// has up to 20, at three locations; 20,000 accounts. Few items and customers come often and most seldom. Each document
// is composed and written by the program's own code, in transactions of many. The same rows every time. `share` makes
// all of it smaller. Throws StoreError, also when the folder holds a company.
void makeShop(const std::filesystem::path& folder, double share = 1);

}  // namespace velmo::demo
