#include "store/sqlite/kept_totals.h"

#include <sqlite3.h>

#include <cstdlib>
#include <functional>
#include <vector>

#include "store/sqlite/sqlite_error.h"
#include "store/sqlite/table_sql.h"
#include "store/sqlite/time_limit.h"

namespace velmo::store {
namespace {

constexpr int latestDays = 3;                         // that areKept() sums up again
constexpr std::chrono::milliseconds longestLook(10);  // at the sums of long years

constexpr const char* parts = "10000";                // of a unit
constexpr const char* beyondTotals = "100000000000";  // amounts below it are known by as many digits as a double keeps

using Names = std::vector<std::string>;

std::string stateTableOf(const KeptTotals& kept) {
  return kept.name + "Added";
}

std::string list(const Names& items, const char* separator = ", ") {
  std::string text;
  for (const std::string& item : items) text += (text.empty() ? "" : separator) + item;
  return text;
}

Names each(const Names& items, const std::function<std::string(const std::string&)>& form) {
  Names formed;
  for (const std::string& item : items) formed.push_back(form(item));
  return formed;
}

enum class Sign { Plus, Minus };

struct Object {
  std::string type;
  std::string name;
  std::string sql;
};

// Tells nothing of an amount that is null.
std::string isApart(const std::string& amount) {
  return "abs(" + amount + ") >= " + beyondTotals + " OR " + amount + " <> round(" + amount + " * " + parts + ") / " +
         parts;
}

std::string inParts(const std::string& amount) {
  return "CAST(round(coalesce(" + amount + ", 0) * " + parts + ") AS INTEGER)";
}

// The sum of whole numbers, and a double where it outgrows them: sum() alone would fail then.
std::string wholeSum(const std::string& number) {
  return "sum(" + number + " / " + parts + ") * " + parts + " + sum(" + number + " % " + parts + ")";
}

// The pieces of SQL for one description.
class KeptSql {
 public:
  explicit KeptSql(const KeptTotals& kept)
      : kept_(kept),
        later_(kept.adds == KeptTotals::Adds::Later),
        days_(quotedName(daysTableOf(kept))),
        months_(quotedName(monthsTableOf(kept))),
        documents_(quotedName(kept.documents)),
        lines_(quotedName(kept.lines)),
        group_(quotedName(kept.group)),
        day_(quotedName(kept.day)),
        subject_(quotedName(kept.subject)),
        amounts_(each(kept.amounts, quotedName)) {}

  std::vector<Object> objects() const {
    std::vector<Object> all = {table(daysTableOf(kept_), dayKey()), table(monthsTableOf(kept_), monthKey()),
                               subjectIndex(), apartIndex()};
    if (later_) all.push_back(stateTable());
    all.insert(all.end(),
               {lineTrigger("Added", "AFTER INSERT", {}, {"new"}), lineTrigger("Removed", "AFTER DELETE", {"old"}, {}),
                lineTrigger("Changed", "AFTER UPDATE OF " + list(lineColumns()), {"old"}, {"new"}),
                // What hangs on a document goes when it is gone, and its day with it.
                documentTrigger("Deleted", "BEFORE DELETE", "", subtraction("old")),
                documentTrigger("Moved", "AFTER UPDATE OF " + list(documentColumns()),
                                " WHEN " + differs(documentColumns()), subtraction("old") + addition("new"))});
    return all;
  }

  Names fill() const {
    Names statements = {"INSERT INTO " + days_ + " (" + list(columns(day_)) + ") " + ofLines(dayOf(documents_), day_),
                        "INSERT INTO " + months_ + " (" + list(columns("Month")) + ") " + monthsOfDays()};
    if (later_) statements.push_back("INSERT INTO " + state() + " VALUES (" + lastLine() + ")");
    return statements;
  }

  Names addLater(std::int64_t atMost) const {
    const std::string last = "(SELECT Line + " + std::to_string(atMost) + " FROM " + state() + ")";
    const std::string these = " AND " + additionTest(kept_, kept_.lines, Added::NotYet) + " AND " + lines_ + "." +
                              quotedName(kept_.lineKey) + " <= " + last;
    return {insertion(days_, day_) + ofLines(dayOf(documents_), day_, these) + upsert(dayKey()),
            insertion(months_, "Month") + ofLines(monthOf(dayOf(documents_)), "Month", these) + upsert(monthKey()),
            "UPDATE " + state() + " SET Line = min(" + last + ", " + lastLine() + ")"};
  }
  std::string countLater() const { return "SELECT max(" + lastLine() + " - Line, 0) FROM " + state(); }

