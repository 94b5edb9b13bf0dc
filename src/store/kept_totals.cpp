#include "store/kept_totals.h"

#include <sqlite3.h>

#include <functional>
#include <vector>

#include "store/sqlite_error.h"
#include "store/table_sql.h"

namespace velmo::store {
namespace {

constexpr int latestDays = 3;  // that areKept() sums up again

using Names = std::vector<std::string>;

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

struct Object {
  std::string type;
  std::string name;
  std::string sql;
};

// The pieces of SQL for one description.
class KeptSql {
 public:
  explicit KeptSql(const KeptTotals& kept)
      : kept_(kept),
        days_(quotedName(daysTableOf(kept))),
        months_(quotedName(monthsTableOf(kept))),
        documents_(quotedName(kept.documents)),
        lines_(quotedName(kept.lines)),
        group_(quotedName(kept.group)),
        day_(quotedName(kept.day)),
        subject_(quotedName(kept.subject)),
        amounts_(each(kept.amounts, quotedName)) {}

  std::vector<Object> objects() const {
    return {table(daysTableOf(kept_), dayKey()), table(monthsTableOf(kept_), monthKey()), subjectIndex(),
            lineTrigger("Added", "AFTER INSERT", {}, {"new"}), lineTrigger("Removed", "AFTER DELETE", {"old"}, {}),
            lineTrigger("Changed", "AFTER UPDATE OF " + list(lineColumns()), {"old"}, {"new"}),
            // What hangs on a document goes when it is gone, and its day with it.
            documentTrigger("Deleted", "BEFORE DELETE", "", subtraction("old")),
            documentTrigger("Moved", "AFTER UPDATE OF " + list(documentColumns()),
                            " WHEN " + differs(documentColumns()), subtraction("old") + addition("new"))};
  }

  // The totals of days as the lines have them; `where` begins with AND.
  std::string daysOfLines(const std::string& where = {}) const {
    return "SELECT " + group_ + ", " + dayOf(documents_) + " AS " + day_ + ", " + subject_ + ", count(*) AS Lines, " +
           list(each(amounts_,
                     [](const std::string& amount) { return "sum(coalesce(" + amount + ", 0)) AS " + amount; })) +
           " FROM " + documents_ + " JOIN " + lines_ + " ON " + documents_ + "." + quotedName(kept_.key) + " = " +
           lines_ + "." + quotedName(kept_.link) + " WHERE " + counts(documents_) + " AND " + subject_ +
           " IS NOT NULL" + where + " GROUP BY 1, 2, 3";
  }

  std::string monthsOfDays() const {
    return "SELECT " + group_ + ", " + monthOf(day_) + " AS Month, " + subject_ + ", sum(Lines) AS Lines, " +
           list(each(amounts_, [](const std::string& amount) { return "sum(" + amount + ") AS " + amount; })) +
           " FROM " + days_ + " GROUP BY 1, 2, 3";
  }

  Names fill() const {
    return {"INSERT INTO " + days_ + " (" + list(columns(day_)) + ") " + daysOfLines(),
            "INSERT INTO " + months_ + " (" + list(columns("Month")) + ") " + monthsOfDays()};
  }

  // Selects a row when the latest days are not those of their lines.
  std::string staleDays() const {
    const std::string first = "(SELECT min(" + day_ + ") FROM (SELECT " + day_ + " FROM " + documents_ + " WHERE " +
                              group_ + " IS latest." + group_ + " AND " + day_ + " IS NOT NULL GROUP BY " + day_ +
                              " ORDER BY " + day_ + " DESC LIMIT " + std::to_string(latestDays) + "))";
    const std::string latest = "WITH latest (" + group_ + ") AS (SELECT max(" + group_ + ") FROM " + documents_ +
                               "), since (" + day_ + ") AS (SELECT " + first + " FROM latest) ";
    const std::string ofLines =
        "(" +
        daysOfLines(" AND " + documents_ + "." + group_ + " = (SELECT " + group_ + " FROM latest) AND " + documents_ +
                    "." + day_ + " >= (SELECT " + day_ + " FROM since)") +
        ")";
    const std::string kept = "(SELECT * FROM " + days_ + " WHERE " + group_ + " = (SELECT " + group_ +
                             " FROM latest) AND " + day_ + " >= (SELECT " + day_ + " FROM since) AND " + day_ + " < " +
                             noDay + ")";
    return latest + differences(ofLines, kept, day_);
  }
  std::string staleMonths() const { return differences("(" + monthsOfDays() + ")", months_, "Month"); }
  std::string wrongDays() const { return differences("(" + daysOfLines() + ")", days_, day_); }

 private:
  Names columns(const std::string& time) const {
    Names names = {group_, time, subject_, "Lines"};
    names.insert(names.end(), amounts_.begin(), amounts_.end());
    return names;
  }
  Names dayKey() const { return {group_, day_, subject_}; }
  // By subject first: a balance is then a stretch of few neighbouring months.
  Names monthKey() const { return {group_, subject_, "Month"}; }
  Names documentColumns() const { return {group_, day_, quotedName(kept_.excluded)}; }
  Names lineColumns() const {
    Names names = {quotedName(kept_.link), subject_};
    names.insert(names.end(), amounts_.begin(), amounts_.end());
    return names;
  }

  std::string dayOf(const std::string& row) const { return "coalesce(" + row + "." + day_ + ", " + noDay + ")"; }
  std::string counts(const std::string& row) const {
    return row + "." + quotedName(kept_.excluded) + " = 0 AND " + row + "." + group_ + " IS NOT NULL";
  }

