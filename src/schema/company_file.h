#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "store/checks/finding.h"
#include "text/date_time.h"

namespace velmo::schema {

// The two fixed connection strings of the program; the paths in them are relative to the program's folder.
extern const char* const plainConnectionString;
extern const char* const shapeConnectionString;

// The plain string for a company's file that lies elsewhere: a copy, a demonstration.
std::string connectionStringFor(const std::filesystem::path& file);

// The program's folder: the current directory when it holds "Uninstall", otherwise "velmo" in the user's data folder
// (XDG_DATA_HOME), made when missing.
std::filesystem::path programFolder();

// What was seen of a company's file before the first screen, where nobody is to wait.
struct FileState {
  bool seenThrough = true;             // pages and sums of totals; otherwise they are to be checked in an idle moment
  std::vector<store::Finding> damage;  // with any, the file is opened for reading alone
  bool totalsMended = false;           // kept totals were not the sums of their lines, and are now
};

// Makes the file that the connection string names when it is missing, with the schema and the first rows of an empty
// company whose financial year holds `now`; upgrades an older file and keeps a verified copy of what it was; sets kept
// totals right; clears what dead programs left beside it. Several programs may do so at once. A file that is found
// damaged by a short check, and any other file, is left as it is. Throws store::StoreError with a sentence for the
// user.
FileState prepareCompanyFile(const std::string& connectionString, const text::DateTime& now);

}  // namespace velmo::schema
