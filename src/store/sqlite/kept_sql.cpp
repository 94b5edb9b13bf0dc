#include "store/sqlite/kept_sql.h"

#include "store/sqlite/kept_totals.h"
#include "store/sqlite/table_sql.h"

namespace velmo::store {
namespace {

constexpr int latestDays = 3;  // that staleDays() sums up again

using Names = KeptSql::Names;

}  // namespace

KeptSql::KeptSql(const KeptTotals& kept)
    : kept_(kept),
      later_(kept.adds == KeptTotals::Adds::Later),
      pending_(quotedName(pendingTableOf(kept))),
      documents_(quotedName(kept.documents)),
      lines_(quotedName(kept.lines)),
      group_(quotedName(kept.group)),
      day_(quotedName(kept.day)),
      kind_(kept.kind.empty() ? std::string() : quotedName(kept.kind)),
      subject_(quotedName(kept.subject)),
      place_(kept.place.empty() ? std::string() : quotedName(kept.place)),
      amounts_(formed(kept.amounts, quotedName)),
      sums_(amounts_) {
  if (!kept.tellsNulls()) return;
  for (const std::string& amount : kept.amounts) sums_.push_back(quotedName(givenColumnOf(amount)));
}

std::vector<KeptSql::Object> KeptSql::objects() const {
  std::vector<Object> all;
  for (const Span& span : spans()) all.push_back(table(span));
  all.insert(all.end(), {pendingTable(), subjectIndex(daysTableOf(kept_), {group_, subject_, day_}),
                         subjectIndex(pendingTableOf(kept_), {group_, subject_}), apartIndex()});
  if (later_) all.push_back(stateTable());
  const std::vector<Object> made = triggers();
  all.insert(all.end(), made.begin(), made.end());
  return all;
}

KeptSql::Span KeptSql::days() const {
  return {quotedName(daysTableOf(kept_)), day_};
}
KeptSql::Span KeptSql::months() const {
  return {quotedName(monthsTableOf(kept_)), "Month"};
}
KeptSql::Span KeptSql::years() const {
  return {quotedName(yearsTableOf(kept_)), {}};
}
std::vector<KeptSql::Span> KeptSql::spans() const {
  std::vector<Span> all = {days(), months()};
  if (later_) all.push_back(years());
  return all;
}

std::string KeptSql::timeOf(const Span& span, const std::string& day) const {
  return span.time == day_ ? day : monthOf(day);
}

// Months by subject first: a balance is then a stretch of few neighbouring ones.
Names KeptSql::keyOf(const Span& span) const {
  Names names = {group_, subject_};
  if (!span.time.empty()) names.insert(names.begin() + (span.time == day_ ? 1 : 2), span.time);
  if (!kind_.empty()) names.push_back(kind_);
  if (!place_.empty()) names.push_back(place_);
  return names;
}

Names KeptSql::columnsOf(const Span& span) const {
  Names names = keyOf(span);
  names.emplace_back("Lines");
  names.insert(names.end(), sums_.begin(), sums_.end());
  return names;
}

Names KeptSql::documentColumns() const {
  Names names = {group_, day_};
  if (!kind_.empty()) names.push_back(kind_);
  for (const std::string& excluded : kept_.excluded) names.push_back(quotedName(excluded));
  return names;
}

Names KeptSql::lineColumns() const {
  Names names = {quotedName(kept_.lineKey), quotedName(kept_.link), subject_};
  if (!place_.empty()) names.push_back(place_);
  names.insert(names.end(), amounts_.begin(), amounts_.end());
  return names;
}

std::string KeptSql::keysOf(const Span& span, const std::string& day, const std::string& documents) const {
  return listed(formed(keyOf(span), [&](const std::string& column) {
    if (column == span.time) return timeOf(span, day) + " AS " + column;
    return column == subject_ || column == place_ || documents.empty() ? column : documents + "." + column;
  }));
}

std::string KeptSql::groups(const Span& span) const {
  Names numbers;
  for (std::size_t i = 1; i <= keyOf(span).size(); ++i) numbers.push_back(std::to_string(i));
  return " GROUP BY " + listed(numbers);
}

std::string KeptSql::sums() const {
  return "sum(Lines) AS Lines, " +
         listed(formed(sums_, [](const std::string& sum) { return wholeSum(sum) + " AS " + sum; }));
}

KeptSql::Names KeptSql::partsOf(const std::string& line) const {
  Names parts = formed(amounts_, [&](const std::string& amount) { return inParts(line + amount); });
  if (kept_.tellsNulls())
    for (const std::string& amount : amounts_) parts.push_back("(" + line + amount + " IS NOT NULL)");
  return parts;
}

std::string KeptSql::state() const {
  return quotedName(stateTableOf(kept_));
}
std::string KeptSql::lastLine() const {
  return "(SELECT coalesce(max(" + quotedName(kept_.lineKey) + "), 0) FROM " + lines_ + ")";
}
std::string KeptSql::dayOf(const std::string& row) const {
  return "coalesce(" + row + "." + day_ + ", " + noDay + ")";
}

// Of a line: that it belongs into the totals, by what it is summed up by, and by its amounts.
std::string KeptSql::hasSubject(const std::string& line) const {
  return line + subject_ + " IS NOT NULL" + (place_.empty() ? "" : " AND " + line + place_ + " IS NOT NULL");
}
std::string KeptSql::isCounted(const std::string& row) const {
  const std::string counted = passedOverTest(kept_, row);
  return (counted.empty() ? counted : counted + " AND ") + "(" + apartTest(kept_, row) + ") IS NOT 1";
}
// That it is in them.
std::string KeptSql::isAdded(const std::string& row) const {
  return (later_ ? additionTest(kept_, row, Added::Already) + " AND " : std::string()) + isCounted(row);
}

// The lines summed up; `where` begins with AND.
std::string KeptSql::ofLines(const Span& span, const std::string& where) const {
  Names sums = partsOf({});
  for (std::size_t i = 0; i < sums.size(); ++i) sums[i] = wholeSum(sums[i]) + " AS " + sums_[i];
  return "SELECT " + keysOf(span, dayOf(documents_), documents_) + ", count(*) AS Lines, " + listed(sums) + " FROM " +
         documents_ + " JOIN " + lines_ + " ON " + documents_ + "." + quotedName(kept_.key) + " = " + lines_ + "." +
         quotedName(kept_.link) + " WHERE " + countTest(kept_, documents_) + " AND " + hasSubject("") + " AND " +
         isCounted(lines_) + where + groups(span);
}
std::string KeptSql::addedLines(const std::string& where) const {
  return ofLines(days(), where + (later_ ? " AND " + additionTest(kept_, lines_, Added::Already) : std::string()));
}
std::string KeptSql::ofDays(const Span& span) const {
  return "SELECT " + keysOf(span, day_, {}) + ", " + sums() + " FROM " + days().table + groups(span);
}
std::string KeptSql::ofPending(const Span& span, const std::string& where) const {
  return "SELECT " + keysOf(span, day_, {}) + ", " + sums() + " FROM " + pending_ + where + groups(span);
}

// The days with what is pending. A sum that outgrew whole numbers stays as it is where nothing is.
std::string KeptSql::allDays(const std::string& where) const {
  const std::string columns = listed(columnsOf(days()));
  const std::string chosen = where.empty() ? where : " WHERE " + where;
  const auto sum = [](const std::string& amount) {
    return "iif(count(*) = 1, min(" + amount + "), " + wholeSum(amount) + ") AS " + amount;
  };
  return "(SELECT " + listed(keyOf(days())) + ", sum(Lines) AS Lines, " + listed(formed(sums_, sum)) +
         " FROM (SELECT " + columns + " FROM " + days().table + chosen + " UNION ALL SELECT " + columns + " FROM " +
         pending_ + chosen + ")" + groups(days()) + " HAVING sum(Lines) <> 0 OR count(*) = 1)";
}

Names KeptSql::fill() const {
  Names statements = {insertion(days()) + ofLines(days(), {})};
  for (const Span& span : spans())
    if (span.time != day_) statements.push_back(insertion(span) + ofDays(span));
  if (later_) statements.push_back("INSERT INTO " + state() + " VALUES (" + lastLine() + ")");
  return statements;
}

// What is pending stands in the order in which it came to be, so that whatever was taken in is what the totals were
// once.
Names KeptSql::addLater(std::int64_t atMost) const {
  const std::string portion = std::to_string(atMost);
  const std::string first = " WHERE rowid < (SELECT min(rowid) + " + portion + " FROM " + pending_ + ")";
  Names statements;
  for (const Span& span : spans()) {
    const auto inSpan = [&](const std::string& column) { return column == span.time ? timeOf(span, day_) : column; };
    statements.push_back(insertion(span) + ofPending(span, first) + upsert(span));
    statements.push_back("DELETE FROM " + span.table + " WHERE Lines = 0 AND (" + listed(keyOf(span)) +
                         ") IN (SELECT " + listed(formed(keyOf(span), inSpan)) + " FROM " + pending_ + first + ")");
  }
  statements.push_back("DELETE FROM " + pending_ + first);
  if (!later_) return statements;
  const std::string last = "(SELECT Line + " + portion + " FROM " + state() + ")";
  const std::string these = " AND " + additionTest(kept_, lines_, Added::NotYet) + " AND " + lines_ + "." +
                            quotedName(kept_.lineKey) + " <= " + last;
  for (const Span& span : spans()) statements.push_back(insertion(span) + ofLines(span, these) + upsert(span));
  statements.push_back("UPDATE " + state() + " SET Line = min(" + last + ", " + lastLine() + ")");
  return statements;
}

std::string KeptSql::countLater() const {
  const std::string pending = "SELECT (SELECT count(*) FROM " + pending_ + ")";
  return later_ ? pending + " + (SELECT max(" + lastLine() + " - Line, 0) FROM " + state() + ")" : pending;
}

std::string KeptSql::staleDays() const {
  const std::string latest = "(SELECT max(" + group_ + ") FROM " + documents_ + ")";
  const std::string since = "(SELECT min(" + day_ + ") FROM (SELECT DISTINCT " + day_ + " FROM " + documents_ +
                            " WHERE " + group_ + " = " + latest + " AND " + day_ + " IS NOT NULL ORDER BY " + day_ +
                            " DESC LIMIT " + std::to_string(latestDays) + "))";
  const auto ofLatest = [&](const std::string& row) {
    return row + group_ + " = " + latest + " AND " + row + day_ + " >= " + since;
  };
  return differences("(" + addedLines(" AND " + ofLatest(documents_ + ".")) + ")",
                     allDays(ofLatest({}) + " AND " + day_ + " < " + noDay), days());
}

Names KeptSql::unequalSums() const {
  Names all = {unequal(days(), months())};
  if (later_) all.push_back(unequal(months(), years()));
  return all;
}

Names KeptSql::wrongTotals() const {
  Names all = {differences("(" + addedLines() + ")", allDays(), days())};
  for (const Span& span : spans())
    if (span.time != day_) all.push_back(differences("(" + ofDays(span) + ")", span.table, span));
  return all;
}

std::string KeptSql::differences(const std::string& lines, const std::string& table, const Span& span) const {
  Names sums = {"Lines"};
  sums.insert(sums.end(), sums_.begin(), sums_.end());
  return store::differences(table, lines, keyOf(span), sums);
}

// All of one table against all of another in one sum, which takes no sorting.
std::string KeptSql::unequal(const Span& one, const Span& other) const {
  Names tests = {"one.Lines IS NOT other.Lines"};
  for (const std::string& sum : sums_) tests.push_back("one." + sum + " IS NOT other." + sum);
  return "SELECT 1 FROM (SELECT " + sums() + " FROM " + one.table + ") AS one, (SELECT " + sums() + " FROM " +
         other.table + ") AS other WHERE " + listed(tests, " OR ");
}

KeptSql::Object KeptSql::table(const Span& span) const {
  return {"table", span.table.substr(1, span.table.size() - 2),
          "CREATE TABLE " + span.table + " (" + columnsWithTypes(columnsOf(span)) + ", PRIMARY KEY (" +
              listed(keyOf(span)) + ")) WITHOUT ROWID"};
}

// Written at its end alone: many lines touch one page.
KeptSql::Object KeptSql::pendingTable() const {
  return {"table", pendingTableOf(kept_),
          "CREATE TABLE " + pending_ + " (" + columnsWithTypes(columnsOf(days())) + ")"};
}

// How far the lines are in the totals.
KeptSql::Object KeptSql::stateTable() const {
  return {"table", stateTableOf(kept_), "CREATE TABLE " + state() + " (Line INTEGER NOT NULL)"};
}

std::string KeptSql::columnsWithTypes(const Names& columns) const {
  return listed(
      formed(columns, [this](const std::string& column) { return column + " " + typeOf(column) + " NOT NULL"; }));
}

std::string KeptSql::typeOf(const std::string& column) const {
  const bool isText = column == day_ || column == months().time ||
                      (column == subject_ && kept_.subjectType == KeptTotals::Subject::Text);
  return isText ? "TEXT COLLATE NOCASE" : "INTEGER";
}

// For the lines that are read beside the totals: few, so that the index holds all that is asked for.
KeptSql::Object KeptSql::apartIndex() const {
  const std::string name = kept_.lines + "_Apart" + (kept_.tellsNulls() ? kept_.name : kept_.counted);
  Names columns = {subject_, quotedName(kept_.link)};
  columns.insert(columns.end(), amounts_.begin(), amounts_.end());
  return {"index", name,
          "CREATE INDEX " + quotedName(name) + " ON " + lines_ + " (" + listed(columns) + ") WHERE " +
              apartTest(kept_, "")};
}

// For one subject, of the days or of what is pending.
KeptSql::Object KeptSql::subjectIndex(const std::string& table, const Names& columns) const {
  const std::string name = table + "_" + kept_.subject;
  return {"index", name,
          "CREATE INDEX " + quotedName(name) + " ON " + quotedName(table) + " (" + listed(columns) + ")"};
}

std::string KeptSql::insertion(const Span& span) const {
  return "INSERT INTO " + span.table + " (" + listed(columnsOf(span)) + ") ";
}
std::string KeptSql::insertionOfPending() const {
  return " INSERT INTO " + pending_ + " (" + listed(columnsOf(days())) + ") ";
}
std::string KeptSql::upsert(const Span& span) const {
  const Names updates = formed(sums_, [](const std::string& sum) { return sum + " = " + sum + " + excluded." + sum; });
  return " ON CONFLICT (" + listed(keyOf(span)) + ") DO UPDATE SET Lines = Lines + excluded.Lines, " + listed(updates);
}

// The document of a line, `row` being new or old, where the line counts; `isTested` when its trigger asked whether it
// is in the totals.
std::string KeptSql::ofLine(const std::string& row, bool isTested) const {
  return " FROM " + documents_ + " WHERE " + quotedName(kept_.key) + " = " + row + "." + quotedName(kept_.link) +
         " AND " + countTest(kept_, documents_) + " AND " + hasSubject(row + ".") +
         (isTested ? std::string() : " AND " + isAdded(row));
}

std::string KeptSql::values(const Span& span, const std::string& document, const std::string& line,
                            const Names& amounts, Sign sign) const {
  const bool takes = sign == Sign::Minus;
  Names all = formed(keyOf(span), [&](const std::string& column) {
    if (column == span.time) return timeOf(span, dayOf(document));
    return column == subject_ || column == place_ ? line + column : document + "." + column;
  });
  all.emplace_back(takes ? "-1" : "1");
  for (const std::string& amount : amounts) all.push_back(takes ? "-" + amount : amount);
  return "SELECT " + listed(all);
}

// A new line, added to its totals at once.
std::string KeptSql::additionOf(const std::string& line) const {
  const Names amounts = partsOf(line + ".");
  std::string sql;
  for (const Span& span : spans())
    sql += " " + insertion(span) + values(span, documents_, line + ".", amounts, Sign::Plus) + ofLine(line, true) +
           upsert(span) + ";";
  return sql;
}

std::string KeptSql::noteOfLine(const std::string& line, Sign sign, bool isTested) const {
  return insertionOfPending() + values(days(), documents_, line + ".", partsOf(line + "."), sign) +
         ofLine(line, isTested) + ";";
}

// All lines of a document by the values that `row` has, itself being new or old.
std::string KeptSql::noteOfDocument(const std::string& row, Sign sign) const {
  return insertionOfPending() + values(days(), row, {}, partsOf({}), sign) + " FROM " + lines_ + " WHERE " +
         quotedName(kept_.link) + " = " + row + "." + quotedName(kept_.key) + " AND " + countTest(kept_, row) +
         " AND " + hasSubject("") + " AND " + isAdded(lines_) + ";";
}

std::vector<KeptSql::Object> KeptSql::triggers() const {
  return {
      trigger(kept_.lines, "Added", "AFTER INSERT", isAdded("new"),
              later_ ? noteOfLine("new", Sign::Plus, true) : additionOf("new")),
      trigger(kept_.lines, "Removed", "AFTER DELETE", isAdded("old"), noteOfLine("old", Sign::Minus, true)),
      trigger(kept_.lines, "Changed", "AFTER UPDATE OF " + listed(lineColumns()), anyDiffers(lineColumns()),
              noteOfLine("old", Sign::Minus, false) + noteOfLine("new", Sign::Plus, false)),
      // What hangs on a document goes when it is gone, and its day with it.
      trigger(kept_.documents, "Deleted", "BEFORE DELETE", countTest(kept_, "old"), noteOfDocument("old", Sign::Minus)),
      trigger(kept_.documents, "Moved", "AFTER UPDATE OF " + listed(documentColumns()), anyDiffers(documentColumns()),
              noteOfDocument("old", Sign::Minus) + noteOfDocument("new", Sign::Plus))};
}

KeptSql::Object KeptSql::trigger(const std::string& table, const std::string& event, const std::string& when,
                                 const std::string& condition, const std::string& steps) const {
  const std::string name = kept_.name + "Totals" + table + event;
  return {"trigger", name,
          "CREATE TRIGGER " + quotedName(name) + " " + when + " ON " + quotedName(table) + " WHEN " + condition +
              " BEGIN" + steps + " END"};
}

}  // namespace velmo::store