  // Each selects a row when the totals are off.
  std::string staleDays() const {
    const std::string latest = "(SELECT max(" + group_ + ") FROM " + documents_ + ")";
    const std::string since = "(SELECT min(" + day_ + ") FROM (SELECT DISTINCT " + day_ + " FROM " + documents_ +
                              " WHERE " + group_ + " = " + latest + " AND " + day_ + " IS NOT NULL ORDER BY " + day_ +
                              " DESC LIMIT " + std::to_string(latestDays) + "))";
    const auto ofLatest = [&](const std::string& row) {
      return row + "." + group_ + " = " + latest + " AND " + row + "." + day_ + " >= " + since;
    };
    return differences("(" + addedLines(" AND " + ofLatest(documents_)) + ")",
                       "(SELECT * FROM " + days_ + " WHERE " + ofLatest(days_) + " AND " + day_ + " < " + noDay + ")",
                       day_);
  }
  // All months against all days in one sum, which takes no sorting.
  std::string unequalSums() const {
    const std::string sums =
        "(SELECT sum(Lines) AS Lines, " +
        list(each(amounts_, [](const std::string& amount) { return wholeSum(amount) + " AS " + amount; })) + " FROM ";
    return "SELECT 1 FROM " + sums + days_ + ") AS one, " + sums + months_ +
           ") AS other WHERE one.Lines IS NOT other.Lines OR " + list(unequalAmounts(), " OR ");
  }
  std::string staleMonths() const { return differences("(" + monthsOfDays() + ")", months_, "Month"); }
  std::string wrongDays() const { return differences("(" + addedLines() + ")", days_, day_); }

 private:
  Names columns(const std::string& time) const {
    Names names = {group_, time, subject_, "Lines"};
    names.insert(names.end(), amounts_.begin(), amounts_.end());
    return names;
  }
  Names dayKey() const { return {group_, day_, subject_}; }
  // By subject first: a balance is then a stretch of few neighbouring months.
  Names monthKey() const { return {group_, subject_, "Month"}; }
  Names documentColumns() const {
    Names names = {group_, day_};
    for (const std::string& excluded : kept_.excluded) names.push_back(quotedName(excluded));
    return names;
  }
  Names lineColumns() const {
    Names names = {quotedName(kept_.lineKey), quotedName(kept_.link), subject_};
    names.insert(names.end(), amounts_.begin(), amounts_.end());
    return names;
  }

  std::string state() const { return quotedName(stateTableOf(kept_)); }
  std::string lastLine() const {
    return "(SELECT coalesce(max(" + quotedName(kept_.lineKey) + "), 0) FROM " + lines_ + ")";
  }
  std::string dayOf(const std::string& row) const { return "coalesce(" + row + "." + day_ + ", " + noDay + ")"; }
  std::string isNotApart(const std::string& row) const { return "(" + apartTest(kept_, row) + ") IS NOT 1"; }
  // Of a line: that it is in the totals.
  std::string isAdded(const std::string& row) const {
    return (later_ ? additionTest(kept_, row, Added::Already) + " AND " : std::string()) + isNotApart(row);
  }

  // The lines summed up; `where` begins with AND.
  std::string ofLines(const std::string& time, const std::string& name, const std::string& where = {}) const {
    return "SELECT " + documents_ + "." + group_ + ", " + time + " AS " + name + ", " + subject_ +
           ", count(*) AS Lines, " +
           list(each(amounts_, [](const std::string& amount) { return wholeSum(inParts(amount)) + " AS " + amount; })) +
           " FROM " + documents_ + " JOIN " + lines_ + " ON " + documents_ + "." + quotedName(kept_.key) + " = " +
           lines_ + "." + quotedName(kept_.link) + " WHERE " + countTest(kept_, kept_.documents) + " AND " + subject_ +
           " IS NOT NULL AND " + isNotApart(kept_.lines) + where + " GROUP BY 1, 2, 3";
  }
  std::string addedLines(const std::string& where = {}) const {
    const std::string already = later_ ? " AND " + additionTest(kept_, kept_.lines, Added::Already) : std::string();
    return ofLines(dayOf(documents_), day_, where + already);
  }
  std::string monthsOfDays() const {
    return "SELECT " + group_ + ", " + monthOf(day_) + " AS Month, " + subject_ + ", sum(Lines) AS Lines, " +
           list(each(amounts_, [](const std::string& amount) { return wholeSum(amount) + " AS " + amount; })) +
           " FROM " + days_ + " GROUP BY 1, 2, 3";
  }

