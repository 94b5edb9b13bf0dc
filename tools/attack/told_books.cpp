#include "attack/told_books.h"

#include <algorithm>

#include "attack/books_check.h"
#include "attack/risk_places.h"
#include "schema/company_file.h"
#include "schema/company_schema.h"
#include "store/connection/connection.h"

namespace velmo::attack {
namespace {

Expected in(const Documents& documents, std::int64_t docNo) {
  const auto found = documents.find(docNo);
  return found == documents.end() ? Expected{} : found->second;
}

std::string numbered(std::int64_t docNo, const std::string& words) {
  return "sale invoice " + std::to_string(docNo) + " " + words;
}

void addDifferences(const Documents& known, const Documents& found, Problems& problems) {
  for (const auto& [docNo, document] : known) {
    if (!found.contains(docNo))
      problems.push_back(numbered(docNo, "was saved and is gone"));
    else if (found.at(docNo) != document)
      problems.push_back(numbered(docNo, "is not what was saved"));
  }
  for (const auto& [docNo, document] : found)
    if (!known.contains(docNo)) problems.push_back(numbered(docNo, "is there and was never saved, or was deleted"));
}

// What may stand under a number after steps on it, some of which ran beside each other.
class Outcomes {
 public:
  explicit Outcomes(const Expected& before) : settled_{before} {}

  void take(const Report& step) {
    if (step.phase == Report::Phase::Begun) {
      if (running_++ == 0) done_.clear();
      begun_.push_back(step.outcome);
      return;
    }
    --running_;
    if (const auto own = std::ranges::find(begun_, step.outcome); own != begun_.end()) begun_.erase(own);
    if (step.phase == Report::Phase::Done) done_.push_back(step.outcome);
    if (running_ == 0 && !done_.empty()) settled_ = done_;
  }

  bool areSettled() const { return running_ == 0; }
  bool allow(const Expected& outcome) const {
    if (areSettled()) return std::ranges::count(settled_, outcome) > 0;
    const std::vector<Expected>& told = done_.empty() ? settled_ : done_;
    return std::ranges::count(told, outcome) + std::ranges::count(begun_, outcome) > 0;
  }

 private:
  int running_ = 0;
  std::vector<Expected> settled_, begun_, done_;
};

}  // namespace

Problems ToldBooks::check(const std::vector<Report>& reports) {
  store::Connection connection(schema::companyCatalog());
  connection.open(schema::plainConnectionString);
  Problems problems = problemsOfBooks(connection.handle());
  const Documents found = documentsInFile(connection.handle());
  std::map<std::int64_t, Outcomes> outcomes;
  for (const Report& report : reports)
    if (report.phase != Report::Phase::Note)
      outcomes.try_emplace(report.docNo, in(known_, report.docNo)).first->second.take(report);
  for (const auto& [docNo, possible] : outcomes) {
    const Expected now = in(found, docNo);
    if (!possible.allow(now))
      problems.push_back(numbered(docNo, possible.areSettled() ? "is not what was saved" : "is torn"));
    know(docNo, now);
    if (!possible.areSettled()) ++interrupted_;
  }
  addDifferences(known_, found, problems);
  if (numberIn(connection.handle(), "select count(*) from AccLevel3 where AccName like 'Imported %'") %
          importedAccounts !=
      0)
    problems.emplace_back("a part of an import is there");
  return problems;
}

void ToldBooks::know(std::int64_t docNo, const Expected& outcome) {
  if (outcome.present)
    known_[docNo] = outcome;
  else
    known_.erase(docNo);
}

}  // namespace velmo::attack
