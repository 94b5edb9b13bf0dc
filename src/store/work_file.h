#pragma once

#include <filesystem>
#include <string>

#include "store/error.h"

namespace velmo::store {

// A file under work beside its final name, empty and readable by its owner alone; what is left of it goes with this
// object. Throws StoreError, naming the final file, when it cannot be made.
class WorkFile {
 public:
  // `suffix` tells the work file's name from the final one; a file of that name is replaced.
  WorkFile(const std::filesystem::path& file, const std::string& suffix);
  ~WorkFile();
  WorkFile(const WorkFile&) = delete;
  WorkFile& operator=(const WorkFile&) = delete;

  const std::filesystem::path path;

 private:
  void removeAll() const noexcept;
};

std::filesystem::path folderOf(const std::filesystem::path& file);

// Waits until a file or folder is on the disk. `flags` are those of open(): O_RDWR for a file, O_RDONLY | O_DIRECTORY
// for a folder.
void syncToDisk(const std::filesystem::path& path, int flags);

// The failure to make `file`, for the reason that the system call before left in `reason` (an errno).
StoreError cannotMake(const std::filesystem::path& file, int reason);
StoreError cannotMake(const std::filesystem::path& file, const std::string& reason);

}  // namespace velmo::store
