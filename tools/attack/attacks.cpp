#include "attack/attacks.h"

#include <signal.h>
#include <unistd.h>

#include <limits>
#include <memory>

#include "attack/company_at_risk.h"
#include "attack/damaged_company.h"
#include "attack/process.h"
#include "attack/program_at_work.h"
#include "attack/reading.h"
#include "attack/risk_places.h"

namespace velmo::attack {
namespace {

namespace fs = std::filesystem;

constexpr int patience = 60'000;  // milliseconds for a process to tell of its first step

int between(std::mt19937& random, int low, int high) {
  return std::uniform_int_distribution(low, high)(random);
}

void sleepFor(int microseconds) {
  ::usleep(static_cast<useconds_t>(microseconds));
}

// Adds what is wrong; the folder stays when something is.
void note(Outcome& outcome, RiskFolder& folder, const Problems& problems) {
  if (problems.empty()) return;
  outcome.problems.insert(outcome.problems.end(), problems.begin(), problems.end());
  outcome.evidence = folder.path();
  folder.keep();
}

Problems checked(ToldBooks& books, const std::vector<Report>& reports) {
  try {
    return books.check(reports);
  } catch (const std::exception& failure) {
    return {failure.what()};
  }
}

// Of any that was made.
Problems problemsOfBackUp() {
  Problems problems;
  if (!fs::exists(backUpFile)) return problems;
  for (const Flaw& flaw : readCopyOf(backUpFile).flaws) problems.push_back("in the back-up: " + flaw.words);
  return problems;
}

constexpr int untilKilled = std::numeric_limits<int>::max();

// Programs that work at once on a company, and are killed unless they have steps to do.
struct Round {
  int programs = 1;
  int steps = untilKilled;
  bool waitsForWork = false;  // the kill, for the first step
  int longest = 0;            // microseconds until then
};

class CompanyAtWork {
 public:
  explicit CompanyAtWork(std::mt19937& random) : random_(random) { startProgram(); }

  bool isWhole() const { return outcome_.problems.empty(); }

  void letWork(const Round& round) {
    const bool killed = round.steps == untilKilled;
    std::vector<std::unique_ptr<Process>> programs;
    // Of several none knows what to change but its own documents.
    for (int i = 0; i < round.programs; ++i)
      programs.push_back(std::make_unique<Process>([&, seed = static_cast<unsigned>(random_())] {
        startProgram();
        workAsProgram(pipe_.end(), seed, round.programs == 1 ? books_.known() : Documents(), round.steps);
      }));
    if (round.waitsForWork) pipe_.waitForReport(patience);
    if (killed) sleepFor(between(random_, 0, round.longest));
    for (const auto& program : programs) {
      if (killed) program->send(SIGKILL);
      if (const int status = program->status(); status != (killed ? -SIGKILL : 0))
        note(outcome_, folder_, {"a program ended by itself with status " + std::to_string(status)});
    }
    outcome_.counts[round.programs == 1 ? "programs killed at work" : "programs beside each other"] += round.programs;
    note(outcome_, folder_, checked(books_, pipe_.reports()));
    note(outcome_, folder_, problemsOfBackUp());
  }

  Outcome outcome() {
    outcome_.counts["of them within a save"] = books_.interrupted();
    return outcome_;
  }

