#include "attack/program_opens.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "attack/process.h"
#include "attack/program_at_work.h"
#include "attack/risk_places.h"
#include "schema/company_checks.h"
#include "schema/company_file.h"
#include "schema/company_schema.h"
#include "store/checks/check_round.h"
#include "store/upkeep/copy_pages.h"
#include "store/upkeep/database_file.h"

namespace velmo::attack {
namespace {

namespace fs = std::filesystem;
using Kind = store::Finding::Kind;

constexpr unsigned longest = 60;  // seconds
constexpr const char* saidFile = "said";
const text::DateTime now = text::DateTime::fromCalendar(2026, 11, 23, 8);

// A line for each thing that is said: words between tabs.
class Teller {
 public:
  void operator()(const std::string& what, const std::string& words = {}, int number = 0, std::int64_t document = 0) {
    std::string line = words;
    std::ranges::replace_if(
        line, [](char c) { return c == '\n' || c == '\t'; }, ' ');
    said_ << what << '\t' << number << '\t' << document << '\t' << line << std::endl;
  }

 private:
  std::ofstream said_{saidFile};
};

bool isUseful(store::ErrorKind kind) {
  using enum store::ErrorKind;
  return kind == Damaged || kind == Foreign || kind == Newer || kind == Password;
}

void tellFindings(Teller& tell, const std::vector<store::Finding>& findings) {
  for (const store::Finding& each : findings) tell("found", each.words, static_cast<int>(each.kind), each.document);
}

bool has(const std::vector<store::Finding>& findings, Kind kind) {
  return std::ranges::any_of(findings, [kind](const store::Finding& each) { return each.kind == kind; });
}

// Nothing is written from here on, whoever tries.
void tryToSave(store::Connection& books, Teller& tell) {
  books.refuseWriting();
  fs::create_directory(foundFolder);
  for (const char* part : {"", "-wal"})
    if (fs::exists(companyFile + std::string(part)))
      fs::copy_file(companyFile + std::string(part), foundFolder + std::string("/file") + part);
  try {
    store::Connection::Transaction sale(books);
    books.execute("INSERT INTO Jobs (JobName) VALUES ('Written into damage')");
    sale.commit();
    tell("saved");
  } catch (const store::StoreError&) {
  }
  books.checkpoint();
}

void lookThrough(store::Connection& books, Teller& tell) {
  std::optional<std::vector<store::Finding>> found;
  {
    store::CheckRound round(books.snapshot(), schema::companyChecks());
    try {
      found = round.run();
    } catch (const store::StoreError& failure) {
      return tell("round", failure.what());
    }
    tellFindings(tell, *found);
    if (has(*found, Kind::Damage)) store::setAside(round.snapshot(), now);
  }
  if (has(*found, Kind::Damage)) return tryToSave(books, tell);
  if (has(*found, Kind::Total)) {
    store::mendKeptTotals(books, store::TotalsCheck::All);
    tell("mended");
  }
}

void readAndBackUp(store::Connection& books, Teller& tell) {
  try {
    flawOfReport(books);
  } catch (const store::StoreError& failure) {
    if (failure.kind() != store::ErrorKind::Damaged) throw;
  }
  try {
    backUp();
  } catch (const store::StoreError& failure) {
    tell("backup", failure.what());
  }
}

void start(Teller& tell) {
  const schema::FileState state = schema::prepareCompanyFile(schema::plainConnectionString, now);
  tellFindings(tell, state.damage);
  if (state.totalsMended) tell("mended");
  store::Connection books(schema::companyCatalog(), schema::schemaVersion);
  books.open(schema::plainConnectionString);
  if (!state.damage.empty()) {
    store::setAside(books, now);
    tryToSave(books, tell);
  }
  if (state.damage.empty()) lookThrough(books, tell);
  readAndBackUp(books, tell);
}

ProgramSaid whatWasSaid() {
  ProgramSaid said;
  std::ifstream lines(saidFile);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream parts(line);
    std::string what, number, document, words;
    std::getline(parts, what, '\t');
    std::getline(parts, number, '\t');
    std::getline(parts, document, '\t');
    std::getline(parts, words);
    if (what == "refused") {
      said.refusal = words;
      said.isUseful = isUseful(static_cast<store::ErrorKind>(std::stoi(number)));
    }
    if (what == "found")
      said.findings.push_back(
          {.kind = static_cast<Kind>(std::stoi(number)), .words = words, .document = std::stoll(document)});
    if (what == "mended") said.mended = true;
    if (what == "round") said.roundFailed = words;
    if (what == "backup") said.backUpRefusal = words;
    if (what == "saved") said.saved = true;
  }
  return said;
}

}  // namespace

bool ProgramSaid::found(Kind kind) const {
  return has(findings, kind);
}

ProgramSaid openAsProgram() {
  for (const char* left : {foundFolder, backUpFolder}) fs::remove_all(left);
  Process program([] {
    ::alarm(longest);
    Teller tell;
    try {
      start(tell);
    } catch (const store::StoreError& failure) {
      tell("refused", failure.what(), static_cast<int>(failure.kind()));
    }
  });
  const int status = program.status();
  ProgramSaid said = whatWasSaid();
  said.status = status;
  return said;
}

}  // namespace velmo::attack
