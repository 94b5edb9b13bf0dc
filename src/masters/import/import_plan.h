#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "masters/import/import_books.h"
#include "masters/import/import_mapping.h"
#include "spreadsheet/sheet.h"
#include "store/values/value.h"

namespace velmo::masters {

enum class MissingRows { Refuse, Make };  // brands and sub categories that the books do not have
enum class SameNames { Refuse, Allow };   // of accounts

struct ImportOptions {
  MissingRows missing = MissingRows::Refuse;
  SameNames sameNames = SameNames::Refuse;
};

// One row of the file and what becomes of it.
struct PlannedRow {
  std::size_t line = 0;   // in the file, from 1
  std::string code = {};  // that it will have; "" when it cannot be made
  std::string name = {};
  std::string place = {};    // the sub type or sub category that it will stand under, as lists show it
  std::string problem = {};  // sentences; "" for a row that can be written
  // By writtenColumns(); none for a row with a problem. A brand that is yet to be made stands as -1 - its place among
  // the new brands.
  std::vector<store::Value> values = {};
};

struct ImportPlan {
  ImportKind kind = ImportKind::Accounts;
  std::vector<std::string> newBrands = {};
  std::vector<NamedRow> newSubCategories = {};
  std::vector<PlannedRow> rows = {};
  std::size_t problems = 0;  // rows that have one

  std::size_t good() const { return rows.size() - problems; }
};

// The columns of AccLevel3 or StockLevel3 that a row is written with, or what a count tells, in their order.
const std::vector<std::string>& writtenColumns(ImportKind kind);

// Called every few hundred rows with the number of rows done; false stops the work.
using ImportProgress = std::function<bool(std::int64_t rows)>;

// What would be written, row by row in the order of the file; blank rows are passed over. Rows without a problem get
// their codes in that order. Nothing when the progress function stopped the work. Writes nothing.
std::optional<ImportPlan> planImport(const ImportDescriptor& kind, const spreadsheet::Sheet& sheet,
                                     const ImportMapping& mapping, const ImportOptions& options,
                                     const ImportBooks& books, const ImportProgress& progress = {});

}  // namespace velmo::masters
