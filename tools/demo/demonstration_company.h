#pragma once

#include <filesystem>

#include "text/date_time.h"

namespace velmo::demo {

// Makes the company "Harbour Hardware Wholesale" in the folder, to be the program's folder: the same rows whenever it
// is made with the same `now`. Stages: the empty company (schema), people and settings (people.h), customers, vendors
// and banks (parties.h), goods and services (catalogue.h), opening balances (openings.h), the sales of the weeks up to
// now (sales.h). The company takes its place when it is whole. Throws StoreError, also when the folder holds one.
void makeDemonstrationCompany(const std::filesystem::path& folder, const text::DateTime& now);

}  // namespace velmo::demo
