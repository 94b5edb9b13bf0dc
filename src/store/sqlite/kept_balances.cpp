#include "store/sqlite/kept_balances.h"

#include "store/sqlite/kept_objects.h"
#include "store/sqlite/table_sql.h"

namespace velmo::store {
namespace {

using Names = std::vector<std::string>;

constexpr const char* latestLines = "200";  // whose groups are summed up again

class BalancesSql {
 public:
  explicit BalancesSql(const KeptBalances& kept)
      : kept_(kept),
        table_(quotedName(kept.name)),
        documents_(quotedName(kept.documents)),
        lines_(quotedName(kept.lines)),
        link_(quotedName(kept.link)),
        amounts_({quotedName(kept.due), quotedName(kept.settled)}),
        sums_({linesColumn, apartColumn, amounts_[0], amounts_[1]}) {
    for (const Column& group : kept.groups) groups_.push_back(quotedName(group.name));
  }

  std::vector<KeptObject> objects() const {
    std::vector<KeptObject> all = {
        table(), index("_Open", table_, groupsAnd({amounts_[0], amounts_[1], apartColumn}), openTest(kept_, "")),
        index("_Apart", table_, apartAndGroups(), std::string(apartColumn) + " > 0"),
        index("_Groupless", lines_, {link_}, groupless(kept_, ""))};
    const std::vector<KeptObject> made = triggers();
    all.insert(all.end(), made.begin(), made.end());
    return all;
  }

  Names fill() const { return {insertion() + ofAllLines()}; }

  Names wrong() const { return {differences(table_, "(" + ofAllLines() + ")", groups_, sums_)}; }

  // The groups of the latest lines, read by the index of the lines that begins with what groups begin with.
  Names stale() const {
    const std::string latest = "(SELECT DISTINCT " + listed(groups_) + " FROM " + lines_ + " WHERE " +
                               quotedName(kept_.lineKey) + " > (SELECT max(" + quotedName(kept_.lineKey) + ") - " +
                               latestLines + " FROM " + lines_ + ") AND NOT (" + groupless(kept_, "") +
                               ")) AS latest CROSS JOIN ";
    const auto sameGroup = [&](const std::string& of) {
      return listed(formed(groups_, [&](const std::string& group) { return of + group + " = latest." + group; }),
                    " AND ");
    };
    const std::string kept =
        "(SELECT " + table_ + ".* FROM " + latest + table_ + " WHERE " + sameGroup(table_ + ".") + ")";
    const std::string lines = "(" + selected(lines_ + ".", true) + " FROM " + latest + lines_ + " CROSS JOIN " +
                              documents_ + " WHERE " + sameGroup(lines_ + ".") + " AND " + counts() + groupBy() + ")";
    return {differences(kept, lines, groups_, sums_)};
  }

 private:
  Names groupsAnd(const Names& more) const {
    Names all = groups_;
    all.insert(all.end(), more.begin(), more.end());
    return all;
  }

  Names apartAndGroups() const {
    Names all = {apartColumn};
    all.insert(all.end(), groups_.begin(), groups_.end());
    return all;
  }

  KeptObject table() const {
    Names columns;
    for (const Column& group : kept_.groups)
      columns.push_back(quotedName(group.name) + " " + declaredType(group) + " NOT NULL");
    for (const std::string& sum : sums_) columns.push_back(sum + " INTEGER NOT NULL");
    return {
        "table", kept_.name,
        "CREATE TABLE " + table_ + " (" + listed(columns) + ", PRIMARY KEY (" + listed(groups_) + ")) WITHOUT ROWID"};
  }

  KeptObject index(const std::string& name, const std::string& on, const Names& columns,
                   const std::string& where) const {
    const std::string whole = kept_.name + name;
    return {"index", whole,
            "CREATE INDEX " + quotedName(whole) + " ON " + on + " (" + listed(columns) + ") WHERE " + where};
  }

  std::string insertion() const { return "INSERT INTO " + table_ + " (" + listed(groupsAnd(sums_)) + ") "; }
  std::string groupBy() const {
    Names numbers;
    for (std::size_t i = 1; i <= groups_.size(); ++i) numbers.push_back(std::to_string(i));
    return " GROUP BY " + listed(numbers);
  }

  // That a line under its table's name counts, beside its document.
  std::string counts() const {
    return documents_ + "." + quotedName(kept_.key) + " = " + lines_ + "." + link_ + " AND " +
           countTest(kept_, documents_) + " AND NOT (" + groupless(kept_, lines_) + ")";
  }

  // Whether the line `row`, which ends with a point, stands apart: 1 or 0.
  std::string isApartLine(const std::string& row) const {
    Names tests;
    for (const std::string& amount : amounts_) {
      tests.push_back(row + amount + " IS NULL");
      tests.push_back(isApart(row + amount));
    }
    return "(" + listed(tests, " OR ") + ")";
  }

  // What `row` adds to its group, or takes from it; summed up where several are selected.
  std::string selected(const std::string& row, bool summed, const std::string& sign = "") const {
    const std::string apart = isApartLine(row);
    Names values = formed(groups_, [&](const std::string& group) { return row + group; });
    values.push_back(summed ? "count(*) AS " + std::string(linesColumn) : sign + "1");
    values.push_back(summed ? "sum" + apart + " AS " + apartColumn : sign + apart);
    for (const std::string& amount : amounts_) {
      const std::string parts = "iif(" + apart + ", 0, " + inParts(row + amount) + ")";
      values.push_back(summed ? wholeSum(parts) + " AS " + amount : sign + parts);
    }
    return "SELECT " + listed(values);
  }

