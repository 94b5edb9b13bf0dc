#include "store/sql/emit/emitter.h"
#include "store/sqlite/kept_balances.h"
#include "store/sqlite/kept_objects.h"
#include "store/sqlite/table_sql.h"

namespace velmo::store::sql {
namespace {

constexpr const char* documentsName = "\"document\"";
constexpr const char* apartName = "\"apart\"";

// Groups as they are kept; those with lines that stand apart, and lines that belong to no group, summed up.
class GroupsWriter {
 public:
  GroupsWriter(const BoundSelect& select, int source, std::string& sql)
      : select_(select),
        source_(select.sources[static_cast<std::size_t>(source)]),
        kept_(*source_.groups->balances),
        lines_(quotedName(source_.name)),
        sql_(sql) {
    for (const Column& group : kept_.groups) groups_.push_back(quotedName(group.name));
  }

  void write() {
    const std::string ofLine = lines_ + ".";
    sql_ += "(";
    select("velmo_kept");
    sql_ += " FROM " + quotedName(kept_.name) + " AS " + lines_ + " WHERE " + ofLine + apartColumn + " = 0";
    if (source_.groups->openOnly) sql_ += " AND " + openTest(kept_, lines_);
    writeTests();
    sql_ += " UNION ALL ";
    select("velmo_sum_exactly");
    sql_ += " FROM (SELECT " + listed(groups_) + " FROM " + quotedName(kept_.name) + " WHERE " + apartColumn +
            " > 0) AS " + apartName + " CROSS JOIN ";
    const auto isSame = [&](const std::string& group) {
      return ofLine + group + " = +" + std::string(apartName) + "." + group;
    };
    writeLines(quotedName(kept_.lines), listed(formed(groups_, isSame), " AND ") + " AND ");
    sql_ += " UNION ALL ";
    select("velmo_sum_exactly");
    sql_ += " FROM ";
    // Without an end, but a limit: no other index than that of these lines is looked for.
    writeLines("(SELECT * FROM " + quotedName(kept_.lines) + " WHERE " + groupless(kept_, "") + " LIMIT -1)", {});
    sql_ += ")";
  }

 private:
  void select(const std::string& function) {
    sql_ += "SELECT " + listed(formed(groups_, [&](const std::string& group) { return lines_ + "." + group; }));
    for (const std::string& amount : {quotedName(kept_.due), quotedName(kept_.settled)})
      sql_ += ", " + function + "(" + lines_ + "." + amount + ") AS " + amount;
  }

  // The few lines are read first and their documents by key. `chosen` ends with AND.
  void writeLines(const std::string& lines, const std::string& chosen) {
    sql_ += lines + " AS " + lines_ + " CROSS JOIN " + quotedName(kept_.documents) + " AS " + documentsName +
            " WHERE " + chosen + documentsName + "." + quotedName(kept_.key) + " = " + lines_ + "." +
            quotedName(kept_.link) + " AND " + countTest(kept_, documentsName);
    writeTests();
    std::string groups;
    for (const Column& group : kept_.groups)
      groups += (groups.empty() ? "" : ", ") + lines_ + "." + quotedName(group.name) +
                (group.type == ColumnType::Text ? " COLLATE NOCASE" : "");
    sql_ += " GROUP BY " + groups;
  }

  void writeTests() {
    if (source_.groups->tests.empty()) return;
    sql_ += " AND ";
    ExpressionWriter(select_, sql_).all(source_.groups->tests);
  }

  const BoundSelect& select_;
  const BoundSource& source_;
  const KeptBalances& kept_;
  const std::string lines_;
  std::vector<std::string> groups_;
  std::string& sql_;
};

}  // namespace

void writeKeptGroups(const BoundSelect& select, int source, std::string& sql) {
  GroupsWriter(select, source, sql).write();
}

}  // namespace velmo::store::sql
