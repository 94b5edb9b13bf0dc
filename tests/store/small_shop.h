#pragma once

#include <stdlib.h>

#include <filesystem>
#include <optional>
#include <string>

#include "store/connection/connection.h"
#include "store/recordset/recordset.h"
#include "store/upkeep/database_file.h"

namespace velmo::test {

// A catalogue of a few tables: documents with lines that hang on them, codes of text, every type of column, and one
// table without a key.
inline const store::Catalog& shopCatalog() {
  using enum store::ColumnType;
  static const store::Catalog catalog({
      {.name = "Orders",
       .columns = {{"OrderNo", Long, true},
                   {"DocNo", Long},
                   {"Year", Integer},
                   {"Party", Text},
                   {"Amount", Double},
                   {"Day", Date},
                   {"Cancel", YesNo},
                   {"Grade", Byte}},
       .key = {"OrderNo"},
       .indexes = {{.name = "OrdersByDoc", .columns = {"Year", "DocNo"}}}},
      {.name = "Lines",
       .columns = {{"LineNo", Long, true}, {"OrderNo", Long}, {"Item", Text}, {"Qty", Double}},
       .key = {"LineNo"},
       .relations = {{.column = "OrderNo", .parentTable = "Orders", .parentColumn = "OrderNo", .cascadeDelete = true}},
       .indexes = {{.name = "LinesByOrder", .columns = {"OrderNo"}}}},
      {.name = "Items", .columns = {{"Item", Text}, {"ItemName", Text}, {"Notes", Memo}}, .key = {"Item"}},
      {.name = "Tally", .columns = {{"Day", Date}, {"Amount", Double}}, .key = {}},
  });
  return catalog;
}

inline constexpr const char* shopPassword = "pass;word";

// A folder of its own that goes with the object.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "velmo-store-XXXXXX").string();
    path_ = mkdtemp(pattern.data());
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

inline std::string shopConnectionString(const std::filesystem::path& file, const std::string& password = shopPassword) {
  return "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + file.string() + ";Jet OLEDB:Database Password=\"" +
         password + "\"";
}

// An open file with the catalogue's tables and no rows.
struct SmallShop {
  SmallShop() {
    store::createDatabaseFile(file(), shopCatalog(), shopPassword, 1, {});
    connection.open(shopConnectionString(file()));
  }
  std::filesystem::path file() const { return folder.path() / "Shop.MDB"; }

  store::Recordset open(std::string_view statement, store::LockType lock = store::LockType::Optimistic,
                        store::Fetch fetch = store::Fetch::All) {
    return {connection, statement, lock, fetch};
  }
  // The first field of the first row of a select, as text; "none" without a row.
  std::string read(std::string_view statement) {
    store::Recordset rows(connection, statement, store::LockType::ReadOnly);
    return rows.eof() ? "none" : store::textOf(rows.valueAt(0, 0));
  }
  void addOrders(int count, int year = 1) {
    for (int i = 1; i <= count; ++i) {
      connection.execute("INSERT INTO Orders (DocNo, [Year], Party, Amount) VALUES (" + std::to_string(i) + ", " +
                         std::to_string(year) + ", 'P" + std::to_string(i) + "', " + std::to_string(i * 10) + ")");
    }
  }

  TemporaryFolder folder;
  store::Connection connection{shopCatalog()};
};

// The field of all rows in the recordset's order, as "a,b,c".
inline std::string column(store::Recordset rows, std::string_view field) {
  std::string all;
  for (rows.moveFirst(); !rows.eof(); rows.moveNext()) all += rows.text(field) + ",";
  if (!all.empty()) all.pop_back();
  return all;
}

template <class Action>
std::optional<store::ErrorKind> failureOf(Action action) {
  try {
    action();
  } catch (const store::StoreError& error) {
    return error.kind();
  }
  return std::nullopt;
}

}  // namespace velmo::test
