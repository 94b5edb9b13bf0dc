#pragma once

#include <unordered_map>

#include "masters/import/import_row.h"

namespace velmo::masters {

// Makes a plan's rows of one kind, each with regard to those before it.
class ImportPlanner {
 public:
  virtual ~ImportPlanner() = default;
  // Fills in all but the line and the problem; what is wrong is noted in the row. Codes are handed out last, and only
  // while nothing is wrong.
  virtual void plan(ImportRow& row, PlannedRow& planned) = 0;
};

// Names or codes that are used up, by the books or by a row of the file.
class TakenNames {
 public:
  TakenNames(const ImportDescriptor& kind, const ImportBooks& books) : kind_(kind), books_(books) {}
  void check(const std::string& folded, ImportRow& row) const;
  void checkCode(const std::string& code, ImportRow& row) const;  // which may have wildcards
  void take(const std::string& folded, std::size_t line) { lines_.emplace(folded, line); }

 private:
  const ImportDescriptor& kind_;
  const ImportBooks& books_;
  std::unordered_map<std::string, std::size_t> lines_;
};

std::unique_ptr<ImportPlanner> makeAccountPlanner(const ImportDescriptor& kind, const ImportOptions& options,
                                                  const ImportBooks& books);
std::unique_ptr<ImportPlanner> makeItemPlanner(const ImportDescriptor& kind, const ImportOptions& options,
                                               const ImportBooks& books, ImportPlan& plan);

std::unique_ptr<ImportPlanner> makeCountPlanner(const ImportDescriptor& kind, const ImportBooks& books);

// "12001  Trade Customers".
std::string shownPlace(const NamedRow& row);

}  // namespace velmo::masters
