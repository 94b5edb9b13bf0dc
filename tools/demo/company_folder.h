#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "text/date_time.h"

namespace velmo::demo {

// Makes an empty company for the folder, lets `fill` write to it through the connection string, and puts the result in
// place in one step, so that a run that is broken off leaves no half-made company. Throws StoreError (Misuse) when the
// folder holds a company already.
void makeCompanyIn(const std::filesystem::path& folder, const text::DateTime& now,
                   const std::function<void(const std::string& connectionString)>& fill);

}  // namespace velmo::demo