  Object table(const std::string& name, const Names& key) const {
    std::string columns;
    for (const std::string& column : key)
      columns += column + (column == group_ || column == subject_ ? " INTEGER NOT NULL, " : " TEXT NOT NULL, ");
    columns += "Lines INTEGER NOT NULL, ";
    for (const std::string& amount : amounts_) columns += amount + " REAL NOT NULL, ";
    return {"table", name,
            "CREATE TABLE " + quotedName(name) + " (" + columns + "PRIMARY KEY (" + list(key) + ")) WITHOUT ROWID"};
  }

  // For the days of one subject.
  Object subjectIndex() const {
    const std::string name = daysTableOf(kept_) + "_" + kept_.subject;
    return {"index", name,
            "CREATE INDEX " + quotedName(name) + " ON " + days_ + " (" + list({group_, subject_, day_}) + ")"};
  }

  // One line, `row` being new or old, added to or taken from its day and month.
  std::string lineStep(const std::string& row, const char* sign) const {
    const Names amounts =
        each(amounts_, [&](const std::string& amount) { return "coalesce(" + row + "." + amount + ", 0)"; });
    const std::string document = " FROM " + documents_ + " WHERE " + quotedName(kept_.key) + " = " + row + "." +
                                 quotedName(kept_.link) + " AND " + counts(documents_) + " AND " + row + "." +
                                 subject_ + " IS NOT NULL";
    return step(documents_, row + "." + subject_, amounts, document, sign);
  }

  // All lines of a document by the values that `row` has, itself being new or old.
  std::string documentStep(const std::string& row, const char* sign) const {
    const Names amounts = each(amounts_, [](const std::string& amount) { return "coalesce(" + amount + ", 0)"; });
    const std::string lines = " FROM " + lines_ + " WHERE " + quotedName(kept_.link) + " = " + row + "." +
                              quotedName(kept_.key) + " AND " + counts(row) + " AND " + subject_ + " IS NOT NULL";
    return step(row, subject_, amounts, lines, sign);
  }
  std::string addition(const std::string& row) const { return documentStep(row, "+"); }
  std::string subtraction(const std::string& row) const { return documentStep(row, "-"); }

  // Adds rows to both tables, or takes them off and leaves no total without lines.
  std::string step(const std::string& document, const std::string& subject, const Names& amounts,
                   const std::string& from, const std::string& sign) const {
    const bool takes = sign == "-";
    std::string sql;
    for (const bool ofDays : {true, false}) {
      const std::string& table = ofDays ? days_ : months_;
      const std::string time = ofDays ? day_ : "Month";
      const std::string timeOf = ofDays ? dayOf(document) : monthOf(dayOf(document));
      const Names updates =
          each(amounts_, [&](const std::string& amount) { return amount + " = " + amount + " + excluded." + amount; });
      Names values = {document + "." + group_, timeOf, subject, takes ? "-1" : "1"};
      for (const std::string& amount : amounts) values.push_back(takes ? "-" + amount : amount);
      sql += " INSERT INTO " + table + " (" + list(columns(time)) + ") SELECT " + list(values) + from +
             " ON CONFLICT (" + list(ofDays ? dayKey() : monthKey()) +
             ") DO UPDATE SET Lines = Lines + excluded.Lines, " + list(updates) + ";";
      if (takes)
        sql += " DELETE FROM " + table + " WHERE Lines = 0 AND (" + list({group_, time, subject_}) + ") IN (SELECT " +
               list({document + "." + group_, timeOf, subject}) + from + ");";
    }
    return sql;
  }

  static std::string differs(const Names& columns) {
    return list(each(columns, [](const std::string& column) { return "old." + column + " IS NOT new." + column; }),
                " OR ");
  }

  Object lineTrigger(const std::string& event, const std::string& when, const Names& taken, const Names& added) const {
    std::string steps;
    for (const std::string& row : taken) steps += lineStep(row, "-");
    for (const std::string& row : added) steps += lineStep(row, "+");
    const std::string condition = taken.size() + added.size() == 2 ? " WHEN " + differs(lineColumns()) : "";
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

  // Rows that one side has and the other has not, or with other sums.
  std::string differences(const std::string& one, const std::string& other, const std::string& time) const {
    const Names unequal = each(amounts_, [](const std::string& amount) {
      return "abs(one." + amount + " - other." + amount + ") > 0.00005 + 1e-12 * abs(one." + amount + ")";
    });
    const auto side = [&](const std::string& from, const std::string& to) {
      return "SELECT 1 FROM " + from + " AS one LEFT JOIN " + to + " AS other USING (" +
             list({group_, time, subject_}) + ") WHERE other.Lines IS NOT one.Lines OR " + list(unequal, " OR ");
    };
    return "SELECT 1 FROM (" + side(one, other) + " UNION ALL " + side(other, one) + ") LIMIT 1";
  }

  const KeptTotals& kept_;
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

bool areKept(sqlite3* database, const KeptTotals& kept) {
  const KeptSql sql(kept);
  return isDeclared(database, sql) && isNone(database, sql.staleMonths()) && isNone(database, sql.staleDays());
}

bool areRight(sqlite3* database, const KeptTotals& kept) {
  const KeptSql sql(kept);
  return isDeclared(database, sql) && isNone(database, sql.wrongDays()) && isNone(database, sql.staleMonths());
}

}  // namespace velmo::store