  Object table(const std::string& name, const Names& key) const {
    std::string columns;
    for (const std::string& column : key) columns += column + " " + typeOf(column) + " NOT NULL, ";
    columns += "Lines INTEGER NOT NULL, ";
    for (const std::string& amount : amounts_) columns += amount + " INTEGER NOT NULL, ";
    return {"table", name,
            "CREATE TABLE " + quotedName(name) + " (" + columns + "PRIMARY KEY (" + list(key) + ")) WITHOUT ROWID"};
  }
  std::string typeOf(const std::string& column) const {
    const bool isNumber = column == group_ || (column == subject_ && kept_.subjectType == KeptTotals::Subject::Number);
    return isNumber ? "INTEGER" : "TEXT COLLATE NOCASE";
  }

  // How far the lines are in the totals.
  Object stateTable() const {
    return {"table", stateTableOf(kept_), "CREATE TABLE " + state() + " (Line INTEGER NOT NULL)"};
  }

  // For the lines that are read beside the totals: few, so that the index holds all that is asked for.
  Object apartIndex() const {
    const std::string name = kept_.lines + "_Apart";
    Names columns = {subject_, quotedName(kept_.link)};
    columns.insert(columns.end(), amounts_.begin(), amounts_.end());
    return {"index", name,
            "CREATE INDEX " + quotedName(name) + " ON " + lines_ + " (" + list(columns) + ") WHERE " +
                apartTest(kept_, "")};
  }

  // For the days of one subject.
  Object subjectIndex() const {
    const std::string name = daysTableOf(kept_) + "_" + kept_.subject;
    return {"index", name,
            "CREATE INDEX " + quotedName(name) + " ON " + days_ + " (" + list({group_, subject_, day_}) + ")"};
  }

  // One line, `row` being new or old, added to or taken from its day and month; `isTested` when its trigger asked
  // whether it is in the totals.
  std::string lineStep(const std::string& row, Sign sign, bool isTested) const {
    const Names amounts = each(amounts_, [&](const std::string& amount) { return inParts(row + "." + amount); });
    const std::string document = " FROM " + documents_ + " WHERE " + quotedName(kept_.key) + " = " + row + "." +
                                 quotedName(kept_.link) + " AND " + countTest(kept_, kept_.documents) + " AND " + row +
                                 "." + subject_ + " IS NOT NULL" + (isTested ? std::string() : " AND " + isAdded(row));
    return step(documents_, row + "." + subject_, amounts, document, sign);
  }

  // All lines of a document by the values that `row` has, itself being new or old.
  std::string documentStep(const std::string& row, Sign sign) const {
    const Names amounts = each(amounts_, inParts);
    const std::string lines = " FROM " + lines_ + " WHERE " + quotedName(kept_.link) + " = " + row + "." +
                              quotedName(kept_.key) + " AND " + countTest(kept_, row) + " AND " + subject_ +
                              " IS NOT NULL AND " + isAdded(kept_.lines);
    return step(row, subject_, amounts, lines, sign);
  }
  std::string addition(const std::string& row) const { return documentStep(row, Sign::Plus); }
  std::string subtraction(const std::string& row) const { return documentStep(row, Sign::Minus); }

  std::string insertion(const std::string& table, const std::string& time) const {
    return "INSERT INTO " + table + " (" + list(columns(time)) + ") ";
  }
  std::string upsert(const Names& key) const {
    const Names updates =
        each(amounts_, [](const std::string& amount) { return amount + " = " + amount + " + excluded." + amount; });
    return " ON CONFLICT (" + list(key) + ") DO UPDATE SET Lines = Lines + excluded.Lines, " + list(updates);
  }

