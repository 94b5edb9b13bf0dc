#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "store/sqlite/kept_objects.h"
#include "store/values/catalog.h"

namespace velmo::store {

// The pieces of SQL behind one description of kept totals.
class KeptSql {
 public:
  using Names = std::vector<std::string>;
  using Object = KeptObject;

  explicit KeptSql(const KeptTotals& kept);

  // Tables, indexes and triggers in the order in which they can be made.
  std::vector<Object> objects() const;
  Names fill() const;
  // Takes in what is pending and the later lines, so many of each.
  Names addLater(std::int64_t atMost) const;
  std::string countLater() const;

  // Each selects a row when the totals are off.
  std::string staleDays() const;
  Names unequalSums() const;
  Names wrongTotals() const;

 private:
  // One of the tables of totals.
  struct Span {
    std::string table;
    std::string time;  // the column of its day or month; of whole groups none
  };
  Span days() const;
  Span months() const;
  Span years() const;
  std::vector<Span> spans() const;

  std::string timeOf(const Span& span, const std::string& day) const;
  Names keyOf(const Span& span) const;
  Names columnsOf(const Span& span) const;
  Names documentColumns() const;
  Names lineColumns() const;
  // The columns but the amounts as they are selected and named, by which they are grouped.
  std::string keysOf(const Span& span, const std::string& day, const std::string& documents) const;
  std::string groups(const Span& span) const;
  std::string sums() const;
  // What a line, "new.", "old." or "", adds to each of them.
  Names partsOf(const std::string& line) const;

  std::string state() const;
  std::string lastLine() const;
  std::string dayOf(const std::string& row) const;
  std::string hasSubject(const std::string& line) const;
  std::string isCounted(const std::string& row) const;
  std::string isAdded(const std::string& row) const;

  std::string ofLines(const Span& span, const std::string& where) const;
  std::string addedLines(const std::string& where = {}) const;
  std::string ofDays(const Span& span) const;
  std::string ofPending(const Span& span, const std::string& where) const;
  std::string allDays(const std::string& where = {}) const;

  Object table(const Span& span) const;
  Object pendingTable() const;
  Object stateTable() const;
  Object apartIndex() const;
  Object subjectIndex(const std::string& table, const Names& columns) const;
  std::string columnsWithTypes(const Names& columns) const;
  std::string typeOf(const std::string& column) const;

  enum class Sign { Plus, Minus };
  std::string ofLine(const std::string& row, bool isTested) const;
  // `line` is "new.", "old." or "".
  std::string values(const Span& span, const std::string& document, const std::string& line, const Names& amounts,
                     Sign sign) const;
  std::string additionOf(const std::string& line) const;
  std::string noteOfLine(const std::string& line, Sign sign, bool isTested) const;
  std::string noteOfDocument(const std::string& row, Sign sign) const;
  std::string insertion(const Span& span) const;
  std::string insertionOfPending() const;
  std::string upsert(const Span& span) const;
  std::vector<Object> triggers() const;
  Object trigger(const std::string& table, const std::string& event, const std::string& when,
                 const std::string& condition, const std::string& steps) const;

  std::string differences(const std::string& lines, const std::string& table, const Span& span) const;
  std::string unequal(const Span& one, const Span& other) const;

  const KeptTotals& kept_;
  const bool later_;
  std::string pending_, documents_, lines_, group_, day_, kind_, subject_, place_;
  Names amounts_;
  Names sums_;  // the columns that are summed up: the amounts, and how many lines have each
};

}  // namespace velmo::store
