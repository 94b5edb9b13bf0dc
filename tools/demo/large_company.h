#pragma once

#include <filesystem>

namespace velmo::demo {

struct LargeCompany {
  int invoices = 200000;  // each of five ledger lines, one item line and one open item
  int items = 200000;
  int accounts = 20000;  // customers
};

// Makes a company of that size in the folder, for measurements: the year 2026, invoices spread evenly over its days,
// customers and items. Debits equal credits in every document. Throws StoreError, also when the folder holds a company.
void makeLargeCompany(const std::filesystem::path& folder, const LargeCompany& size);

}  // namespace velmo::demo
