#include "spreadsheet/part_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <future>
#include <utility>

#include "store/file/file_check.h"
#include "store/file/work_file.h"

namespace velmo::spreadsheet {
namespace {

std::string inQuotes(const std::filesystem::path& path) {
  return "\"" + path.string() + "\"";
}

std::string sentenceFor(int error, const std::filesystem::path& folder) {
  switch (error) {
    case EACCES:
    case EPERM:
    case EROFS:
      return "The folder " + inQuotes(folder) + " cannot be written to. Choose another folder.";
    case ENOSPC:
    case EDQUOT:
      return "The disk of the folder " + inQuotes(folder) + " is full.";
    case ENAMETOOLONG:
      return "The name of the file is too long.";
    default:
      return "Nothing can be written in the folder " + inQuotes(folder) + ": " + std::strerror(error) + ".";
  }
}

std::string companyFile(const std::filesystem::path& place) {
  return inQuotes(place) + " is a company's file. Give another name.";
}

// Gives what was written of a file, or the names in a folder, to the disk; 0 or what went wrong.
int makeDurable(const std::filesystem::path& path) {
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return errno;
  const int error = ::fsync(descriptor) == 0 ? 0 : errno;
  ::close(descriptor);
  return error;
}

}  // namespace

PartFile::PartFile(std::filesystem::path path, std::filesystem::path place)
    : path_(std::move(path)), place_(std::move(place)) {}

PartFile::PartFile(PartFile&& other) noexcept
    : path_(std::exchange(other.path_, {})), place_(std::move(other.place_)) {}

PartFile::~PartFile() {
  std::error_code ignored;
  if (!path_.empty()) std::filesystem::remove(path_, ignored);
}

tl::expected<PartFile, std::string> PartFile::beside(const std::filesystem::path& place) {
  std::error_code unknown;
  std::filesystem::path folder = place.parent_path();
  if (folder.empty()) folder = ".";
  if (!std::filesystem::is_directory(folder, unknown))
    return tl::unexpected("There is no folder " + inQuotes(folder) + ".");
  if (std::filesystem::is_directory(place, unknown))
    return tl::unexpected(inQuotes(place) + " is a folder. Give another name.");
  if (std::filesystem::exists(place, unknown) && ::access(place.c_str(), W_OK) != 0)
    return tl::unexpected("The file " + inQuotes(place) + " cannot be replaced. Give another name.");
  if (store::isDatabaseFile(place)) return tl::unexpected(companyFile(place));
  store::clearAbandonedWork(folder, place.filename().string());
  const std::filesystem::path path = store::workPath(place, "part");
  const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0666);
  if (descriptor < 0) return tl::unexpected(sentenceFor(errno, folder));
  ::close(descriptor);
  return PartFile(path, place);
}

tl::expected<void, std::string> PartFile::moveToPlace(const std::function<bool()>& goesOn) {
  const std::filesystem::path folder = path_.parent_path();
  std::future<int> durable = std::async(std::launch::async, makeDurable, path_);
  bool wanted = goesOn();
  while (durable.wait_for(std::chrono::milliseconds(10)) != std::future_status::ready) wanted = goesOn() && wanted;
  if (const int error = durable.get()) return tl::unexpected(sentenceFor(error, folder));
  if (!wanted) return tl::unexpected(std::string());
  if (store::isDatabaseFile(place_)) return tl::unexpected(companyFile(place_));
  if (::rename(path_.c_str(), place_.c_str()) != 0) return tl::unexpected(sentenceFor(errno, folder));
  path_.clear();
  makeDurable(folder);  // some file systems cannot; the file is whole either way
  return {};
}

}  // namespace velmo::spreadsheet
