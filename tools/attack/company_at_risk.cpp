#include "attack/company_at_risk.h"

#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "attack/books_check.h"
#include "attack/risk_places.h"
#include "schema/company_file.h"

namespace velmo::attack {
namespace {

namespace fs = std::filesystem;

// As the first version of the program left it.
void makeFirstVersion() {
  sqlite3* file = nullptr;
  sqlite3_open(companyFile, &file);
  const char* statements =
      "DROP TABLE Settings; DROP INDEX StockLevel3_SubCatID; CREATE INDEX StockLevel3_SubCatID ON StockLevel3 "
      "(SubCatID); PRAGMA user_version = 1";
  const bool made = sqlite3_exec(file, statements, nullptr, nullptr, nullptr) == SQLITE_OK;
  sqlite3_close(file);
  if (!made) throw std::runtime_error("no file of the first version");
}

}  // namespace

CompanyAtRisk::CompanyAtRisk(const Work& work) : work_(work), before_(fs::current_path()) {
  std::string pattern = (fs::temp_directory_path() / "velmo-risk-XXXXXX").string();
  if (!::mkdtemp(pattern.data()) || ::pipe(pipe_) != 0) throw std::runtime_error("no folder for a company");
  folder_ = pattern;
  fs::current_path(folder_);
  startProgram();
  const int status = inProcess([&] {
    Cashier cashier(pipe_[1], 1, {});
    for (int i = 0; i < work_.documentsBefore; ++i) cashier.saveNew();
    ::_exit(0);  // the file stays as it is
  });
  if (status != 0) throw std::runtime_error("no documents in the company");
  if (work_.firstVersion) makeFirstVersion();
  fs::copy(companyFolder, keptFolder, fs::copy_options::recursive);
  if (const Problems problems = books_.check(reports()); !problems.empty()) throw std::runtime_error(problems.front());
}

CompanyAtRisk::~CompanyAtRisk() {
  for (const int end : pipe_) ::close(end);
  std::error_code ignored;
  fs::current_path(before_, ignored);
  fs::remove_all(folder_, ignored);
}

int CompanyAtRisk::inProcess(const std::function<void()>& run) {
  std::fflush(nullptr);
  const pid_t child = ::fork();
  if (child == 0) {
    try {
      run();
      ::_exit(0);
    } catch (const std::exception& failure) {
      std::fprintf(stderr, "%s\n", failure.what());
      ::_exit(1);
    }
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void CompanyAtRisk::tell(const Report& report) const {
  if (::write(pipe_[1], &report, sizeof report) != sizeof report) throw std::runtime_error("no report");
}

std::vector<Report> CompanyAtRisk::reports() {
  constexpr std::int64_t end = -1;
  tell({.docNo = end});
  std::vector<Report> all;
  for (Report report; ::read(pipe_[0], &report, sizeof report) == sizeof report;) {
    if (report.phase == Report::Phase::Note && report.docNo == end) break;
    all.push_back(report);
  }
  return all;
}

// A failure that the program is told of is followed by one more sale.
int CompanyAtRisk::run(long operation, Fault fault) {
  return inProcess([&] {
    FailingDisk::install();
    try {
      if (work_.opening) {
        FailingDisk::arm(operation, fault);
        work_.opening();
      } else {
        Cashier cashier(pipe_[1], 2, books_.known());
        FailingDisk::arm(operation, fault);
        try {
          work_.working(cashier);
        } catch (const store::StoreError&) {
          cashier.saveNew();
        }
      }
    } catch (const store::StoreError&) {
      if (operation == 0) throw;
    }
    if (operation == 0) tell({.docNo = FailingDisk::operations()});
  });
}

void CompanyAtRisk::restore() {
  for (const char* folder : {companyFolder, backUpFolder}) fs::remove_all(folder);
  fs::copy(keptFolder, companyFolder, fs::copy_options::recursive);
}

long CompanyAtRisk::operations() {
  restore();
  if (run(0, Fault::Kill) != 0) throw std::runtime_error(std::string(work_.name) + " fails without a fault");
  return static_cast<long>(reports().back().docNo);
}

Problems CompanyAtRisk::problemsAfter(long operation, Fault fault) {
  restore();
  Problems problems;
  const int status = run(operation, fault);
  if (status != (fault == Fault::Kill ? killedStatus : 0))
    problems.push_back("the process ended with status " + std::to_string(status));
  try {
    lookAtFile(problems);
    lookAtBackUp(problems);
  } catch (const std::exception& failure) {
    problems.emplace_back(failure.what());
  }
  return problems;
}

void CompanyAtRisk::lookAtFile(Problems& problems) {
  // An upgrade is finished first: until then the totals are not those of today.
  if (work_.firstVersion) startProgram();
  ToldBooks books = books_;
  for (const std::string& problem : books.check(reports())) problems.push_back(problem);
  startProgram();
  store::Connection connection(schema::companyCatalog(), schema::schemaVersion);
  connection.open(schema::plainConnectionString);
  if (numberIn(connection.handle(), "select user_version from pragma_user_version") != schema::schemaVersion)
    problems.emplace_back("the file is not up to date");
  if (numberIn(connection.handle(), "select count(*) from AccLevel3 where AccName like 'Imported %'") %
          importedAccounts !=
      0)
    problems.emplace_back("a part of an import is there");
  for (const auto& entry : fs::directory_iterator(companyFolder))
    if (const std::string name = entry.path().filename(); !name.starts_with("Uninstall.MDB"))
      problems.push_back(name + " was left behind");
}

// It is whole when it is there, and the next one can be made.
void CompanyAtRisk::lookAtBackUp(Problems& problems) {
  if (!fs::exists(backUpFolder)) return;
  for (const bool again : {false, true}) {
    if (again) backUp();
    if (!fs::exists(backUpFile)) continue;
    store::Connection copy(schema::companyCatalog(), schema::schemaVersion);
    copy.open(schema::connectionStringFor(backUpFile));
    for (const std::string& problem : problemsOfBooks(copy.handle())) problems.push_back("in the back-up: " + problem);
    const Documents saved = documentsInFile(copy.handle());
    for (const auto& [docNo, document] : books_.known())
      if (!saved.contains(docNo) || saved.at(docNo) != document)
        problems.push_back("sale invoice " + std::to_string(docNo) + " is not in the back-up");
  }
  if (std::distance(fs::directory_iterator(backUpFolder), {}) != 1)
    problems.emplace_back("something was left beside the back-up");
}

}  // namespace velmo::attack
