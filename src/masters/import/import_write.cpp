#include "masters/import/import_write.h"

#include "masters/import/import_codes.h"
#include "store/recordset/recordset.h"

namespace velmo::masters {
namespace {

constexpr std::int64_t rowsBetweenReports = 64;

// The keys that the new brands got.
std::vector<std::int64_t> writeBrands(store::Connection& connection, const std::vector<std::string>& names) {
  std::vector<std::int64_t> keys;
  store::Recordset brands(connection, "select * from brands where brandid = 0");
  for (const std::string& name : names) {
    brands.addNew({{"BrandName", name}});
    keys.push_back(brands.integer("BrandID"));
  }
  return keys;
}

using Codes = std::map<std::string, std::string>;

// The code in place of a planned one.
std::string codeNow(const std::string& planned, const Codes& moved) {
  const auto found = moved.find(planned);
  return found == moved.end() ? planned : found->second;
}

void writeSubCategories(store::Connection& connection, const std::vector<NamedRow>& rows, const Codes& moved) {
  store::Recordset subCategories(connection, "select * from stocklevel2 where catid like '0X0X0X0'");
  for (const NamedRow& row : rows)
    subCategories.addNew({{"subcatid", codeNow(row.code, moved)}, {"subcatname", row.name}, {"catid", row.parent}});
}

store::Value keyOfBrand(const store::Value& value, const std::vector<std::int64_t>& newBrands) {
  const std::int64_t brand = store::integerOf(value);
  return brand < 0 ? store::Value(newBrands.at(static_cast<std::size_t>(-1 - brand))) : value;
}

// Adds rows to a table. A recordset keeps the rows that it has written, so that a new one is taken from time to time.
class RowAdder {
 public:
  RowAdder(store::Connection& connection, const char* statement) : connection_(connection), statement_(statement) {}

  void add(std::span<const store::FieldValue> values) {
    constexpr int mostKept = 1000;
    if (added_++ % mostKept == 0) rows_ = store::Recordset(connection_, statement_);
    rows_.addNew(values);
  }

 private:
  store::Connection& connection_;
  const char* statement_;
  store::Recordset rows_;
  std::int64_t added_ = 0;
};

}  // namespace

bool writeImport(store::Connection& connection, const ImportPlan& plan, const ImportProgress& progress) {
  const std::vector<std::string>& columns = writtenColumns(plan.kind);
  store::Connection::Transaction transaction(connection);
  const Codes moved = movedCodes(connection, plan);
  const std::vector<std::int64_t> newBrands = writeBrands(connection, plan.newBrands);
  writeSubCategories(connection, plan.newSubCategories, moved);
  RowAdder rows(connection, plan.kind == ImportKind::Items ? "select * from stocklevel3 where itemcode = ''"
                                                           : "select * from acclevel3 where acccode = 0");
  const char* const movable = plan.kind == ImportKind::Items ? "SubCatID" : "AccCode";
  std::vector<store::FieldValue> written(columns.begin(), columns.end());
  std::int64_t done = 0;
  for (const PlannedRow& row : plan.rows) {
    if (!row.problem.empty()) continue;
    if (progress && done % rowsBetweenReports == 0 && !progress(done)) return false;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const store::Value& planned = row.values[i];
      if (columns[i] == "BrandID")
        written[i].value = keyOfBrand(planned, newBrands);
      else if (columns[i] == movable)
        written[i].value = codeNow(store::textOf(planned), moved);
      else
        written[i].value = planned;
    }
    rows.add(written);
    ++done;
  }
  transaction.commit();
  return true;
}

}  // namespace velmo::masters
