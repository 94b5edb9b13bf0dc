#include "attack/company_at_risk.h"

#include <sqlite3.h>
#include <unistd.h>

#include <stdexcept>

#include "attack/books_check.h"
#include "attack/process.h"
#include "attack/risk_places.h"
#include "schema/company_file.h"

namespace velmo::attack {

namespace fs = std::filesystem;

CompanyAtRisk::CompanyAtRisk(const Work& work) : work_(work) {
  startProgram();
  Process program([&] {
    Cashier cashier(pipe_.end(), 1, {});
    for (int i = 0; i < work_.documentsBefore; ++i) cashier.saveNew();
    ::_exit(0);  // the file stays as it is
  });
  if (program.status() != 0) throw std::runtime_error("no documents in the company");
  if (work_.firstVersion) makeFirstVersion();
  fs::copy(companyFolder, keptFolder, fs::copy_options::recursive);
  if (const Problems problems = books_.check(pipe_.reports()); !problems.empty())
    throw std::runtime_error(problems.front());
}

// A failure that the program is told of is followed by one more sale.
int CompanyAtRisk::run(long operation, Fault fault) {
  Process process([&] {
    FailingDisk::install();
    try {
      if (work_.opening) {
        FailingDisk::arm(operation, fault);
        work_.opening();
      } else {
        Cashier cashier(pipe_.end(), 2, books_.known());
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
    if (operation == 0) pipe_.tell({.docNo = FailingDisk::operations()});
  });
  return process.status();
}

void CompanyAtRisk::restore() {
  for (const char* folder : {companyFolder, backUpFolder}) fs::remove_all(folder);
  fs::copy(keptFolder, companyFolder, fs::copy_options::recursive);
}

long CompanyAtRisk::operations() {
  restore();
  if (run(0, Fault::Kill) != 0) throw std::runtime_error(std::string(work_.name) + " fails without a fault");
  return static_cast<long>(pipe_.reports().back().docNo);
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
  for (const std::string& problem : books.check(pipe_.reports())) problems.push_back(problem);
  startProgram();
  store::Connection connection(schema::companyCatalog(), schema::schemaVersion);
  connection.open(schema::plainConnectionString);
  if (numberIn(connection.handle(), "select user_version from pragma_user_version") != schema::schemaVersion)
    problems.emplace_back("the file is not up to date");
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