  // Adds rows to both tables, or takes them off and leaves no total without lines.
  std::string step(const std::string& document, const std::string& subject, const Names& amounts,
                   const std::string& from, Sign sign) const {
    const bool takes = sign == Sign::Minus;
    // A document that is no row of the trigger is looked up. Each column has a test of its own, which the key serves.
    const auto scalar = [&](const std::string& value) {
      return document == documents_ ? "(SELECT " + value + from + ")" : value;
    };
    std::string sql;
    for (const bool ofDays : {true, false}) {
      const std::string& table = ofDays ? days_ : months_;
      const std::string time = ofDays ? day_ : "Month";
      const std::string timeOf = ofDays ? dayOf(document) : monthOf(dayOf(document));
      const Names key = ofDays ? dayKey() : monthKey();
      Names values = {document + "." + group_, timeOf, subject, takes ? "-1" : "1"};
      for (const std::string& amount : amounts) values.push_back(takes ? "-" + amount : amount);
      sql += " " + insertion(table, time) + "SELECT " + list(values) + from + upsert(key) + ";";
      if (takes)
        sql += " DELETE FROM " + table + " WHERE " + group_ + " = " + scalar(document + "." + group_) + " AND " + time +
               " = " + scalar(timeOf) + " AND " + subject_ + " IN (SELECT " + subject + from + ") AND Lines = 0;";
    }
    return sql;
  }

  static std::string differs(const Names& columns) {
    return list(each(columns, [](const std::string& column) { return "old." + column + " IS NOT new." + column; }),
                " OR ");
  }

  Object lineTrigger(const std::string& event, const std::string& when, const Names& taken, const Names& added) const {
    const bool changes = !taken.empty() && !added.empty();
    std::string steps;
    for (const std::string& row : taken) steps += lineStep(row, Sign::Minus, !changes);
    for (const std::string& row : added) steps += lineStep(row, Sign::Plus, !changes);
    const std::string condition =
        " WHEN " + (changes ? differs(lineColumns()) : isAdded((taken.empty() ? added : taken).front()));
    return trigger(kept_.lines + event, when, lines_, condition, steps);
  }
  Object documentTrigger(const std::string& event, const std::string& when, const std::string& condition,
                         const std::string& steps) const {
    return trigger(kept_.documents + event, when, documents_, condition, steps);
  }
  Object trigger(const std::string& event, const std::string& when, const std::string& table,
                 const std::string& condition, const std::string& steps) const {
    const std::string name = kept_.name + "Totals" + event;
    return {"trigger", name,
            "CREATE TRIGGER " + quotedName(name) + " " + when + " ON " + table + condition + " BEGIN" + steps + " END"};
  }

  Names unequalAmounts() const {
    return each(amounts_, [](const std::string& amount) { return "one." + amount + " IS NOT other." + amount; });
  }

  // Rows that one side has and the other has not, or with other sums: by one pass over both. The table comes first,
  // since its columns say how texts are compared.
  std::string differences(const std::string& lines, const std::string& table, const std::string& time) const {
    const Names key = {group_, time, subject_};
    Names sums = {"Lines"};
    sums.insert(sums.end(), amounts_.begin(), amounts_.end());
    const std::string columns = list(key) + ", " + list(sums);
    const Names unequal = each(sums, [](const std::string& sum) { return "min(" + sum + ") IS NOT max(" + sum + ")"; });
    return "SELECT 1 FROM (SELECT " + columns + " FROM " + table + " UNION ALL SELECT " + columns + " FROM " + lines +
           ") GROUP BY " + list(key) + " HAVING count(*) <> 2 OR " + list(unequal, " OR ") + " LIMIT 1";
  }

