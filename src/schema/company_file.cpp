#include "schema/company_file.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

#include "schema/company_schema.h"
#include "schema/first_rows.h"
#include "schema/upgrades.h"
#include "store/connection_string.h"
#include "store/error.h"
#include "store/file_identity.h"
#include "store/upgrade.h"
#include "store/work_file.h"

namespace velmo::schema {
namespace {

// The folder of the company's file under the program's folder.
constexpr const char* dataFolder = "Uninstall";

std::filesystem::path homeFolder() {
  if (const char* home = std::getenv("HOME"); home != nullptr && *home == '/') return home;
  const passwd* user = getpwuid(getuid());
  if (user == nullptr || user->pw_dir == nullptr)
    throw store::StoreError(store::ErrorKind::Missing, "Your user account has no home folder to keep the data in.");
  return user->pw_dir;
}

// Relative paths in the variable are not valid and are passed over.
std::filesystem::path userDataFolder() {
  if (const char* folder = std::getenv("XDG_DATA_HOME"); folder != nullptr && *folder == '/') return folder;
  return homeFolder() / ".local" / "share";
}

}  // namespace

const char* const plainConnectionString =
    "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=Uninstall\\Uninstall.MDB;"
    "Jet OLEDB:System Database=MySystem.mdw;Jet OLEDB:Database Password=Zx7pK2mQ9vTr4LwB6nHs";

const char* const shapeConnectionString =
    "PROVIDER=MSDataShape;Data Provider=Microsoft.Jet.OLEDB.4.0;Data Source=Uninstall\\Uninstall.MDB;"
    "Jet OLEDB:System Database=MySystem.mdw;Jet OLEDB:Database Password=Zx7pK2mQ9vTr4LwB6nHs";

std::string connectionStringFor(const std::filesystem::path& file) {
  std::string name;
  for (const char c : file.string()) name += c == '"' ? std::string("\"\"") : std::string(1, c);
  return "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=\"" + name +
         "\";Jet OLEDB:System Database=MySystem.mdw;Jet OLEDB:Database Password=Zx7pK2mQ9vTr4LwB6nHs;"
         "Jet OLEDB:Engine Type=5";
}

std::filesystem::path programFolder() {
  std::error_code error;
  const std::filesystem::path current = std::filesystem::current_path(error);
  if (!error && std::filesystem::is_directory(current / dataFolder, error)) return current;
  const std::filesystem::path folder = userDataFolder() / "velmo";
  const bool made = std::filesystem::create_directories(folder, error);
  if (!error && made) std::filesystem::permissions(folder, std::filesystem::perms::owner_all, error);
  if (error)
    throw store::StoreError(store::ErrorKind::Missing,
                            "The folder " + folder.string() + " cannot be made: " + error.message() + ".");
  return folder;
}

void prepareCompanyFile(const std::string& connectionString, const text::DateTime& now) {
  const store::ConnectionString target = store::parseConnectionString(connectionString);
  store::clearAbandonedWork(store::folderOf(target.dataSource), target.dataSource.filename().string());
  std::error_code error;
  // Another program may make the file or bring it up to date at the same moment: what comes first is opened by both.
  if (!std::filesystem::exists(std::filesystem::symlink_status(target.dataSource, error)) &&
      store::createDatabaseFile(target.dataSource, companyCatalog(), target.password, schemaVersion,
                                [&now](store::Connection& connection) { writeFirstRows(connection, now); }))
    return;
  store::upgradeDatabaseFile(target.dataSource, companyCatalog(), target.password, upgrades());
  store::Connection connection(companyCatalog(), schemaVersion);
  connection.open(connectionString);
  store::mendKeptTotals(connection);
}

}  // namespace velmo::schema
