#pragma once

#include <filesystem>

namespace velmo::attack {

// A folder of its own for a company at risk; the current one while it lives. Throws std::runtime_error.
class RiskFolder {
 public:
  RiskFolder();
  ~RiskFolder();  // with all that is in it, unless it is kept
  RiskFolder(const RiskFolder&) = delete;
  RiskFolder& operator=(const RiskFolder&) = delete;

  void keep() { kept_ = true; }
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path before_;
  std::filesystem::path path_;
  bool kept_ = false;
};

}  // namespace velmo::attack
