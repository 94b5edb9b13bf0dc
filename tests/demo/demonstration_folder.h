#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "demo_company/demonstration_company.h"

namespace velmo::test {

inline const text::DateTime demonstrationNow = text::DateTime::fromCalendar(2026, 11, 22, 14, 7, 9);

inline std::filesystem::path freshFolder(const std::string& name) {
  const std::filesystem::path folder = std::filesystem::path(testing::TempDir()) / (name + std::to_string(getpid()));
  std::filesystem::remove_all(folder);
  return folder;
}

// The folder of a demonstration company that all tests read and none changes: made at the first call, gone with the
// program.
inline const std::filesystem::path& demonstrationFolder() {
  struct Folder {
    std::filesystem::path path = freshFolder("demonstration");
    Folder() { demo::makeDemonstrationCompany(path, demonstrationNow); }
    ~Folder() {
      std::error_code ignored;
      std::filesystem::remove_all(path, ignored);
    }
  };
  static const Folder folder;
  return folder.path;
}

inline std::filesystem::path companyFile(const std::filesystem::path& folder) {
  return folder / "Uninstall" / "Uninstall.MDB";
}

}  // namespace velmo::test