  const KeptTotals& kept_;
  const bool later_;
  std::string days_, months_, documents_, lines_, group_, day_, subject_;
  Names amounts_;
};

void run(sqlite3* database, const std::string& sql) {
  const int code = sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) throw sqliteError(database, code, "the company file");
}

// The first column of the only row, "" without one.
std::string lookUp(sqlite3* database, const std::string& sql, const Names& values = {}) {
  sqlite3_stmt* statement = nullptr;
  int code = sqlite3_prepare_v2(database, sql.c_str(), -1, &statement, nullptr);
  for (std::size_t i = 0; i < values.size() && code == SQLITE_OK; ++i)
    code = sqlite3_bind_text(statement, static_cast<int>(i) + 1, values[i].c_str(), -1, SQLITE_TRANSIENT);
  if (code == SQLITE_OK) code = sqlite3_step(statement);
  std::string found;
  if (code == SQLITE_ROW)
    if (const unsigned char* text = sqlite3_column_text(statement, 0)) found = reinterpret_cast<const char*>(text);
  if (code != SQLITE_ROW && code != SQLITE_DONE) {
    const StoreError error = sqliteError(database, code, "the company file");
    sqlite3_finalize(statement);
    throw error;
  }
  sqlite3_finalize(statement);
  return found;
}

bool isDeclared(sqlite3* database, const KeptSql& sql) {
  for (const Object& object : sql.objects())
    if (lookUp(database, "SELECT sql FROM sqlite_schema WHERE type = ?1 AND name = ?2", {object.type, object.name}) !=
        object.sql)
      return false;
  return true;
}

bool isNone(sqlite3* database, const std::string& sql) {
  return lookUp(database, sql).empty();
}

}  // namespace

std::string daysTableOf(const KeptTotals& kept) {
  return kept.name + "Days";
}

std::string monthsTableOf(const KeptTotals& kept) {
  return kept.name + "Months";
}

std::string additionTest(const KeptTotals& kept, std::string_view lines, Added added) {
  // Nearly all lines are added already: what a plus stands before is not looked up by its key.
  const bool already = added == Added::Already;
  return (already ? "+" : "") + std::string(lines) + "." + quotedName(kept.lineKey) + (already ? " <= " : " > ") +
         "(SELECT Line FROM " + quotedName(stateTableOf(kept)) + ")";
}

std::string apartTest(const KeptTotals& kept, std::string_view lines) {
  const std::string source = lines.empty() ? std::string() : std::string(lines) + ".";
  return list(each(kept.amounts, [&](const std::string& amount) { return isApart(source + quotedName(amount)); }),
              " OR ");
}

std::string countTest(const KeptTotals& kept, std::string_view documents) {
  const std::string row = std::string(documents) + ".";
  std::string test = row + quotedName(kept.group) + " IS NOT NULL";
  for (const std::string& excluded : kept.excluded) test += " AND " + row + quotedName(excluded) + " = 0";
  return test;
}

std::string monthOf(std::string_view dayExpression) {
  return "substr(" + std::string(dayExpression) + ", 1, 7)";  // "2026-11" of "2026-11-22"
}

void makeKeptTotals(sqlite3* database, const KeptTotals& kept) {
  const KeptSql sql(kept);
  for (const Object& object : sql.objects())
    run(database, "DROP " + object.type + " IF EXISTS " + quotedName(object.name));
  for (const Object& object : sql.objects()) run(database, object.sql);
  for (const std::string& fill : sql.fill()) run(database, fill);
}

void addLaterLines(sqlite3* database, const KeptTotals& kept, std::int64_t atMost) {
  if (kept.adds != KeptTotals::Adds::Later) return;
  for (const std::string& statement : KeptSql(kept).addLater(atMost)) run(database, statement);
}

std::int64_t laterLines(sqlite3* database, const KeptTotals& kept) {
  if (kept.adds != KeptTotals::Adds::Later) return 0;
  return std::strtoll(lookUp(database, KeptSql(kept).countLater()).c_str(), nullptr, 10);
}

bool areKept(sqlite3* database, const KeptTotals& kept) {
  const KeptSql sql(kept);
  if (!isDeclared(database, sql) || !isNone(database, sql.staleDays())) return false;
  const TimeLimit limit(database, longestLook);
  try {
    return isNone(database, sql.unequalSums());
  } catch (const StoreError&) {
    if (limit.hasPassed()) return true;
    throw;
  }
}

bool areRight(sqlite3* database, const KeptTotals& kept) {
  const KeptSql sql(kept);
  return isDeclared(database, sql) && isNone(database, sql.wrongDays()) && isNone(database, sql.staleMonths());
}

}  // namespace velmo::store
