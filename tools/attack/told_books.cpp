#include "attack/told_books.h"

#include <algorithm>

#include "attack/books_check.h"
#include "schema/company_file.h"
#include "schema/company_schema.h"
#include "store/connection.h"

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

}  // namespace

Problems ToldBooks::check(const std::vector<Report>& reports) {
  store::Connection connection(schema::companyCatalog());
  connection.open(schema::plainConnectionString);
  Problems problems = problemsOfBooks(connection.handle());
  const Documents found = documentsInFile(connection.handle());
  std::map<std::int64_t, std::vector<Expected>> unfinished;
  for (const Report& report : reports) {
    if (report.phase == Report::Phase::Begun) unfinished[report.docNo].push_back(report.outcome);
    if (report.phase != Report::Phase::Done) continue;
    unfinished.erase(report.docNo);
    know(report.docNo, report.outcome);
  }
  for (auto& [docNo, outcomes] : unfinished) {
    outcomes.push_back(in(known_, docNo));
    const Expected now = in(found, docNo);
    if (std::ranges::count(outcomes, now) == 0) problems.push_back(numbered(docNo, "is torn"));
    know(docNo, now);
    ++interrupted_;
  }
  addDifferences(known_, found, problems);
  return problems;
}

void ToldBooks::know(std::int64_t docNo, const Expected& outcome) {
  if (outcome.present)
    known_[docNo] = outcome;
  else
    known_.erase(docNo);
}

}  // namespace velmo::attack
