#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "store/values/catalog.h"
#include "store/values/schema_version.h"

namespace velmo::store {

enum class BackUpStage { Copying, Compacting, Verifying };

struct BackUpRequest {
  std::string source;       // connection string of the file, which may be in use
  std::string destination;  // connection string that names the copy; it keeps the password
  // SELECTs of the dialect whose every row has to read the same in the copy as in the file.
  std::vector<std::string> proofs = {};
  int newestSchemaVersion = anySchemaVersion;
  // Called many times a second, on the thread that called backUp(), so that the screen can repaint.
  std::function<void(BackUpStage)> progress = {};
};

struct BackUpResult {
  std::filesystem::path file;
  std::uintmax_t bytes = 0;
  std::int64_t records = 0;  // in the tables of the catalogue
};

// Makes a consistent, compacted and verified copy of a file while others work with it. The stages:
//   1. one reading transaction on the source counts the rows of every table, reads the proofs and copies all pages;
//   2. the copy is compacted into a work file in the folder of the destination and brought to the disk;
//   3. the work file is opened as any company's file (password, owner, version), tested for soundness, and its counts
//      and proofs are compared with those of stage 1;
//   4. it takes its name, in place of a file of that name.
// Throws StoreError when any stage fails. What stood under the destination's name then still does, and no work file is
// left. The source itself is refused as a destination.
BackUpResult backUp(const Catalog& catalog, const BackUpRequest& request);

}  // namespace velmo::store
