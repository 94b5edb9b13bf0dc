#pragma once

#include <gtest/gtest.h>

#include <filesystem>

#include "schema/company_file.h"
#include "schema/company_schema.h"
#include "store/connection/connection.h"
#include "store/recordset/recordset.h"

namespace velmo::test {

// An empty company in a folder of its own, open; the folder goes with it.
class NewCompany {
 public:
  explicit NewCompany(const text::DateTime& now = text::DateTime::fromCalendar(2026, 11, 22, 14, 7, 9))
      : folder(std::filesystem::path(testing::TempDir()) /
               ("company-" + std::to_string(getpid()) + "-" + std::to_string(++count))),
        file(folder / "Uninstall" / "Uninstall.MDB"),
        connection(schema::companyCatalog()) {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    schema::prepareCompanyFile(schema::connectionStringFor(file), now);
    connection.open(schema::connectionStringFor(file));
  }

  ~NewCompany() {
    connection.close();
    std::filesystem::remove_all(folder);
  }

  store::Recordset rows(const std::string& statement) {
    return store::Recordset(connection, statement, store::LockType::ReadOnly);
  }
  // The one figure of a statement that gives one row.
  double figure(const std::string& statement) { return store::numberOf(rows(statement).valueAt(0, 0)); }

  std::filesystem::path folder;
  std::filesystem::path file;
  store::Connection connection;

 private:
  static inline int count = 0;
};

}  // namespace velmo::test
