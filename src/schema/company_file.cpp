#include "schema/company_file.h"

#include <pwd.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>

#include "schema/company_schema.h"
#include "schema/first_rows.h"
#include "schema/login_rows.h"
#include "schema/upgrades.h"
#include "store/checks/soundness.h"
#include "store/connection/connection_string.h"
#include "store/file/work_file.h"
#include "store/upkeep/database_file.h"
#include "store/upkeep/upgrade.h"
#include "store/values/error.h"

namespace velmo::schema {
namespace {

// The folder of the company's file under the program's folder.
constexpr const char* dataFolder = "Uninstall";

constexpr std::chrono::milliseconds longestWait(30);  // with a check, before the first screen

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

// Totals are set right in a file that is sound, as far as that can be told by now.
FileState stateOf(store::Connection& connection) {
  const std::optional<std::vector<store::Finding>> found = store::quickCheck(connection, longestWait);
  FileState state{.seenThrough = found.has_value(), .damage = found.value_or(std::vector<store::Finding>())};
  if (!state.damage.empty()) return state;
  try {
    const auto until = std::chrono::steady_clock::now() + longestWait;
    state.totalsMended = store::mendKeptTotals(connection, store::TotalsCheck::Latest, until);
    if (std::chrono::steady_clock::now() > until) state.seenThrough = false;
  } catch (const store::StoreError& failure) {
    if (failure.kind() != store::ErrorKind::Damaged) throw;
    state.damage = {{.kind = store::Finding::Kind::Damage, .words = "the documents or their kept totals"}};
  }
  return state;
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
  std::filesystem::path current = std::filesystem::current_path(error);
  if (!error && std::filesystem::is_directory(current / dataFolder, error)) return current;
  std::filesystem::path folder = userDataFolder() / "velmo";
  const bool made = std::filesystem::create_directories(folder, error);
  if (!error && made) std::filesystem::permissions(folder, std::filesystem::perms::owner_all, error);
  if (error)
    throw store::StoreError(store::ErrorKind::Missing,
                            "The folder " + folder.string() + " cannot be made: " + error.message() + ".");
  return folder;
}

FileState prepareCompanyFile(const std::string& connectionString, const text::DateTime& now) {
  const store::ConnectionString target = store::parseConnectionString(connectionString);
  store::clearAbandonedWork(store::folderOf(target.dataSource), target.dataSource.filename().string());
  std::error_code error;
  // Another program may make the file or bring it up to date at the same moment: what comes first is opened by both.
  if (!std::filesystem::exists(std::filesystem::symlink_status(target.dataSource, error)) &&
      store::createDatabaseFile(target.dataSource, companyCatalog(), target.password, schemaVersion,
                                [&now](store::Connection& connection) { writeFirstRows(connection, now); }))
    return {};
  store::upgradeDatabaseFile(target.dataSource, companyCatalog(), target.password, upgrades(), requireLoginRows);
  store::Connection connection(companyCatalog(), schemaVersion);
  connection.open(connectionString);
  try {
    store::requireTables(connection);
    requireLoginRows(connection);
  } catch (const store::StoreError&) {
    connection.refuseWriting();  // a log that a crash has left stays beside the file
    throw;
  }
  FileState state = stateOf(connection);
  if (!state.damage.empty()) connection.refuseWriting();
  return state;
}

}  // namespace velmo::schema
