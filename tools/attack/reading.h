#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "attack/books_check.h"

namespace velmo::attack {

// All that the reader who knows nothing of the program sees in a file and its log.
struct Reading {
  std::int64_t version = 0;                               // of the schema
  std::map<std::string, std::vector<std::string>> names;  // of the columns, by table
  std::map<std::string, std::vector<std::vector<std::string>>> rows;
  bool isWhole = false;  // every row could be read
  std::vector<Flaw> flaws;

  bool has(Flaw::Kind kind) const;
  bool isUnsound() const { return has(Flaw::Kind::Structure) || has(Flaw::Kind::Relation); }
};

// Of a copy that is made of the file and its log, and of neither itself.
Reading readCopyOf(const std::filesystem::path& file);

// Where they differ: "Jobs.Name", "Jobs" for another number of rows; the header and the declarations of the tables are
// called "header" and "sqlite_schema".
std::set<std::string> differences(const Reading& one, const Reading& other);

}  // namespace velmo::attack
