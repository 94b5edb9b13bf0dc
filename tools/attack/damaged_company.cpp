#include "attack/damaged_company.h"

#include <signal.h>

#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "attack/cashier.h"
#include "attack/kept_check.h"
#include "attack/process.h"
#include "attack/program_opens.h"
#include "attack/report_pipe.h"
#include "attack/risk_places.h"
#include "support/damage.h"

namespace velmo::attack {
namespace {

namespace fs = std::filesystem;
using Finding = store::Finding::Kind;

constexpr const char* harmedFolder = "harmed";  // the damaged company as the program was given it
const std::string fileName = fs::path(companyFile).filename().string();

// Works as some programs did, one after the other; the last one dies when `closes` is not set.
void work(unsigned seed, int steps, bool closes) {
  Process program([&] {
    const ReportPipe pipe;
    Cashier cashier(pipe.end(), seed, {});
    for (int step = 0; step < steps; ++step) {
      cashier.step();
      if (step % 10 == 9) cashier.connection().checkpoint();
    }
    if (closes) cashier.connection().close();
  });
  if (program.status() != 0) throw std::runtime_error("no work in the company");
}

bool isAsBefore(const fs::path& one, const fs::path& other) {
  return fs::exists(one) == fs::exists(other) && (!fs::exists(one) || test::bytesOf(one) == test::bytesOf(other));
}

// But for the kind of log and the counters of writes in the header, which an upgrade that is given up has touched.
bool isAsGiven(const fs::path& one, const fs::path& other) {
  const auto contents = [](const fs::path& file) {
    std::string bytes = test::bytesOf(file);
    for (const auto& [at, length] : {std::pair{18U, 2U}, {24U, 4U}, {92U, 8U}})
      if (bytes.size() >= at + length) bytes.replace(at, length, length, ' ');
    return bytes;
  };
  return contents(one) == contents(other);
}

// What the program keeps by itself, and what an upgrade changes.
bool isOfProgram(const std::string& place) {
  static const std::set<std::string> own = [] {
    std::set<std::string> names = {"header", "sqlite_schema", "Settings"};
    names.merge(tablesOfKeptTotals());
    return names;
  }();
  return own.contains(place.substr(0, place.find('.')));
}

std::set<std::string> changesOfBooks(const Reading& before, const Reading& after) {
  std::set<std::string> places = differences(before, after);
  std::erase_if(places, isOfProgram);
  return places;
}

std::string listed(const std::set<std::string>& places) {
  std::string all;
  for (const std::string& place : places) all += (all.empty() ? "" : ", ") + place;
  return all;
}

std::string firstOf(const Reading& reading, Flaw::Kind kind) {
  for (const Flaw& flaw : reading.flaws)
    if (flaw.kind == kind) return flaw.words;
  return {};
}

}  // namespace

DamagedCompany::DamagedCompany(std::mt19937& random) {
  const auto between = [&random](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
  startProgram();
  work(static_cast<unsigned>(random()), between(5, 30), true);
  fs::copy(companyFile, olderFile);
  const bool closes = between(0, 1) == 0;
  work(static_cast<unsigned>(random()), between(3, 25), closes);
  if (between(0, 4) == 0) makeFirstVersion();
  fs::remove(std::string(companyFile) + "-shm");
  fs::copy(companyFolder, keptFolder, fs::copy_options::recursive);
  original_ = readCopyOf(companyFile);
  if (!original_.flaws.empty()) throw std::runtime_error(original_.flaws.front().words);
}

void DamagedCompany::harm(const Harm& harm, std::mt19937& random, Outcome& outcome) {
  for (const char* folder : {companyFolder, harmedFolder}) fs::remove_all(folder);
  fs::copy(keptFolder, companyFolder, fs::copy_options::recursive);
  harm.doTo(random);
  fs::remove(std::string(companyFile) + "-shm");
  fs::copy(companyFolder, harmedFolder, fs::copy_options::recursive);
  const Reading harmed = readCopyOf(companyFile);
  judge(harm, harmed, openAsProgram(), outcome);
  ++outcome.counts["damaged: " + std::string(harm.name)];
  if (outcome.problems.empty()) return;
  outcome.problems.insert(outcome.problems.begin(), "damaged: " + std::string(harm.name));
  outcome.evidence = folder_.path();
  folder_.keep();
}

void DamagedCompany::judge(const Harm& harm, const Reading& harmed, const ProgramSaid& said, Outcome& outcome) {
  const auto loss = [&](const std::string& words) { outcome.problems.push_back(words); };
  const auto counted = [&](const std::string& words) { ++outcome.counts[words]; };
  const std::set<std::string> changes = differences(original_, harmed);
  const bool isUnharmed = changes.empty() && harmed.flaws.empty();
  if (said.status != 0)
    return loss(said.status == -SIGALRM ? "the program did not come to an end"
                                        : "the program ended with status " + std::to_string(said.status));
  if (said.saved) loss("the program saved into a file that it had found damaged");
  if (fs::exists(foundFolder))
    for (const char* part : {"", "-wal"})
      if (!isAsBefore(std::string(foundFolder) + "/file" + part, companyFile + std::string(part)))
        loss("the program wrote into a file that it had found damaged");
  if (isUnharmed && (said.refusal || said.mended || !said.findings.empty()))
    loss("a sound file was called damaged: " +
         said.refusal.value_or(said.findings.empty() ? "totals" : said.findings.front().words));

  const Reading after = readCopyOf(companyFile);
  if (said.refusal && !said.found(Finding::Damage)) {
    if (!said.isUseful) loss("refused in a sentence that does not say what is wrong: " + *said.refusal);
    if (!isAsGiven(std::string(harmedFolder) + "/" + fileName, companyFile) &&
        (!harmed.isWhole || !differences(harmed, after).empty()))
      loss("the program changed a file that it refused");
    return counted("refused in a sentence");
  }
  if (harm.of == Harm::Of::Foreign) loss("a file that is none of the program's was opened");
  if (said.found(Finding::Damage)) return counted("told of damage, and nothing more saved");

  if (harmed.isUnsound())
    return loss("damaged, and called good: " + harmed.flaws.front().words +
                (said.roundFailed ? "; a check failed: " + *said.roundFailed : ""));
  if (said.roundFailed) loss("a check failed: " + *said.roundFailed);
  // A declaration that is not what it was, where no row is read by it.
  if (said.backUpRefusal && changes.contains("sqlite_schema.sql")) return counted("told by the back-up alone");
  if (said.backUpRefusal) loss("a sound file was not backed up: " + *said.backUpRefusal);
  if (harmed.has(Flaw::Kind::Total) && !said.mended)
    loss("totals that are not their lines', and nothing said: " + firstOf(harmed, Flaw::Kind::Total));
  if (after.isUnsound() || after.has(Flaw::Kind::Total)) loss("not set right: " + after.flaws.front().words);
  for (const Flaw& flaw : harmed.flaws)
    if (flaw.kind == Flaw::Kind::Balance &&
        std::ranges::none_of(said.findings, [&](const auto& each) { return each.document == flaw.document; }))
      loss("not listed: " + flaw.words);
  if (const auto places = changesOfBooks(harmed, after); !places.empty())
    loss("the program changed rows: " + listed(places));
  if (!said.backUpRefusal) {
    const Reading copy = readCopyOf(backUpFile);
    if (copy.isUnsound() || copy.has(Flaw::Kind::Total) || !changesOfBooks(after, copy).empty())
      loss("the back-up is not the file: " + listed(changesOfBooks(after, copy)));
  }

  countWhatWasSeen(harmed, said, changes, outcome);
}

void DamagedCompany::countWhatWasSeen(const Reading& harmed, const ProgramSaid& said,
                                      const std::set<std::string>& changes, Outcome& outcome) {
  const auto counted = [&](const std::string& words) { ++outcome.counts[words]; };
  if (said.found(Finding::Document)) return counted("told of documents that are not balanced");
  if (said.mended) return counted("told of totals that were set right");
  if (changes.empty() && harmed.flaws.empty()) return counted("unharmed");
  if (harmed.has(Flaw::Kind::Document)) return counted("seen by the other reader alone: " + listed(changes));
  // The books agree with themselves.
  if (std::ranges::any_of(changes, [](const std::string& place) { return place == "Transactions"; }))
    return counted("not to be seen: the end of the log is gone, and the books are those of an earlier save");
  counted("not to be seen: " + listed(changes));
}

}  // namespace velmo::attack
