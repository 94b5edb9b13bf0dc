#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "store/values/error.h"

namespace velmo::store {

// A file under work beside its final name, empty and readable by its owner alone; what is left of it goes with this
// object. Its name is its own: two programs, or two works of one, never meet there. Throws StoreError, naming the final
// file, when it cannot be made.
class WorkFile {
 public:
  // `kind` ends the name of the work file: "new", "copy".
  WorkFile(const std::filesystem::path& file, std::string_view kind);
  ~WorkFile();
  WorkFile(const WorkFile&) = delete;
  WorkFile& operator=(const WorkFile&) = delete;

  const std::filesystem::path path;

 private:
  void removeAll() const noexcept;
};

// ".<name>.velmo-<boot>-<process>-<its start>-<number>.<kind>" beside the file: tells whose work it is.
std::filesystem::path workPath(const std::filesystem::path& file, std::string_view kind);

// Removes from the folder the work files of programs that live no longer. Those of a living one stay, also when nothing
// can be told of it because it ran before the computer was started, or on another computer, less than a day ago.
// Earlier versions gave other names, which count as theirs for files whose names begin with `formerNames`.
void clearAbandonedWork(const std::filesystem::path& folder, std::string_view formerNames);

// Gives the work file the name of `file` unless there is one of that name: false then. Throws StoreError.
bool takeNewName(const std::filesystem::path& workFile, const std::filesystem::path& file);

std::filesystem::path folderOf(const std::filesystem::path& file);

// Waits until a file or folder is on the disk. `flags` are those of open(): O_RDWR for a file, O_RDONLY | O_DIRECTORY
// for a folder. Not for a file that a connection has open: see isOpenDatabase().
void syncToDisk(const std::filesystem::path& path, int flags);

// The failure to make `file`, for the reason that the system call before left in `reason` (an errno).
StoreError cannotMake(const std::filesystem::path& file, int reason);
StoreError cannotMake(const std::filesystem::path& file, const std::string& reason);

}  // namespace velmo::store
