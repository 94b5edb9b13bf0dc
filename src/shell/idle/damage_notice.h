#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "schema/company_file.h"
#include "session/clock.h"
#include "session/prompts.h"
#include "store/checks/finding.h"
#include "store/connection/connection.h"

namespace velmo::shell {

// The copy of a damaged file that was kept beside it, or why there is none.
struct KeptCopy {
  std::filesystem::path file;
  std::string failure;
};

KeptCopy keepCopy(store::Connection& connection, const text::DateTime& now);

// Tells the user what is damaged, where the copy is and where the last back-up, which the file itself remembers.
void tellDamage(session::Prompts& prompts, store::Connection& connection, const std::vector<store::Finding>& damage,
                const KeptCopy& copy);

// The same before the first screen, for a file that is not open yet: it is opened for reading alone.
void tellDamageAtStart(session::Prompts& prompts, const session::Clock& clock, const std::string& connectionString,
                       const schema::FileState& state);

}  // namespace velmo::shell
