#include "attack/risk_folder.h"

#include <cstdlib>
#include <stdexcept>

namespace velmo::attack {

namespace fs = std::filesystem;

RiskFolder::RiskFolder() : before_(fs::current_path()) {
  std::string pattern = (fs::temp_directory_path() / "velmo-risk-XXXXXX").string();
  if (!::mkdtemp(pattern.data())) throw std::runtime_error("no folder for a company");
  path_ = pattern;
  fs::current_path(path_);
}

RiskFolder::~RiskFolder() {
  std::error_code ignored;
  fs::current_path(before_, ignored);
  if (!kept_) fs::remove_all(path_, ignored);
}

}  // namespace velmo::attack