 private:
  std::mt19937& random_;
  RiskFolder folder_;
  ReportPipe pipe_;
  ToldBooks books_;
  Outcome outcome_;
};

}  // namespace

Outcome killTheProgram(std::mt19937& random) {
  CompanyAtWork company(random);
  for (int kill = 0; kill < 20 && company.isWhole(); ++kill)
    // Every fourth perhaps as it starts.
    company.letWork({.programs = 1, .waitsForWork = kill % 4 != 0, .longest = 60'000});
  return company.outcome();
}

Outcome letTheDiskFail(std::mt19937& random) {
  const Work& work = works()[static_cast<std::size_t>(between(random, 0, static_cast<int>(works().size()) - 1))];
  CompanyAtRisk company(work);
  const auto operations = static_cast<int>(company.operations());
  Outcome outcome;
  for (int run = 0; run < 20 && outcome.problems.empty(); ++run) {
    const auto fault = static_cast<Fault>(between(random, 0, 2));
    note(outcome, company.folder(), company.problemsAfter(between(random, 1, operations), fault));
    ++outcome.counts[fault == Fault::Kill   ? "killed at a write"
                     : fault == Fault::Full ? "disks that became full"
                                            : "errors of the disk"];
  }
  return outcome;
}

// The file and its log at an instant, the log cut somewhere behind what was synced when a save was last told of.
Outcome tearTheLog(std::mt19937& random) {
  RiskFolder folder;
  startProgram();
  Outcome outcome;
  const std::string log = std::string(companyFile) + "-wal";
  fs::copy(companyFolder, keptFolder, fs::copy_options::recursive);
  for (int tear = 0; tear < 20 && outcome.problems.empty(); ++tear) {
    fs::remove_all(companyFolder);
    fs::copy(keptFolder, companyFolder, fs::copy_options::recursive);
    const ReportPipe pipe;
    ToldBooks books;
    std::vector<Report> told;
    {
      Process program([&, seed = static_cast<unsigned>(random())] {
        Cashier cashier(pipe.end(), seed, {});
        for (;;) {
          cashier.step();
          pipe.tell({.docNo = static_cast<std::int64_t>(fs::file_size(log))});
        }
      });
      pipe.waitForReport(patience);
      sleepFor(between(random, 0, 80'000));
      program.send(SIGSTOP);
      sleepFor(1000);
      told = pipe.reports();
      std::int64_t synced = 0;
      for (const Report& report : told)
        if (report.phase == Report::Phase::Note) synced = report.docNo;
      fs::copy(companyFolder, "torn", fs::copy_options::recursive);
      const auto length = static_cast<std::int64_t>(fs::exists(log) ? fs::file_size(log) : 0);
      const std::string tornLog = "torn/" + fs::path(log).filename().string();
      // A save that was told of after the last note is synced as well.
      const bool toldSince = !told.empty() && told.back().phase == Report::Phase::Done;
      if (length > synced && !toldSince)
        fs::resize_file(
            tornLog, static_cast<std::uintmax_t>(std::uniform_int_distribution<std::int64_t>(synced, length)(random)));
    }
    fs::remove_all(companyFolder);
    fs::rename("torn", companyFolder);
    note(outcome, folder, checked(books, told));
    ++outcome.counts["logs torn"];
  }
  return outcome;
}

Outcome letProgramsMeet(std::mt19937& random) {
  CompanyAtWork company(random);
  company.letWork({.programs = between(random, 2, 3), .steps = 60});
  for (int round = 0; round < 2 && company.isWhole(); ++round)
    company.letWork({.programs = between(random, 2, 3), .longest = 1'500'000});
  return company.outcome();
}

Outcome startProgramsTogether(std::mt19937& random) {
  RiskFolder folder;
  Outcome outcome;
  for (int round = 0; round < 10 && outcome.problems.empty(); ++round) {
    if (between(random, 0, 1) == 0) {
      fs::remove_all(companyFolder);
    } else {
      startProgram();
      makeFirstVersion();
    }
    std::vector<std::unique_ptr<Process>> programs;
    for (int i = 0; i < 3; ++i) programs.push_back(std::make_unique<Process>(startProgram));
    const bool oneDies = between(random, 0, 1) == 0;
    if (oneDies) {
      sleepFor(between(random, 0, 100'000));
      programs.front()->send(SIGKILL);
    }
    for (std::size_t i = 0; i < programs.size(); ++i)
      if (programs[i]->status() != 0 && !(oneDies && i == 0))
        note(outcome, folder, {"a program did not start beside others"});
    startProgram();
    ToldBooks none;
    note(outcome, folder, checked(none, {}));
    ++outcome.counts["starts together"];
  }
  return outcome;
}

Outcome damageTheFile(std::mt19937& random) {
  DamagedCompany company(random);
  Outcome outcome;
  for (int time = 0; time < 40 && outcome.problems.empty(); ++time)
    company.harm(harms()[static_cast<std::size_t>(between(random, 0, static_cast<int>(harms().size()) - 1))], random,
                 outcome);
  return outcome;
}

const std::vector<Attack>& attacks() {
  static const std::vector<Attack> all = {{"kill", killTheProgram},          {"disk", letTheDiskFail},
                                          {"torn-log", tearTheLog},          {"programs", letProgramsMeet},
                                          {"starts", startProgramsTogether}, {"damage", damageTheFile}};
  return all;
}

}  // namespace velmo::attack