  std::string ofAllLines() const {
    return selected(lines_ + ".", true) + " FROM " + lines_ + " CROSS JOIN " + documents_ + " WHERE " + counts() +
           groupBy();
  }

  std::string upsert() const {
    return " ON CONFLICT (" + listed(groups_) + ") DO UPDATE SET " +
           listed(formed(sums_, [](const std::string& sum) { return sum + " = " + sum + " + excluded." + sum; })) + ";";
  }

  // A line of a trigger with its document.
  std::string change(const std::string& line, const std::string& sign) const {
    return " " + insertion() + selected(line + ".", false, sign) + " FROM " + documents_ + " WHERE " +
           quotedName(kept_.key) + " = " + line + "." + link_ + " AND " + countTest(kept_, documents_) + " AND NOT (" +
           groupless(kept_, line) + ")" + upsert();
  }
  std::string added(const std::string& line) const { return change(line, ""); }
  std::string takenAway(const std::string& line) const {
    const auto same = [&](const std::string& group) { return group + " = " + line + "." + group; };
    return change(line, "-") + " DELETE FROM " + table_ + " WHERE " + linesColumn + " = 0 AND " +
           listed(formed(groups_, same), " AND ") + ";";
  }

  // All lines of a document of a trigger.
  std::string ofDocument(const std::string& row, const std::string& sign) const {
    const std::string its = lines_ + "." + link_ + " = " + row + "." + quotedName(kept_.key);
    std::string sql = " " + insertion() + selected(lines_ + ".", false, sign) + " FROM " + lines_ + " WHERE " + its +
                      " AND " + countTest(kept_, row) + " AND NOT (" + groupless(kept_, lines_) + ")" + upsert();
    if (!sign.empty())
      sql += " DELETE FROM " + table_ + " WHERE " + linesColumn + " = 0 AND (" + listed(groups_) + ") IN (SELECT " +
             listed(groups_) + " FROM " + lines_ + " WHERE " + its + ");";
    return sql;
  }

  std::vector<KeptObject> triggers() const {
    const Names ofLine = groupsAnd({link_, amounts_[0], amounts_[1]});
    const Names ofDocuments = formed(kept_.excluded, quotedName);
    return {trigger(lines_, "Added", "AFTER INSERT", {}, added("new")),
            trigger(lines_, "Removed", "AFTER DELETE", {}, takenAway("old")),
            trigger(lines_, "Changed", "AFTER UPDATE OF " + listed(ofLine), anyDiffers(ofLine),
                    takenAway("old") + added("new")),
            // What hangs on a document goes when it is gone, and with it whether it counted.
            trigger(documents_, "Deleted", "BEFORE DELETE", countTest(kept_, "old"), ofDocument("old", "-")),
            trigger(documents_, "Moved", "AFTER UPDATE OF " + listed(ofDocuments), anyDiffers(ofDocuments),
                    ofDocument("old", "-") + ofDocument("new", ""))};
  }

  KeptObject trigger(const std::string& table, const std::string& event, const std::string& when,
                     const std::string& condition, const std::string& steps) const {
    const std::string name = kept_.name + (table == lines_ ? "Line" : "Document") + event;
    return {"trigger", name,
            "CREATE TRIGGER " + quotedName(name) + " " + when + " ON " + table +
                (condition.empty() ? "" : " WHEN " + condition) + " BEGIN" + steps + " END"};
  }

  const KeptBalances& kept_;
  const std::string table_, documents_, lines_, link_;
  const Names amounts_, sums_;
  Names groups_;
};

std::string sourceOf(std::string_view table) {
  return table.empty() ? std::string() : std::string(table) + ".";
}

}  // namespace

std::string openTest(const KeptBalances& kept, std::string_view groups) {
  return sourceOf(groups) + quotedName(kept.due) + " > " + sourceOf(groups) + quotedName(kept.settled);
}

std::string groupless(const KeptBalances& kept, std::string_view lines) {
  Names tests;
  for (const Column& group : kept.groups) tests.push_back(sourceOf(lines) + quotedName(group.name) + " IS NULL");
  return listed(tests, " OR ");
}

std::string countTest(const KeptBalances& kept, std::string_view documents) {
  Names tests;
  for (const std::string& excluded : kept.excluded)
    tests.push_back(sourceOf(documents) + quotedName(excluded) + " = 0");
  return listed(tests, " AND ");
}

void makeKeptBalances(sqlite3* database, const KeptBalances& kept) {
  const BalancesSql sql(kept);
  makeAnew(database, sql.objects(), sql.fill());
}

bool areKept(sqlite3* database, const KeptBalances& kept) {
  const BalancesSql sql(kept);
  return areDeclared(database, sql.objects()) && areNone(database, sql.stale());
}

bool areRight(sqlite3* database, const KeptBalances& kept) {
  const BalancesSql sql(kept);
  return areDeclared(database, sql.objects()) && areNone(database, sql.wrong());
}

}  // namespace velmo::store
