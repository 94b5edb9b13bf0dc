#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <tl/expected.hpp>

namespace velmo::spreadsheet {

// A file that is written beside its place and moved there when it is complete. Removed unless it was moved.
class PartFile {
 public:
  // The error is a sentence that says why nothing can be written there.
  static tl::expected<PartFile, std::string> beside(const std::filesystem::path& place);
  PartFile(PartFile&& other) noexcept;
  ~PartFile();

  const std::filesystem::path& path() const { return path_; }
  // Makes what was written durable, then gives it its name; an older file of that name goes in the same instant. A disk
  // takes its time: `goesOn` is called every few milliseconds of it, and false ends with the error "" and no file.
  tl::expected<void, std::string> moveToPlace(const std::function<bool()>& goesOn);

 private:
  PartFile(std::filesystem::path path, std::filesystem::path place);

  std::filesystem::path path_;  // empty after it was moved
  std::filesystem::path place_;
};

}  // namespace velmo::spreadsheet
