#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

#include "schema/company_file.h"
#include "schema/company_schema.h"
#include "store/connection/connection.h"

namespace velmo::test {

// A folder of its own with the file of an empty company, which is the current directory while it lives. The company's
// year holds 22 November 2026.
class NewCompany {
 public:
  explicit NewCompany(const text::DateTime& now = text::DateTime::fromCalendar(2026, 11, 22))
      : before_(std::filesystem::current_path()) {
    std::string pattern = (std::filesystem::temp_directory_path() / "velmo-company-XXXXXX").string();
    if (!mkdtemp(pattern.data())) throw std::runtime_error("no folder for a test company");
    folder_ = pattern;
    std::filesystem::current_path(folder_);
    schema::prepareCompanyFile(schema::plainConnectionString, now);
  }
  ~NewCompany() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
    std::filesystem::remove_all(folder_, ignored);
  }
  NewCompany(const NewCompany&) = delete;
  NewCompany& operator=(const NewCompany&) = delete;

  const std::filesystem::path& folder() const { return folder_; }
  std::filesystem::path file() const { return folder_ / "Uninstall" / "Uninstall.MDB"; }

  static void run(store::Connection& connection, std::initializer_list<const char*> statements) {
    for (const char* statement : statements) connection.execute(statement);
  }
  // On a connection of its own, before or after the program's.
  static void run(std::initializer_list<const char*> statements) {
    store::Connection connection(schema::companyCatalog());
    connection.open(schema::plainConnectionString);
    run(connection, statements);
  }

 private:
  std::filesystem::path before_;
  std::filesystem::path folder_;
};

}  // namespace velmo::test
