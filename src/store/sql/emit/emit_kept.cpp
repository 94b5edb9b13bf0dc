#include <functional>

#include "store/sql/emit/emitter.h"
#include "store/sqlite/kept_totals.h"

namespace velmo::store::sql {
namespace {

// A name of its own, beside that of the lines, which tests of subjects are written with.
constexpr const char* documentsName = "\"document\"";

constexpr const char* besideName = "\"beside\"";
constexpr const char* unionAll = " UNION ALL ";

constexpr const char* fewMonths = "4";  // whose days are read faster than all months of a group

class KeptWriter {
 public:
  KeptWriter(const BoundSelect& select, int source, std::string& sql)
      : select_(select),
        source_(select.sources[static_cast<std::size_t>(source)]),
        kept_(*source_.kept),
        totals_(*kept_.totals),
        sql_(sql) {
    writeName(source_.name, lines_);
  }

  // Where there is a first day, days, and where many months lie between its month and that of the last day, those.
  // Otherwise whole groups, and whole months up to the one in which the last
  // day lies with the days of that one; or, when that is the latest month of the group, the whole group without the
  // days behind the last one. Beside them what is pending, and the lines that are not added yet, or stand apart.
  void write() {
    if (!readsYears()) {
      sql_ += "(";
      writeGroups([this] { writeBeside(); });
      sql_ += ")";
      return;
    }
    // Mostly nothing is beside whole groups, which stand in the order of subjects: they need no sorting then.
    const std::string subject = column(lines_, totals_.subject);
    const std::string named = nameOf(totals_.subject);
    const std::string ofBeside = " IN (SELECT " + named + " FROM " + besideName + " WHERE " + named + " IS NOT NULL)";
    sql_ += std::string("(WITH ") + besideName + " AS MATERIALIZED (";
    writeBeside();
    sql_ += ") ";
    writeYears(" AND " + subject + " NOT" + ofBeside, false);
    writeGroups([&] {
      writeYears(" AND " + subject + ofBeside, true);
      sql_ += std::string("SELECT * FROM ") + besideName;
    });
    sql_ += ")";
  }

 private:
  // A select from one of the tables of totals.
  struct Part {
    std::string table;
    std::string condition = {};  // without which nothing of the group is read
    const char* sign = "";
    bool grouped = false;     // by subject, and by kind where it is told
    bool countsLines = true;  // where it matters whether any are left
    bool isWhole = false;     // nothing is added to it any more
  };

  bool isAddedLater() const { return totals_.adds == KeptTotals::Adds::Later; }
  bool readsYears() const { return isAddedLater() && !kept_.from.day; }

  // Sums of what `parts` writes, where any lines are left.
  void writeGroups(const std::function<void()>& parts) {
    const std::string subject = nameOf(totals_.subject);
    sql_ += "SELECT " + subject + toldKind("") + ", sum(Lines) AS Lines";
    for (const std::string& amount : totals_.amounts) {
      const std::string sum = "velmo_sum_exactly(" + nameOf(amount) + ")";
      sql_ += ", " + (totals_.tellsNulls() ? "iif(sum(" + givenOf(amount, "") + ") > 0, " + sum + ", NULL)" : sum) +
              " AS " + nameOf(amount);
    }
    sql_ += " FROM (";
    parts();
    sql_ += ") GROUP BY " + subject;
    if (totals_.subjectType == KeptTotals::Subject::Text) sql_ += " COLLATE NOCASE";
    sql_ += toldKind("") + " HAVING sum(Lines) > 0";
  }

  // All but whole groups.
  void writeBeside() {
    if (kept_.from.day) {
      writeFromDay();
    } else if (kept_.to.day) {
      writeUpToDay();
    } else if (!isAddedLater()) {
      writeMonths({});
    }
    writePending();
    if (isAddedLater()) writeLines(besideTest());
    writeLines(apartLines());
  }

  // Months stand in the order of subjects: all of a group are read to find some.
  void writeFromDay() {
    const std::string first = monthOf(textOf(kept_.from.day));
    const std::string last = kept_.to.day ? monthOf(textOf(kept_.to.day)) : monthOf(edgeDay(" DESC"));
    const std::string far = "iif(" + monthNumber(last) + " - " + monthNumber(first) + " > " + fewMonths + ", 1, 0)";
    writeTotals({.table = daysTableOf(totals_), .condition = "NOT " + far});
    writeRange(column(lines_, totals_.day));
    sql_ += unionAll;
    const auto outside = [&](const std::string& test) {
      writeTotals({.table = daysTableOf(totals_), .condition = far});
      sql_ += " AND " + column(lines_, totals_.day) + test;
      writeRange(column(lines_, totals_.day));
      sql_ += unionAll;
    };
    outside(" < " + first + " || " + noDay);
    outside(" >= " + last);
    writeTotals({.table = monthsTableOf(totals_), .condition = far, .grouped = true});
    const std::string month = column(lines_, "Month");
    sql_ += " AND " + month + " > " + first + " AND " + month + " < " + last;
    writeGroupBy();
    sql_ += unionAll;
  }
  static std::string monthNumber(const std::string& month) {
    return "(substr(" + month + ", 1, 4) * 12 + substr(" + month + ", 6, 2))";
  }

  void writeUpToDay() {
    if (isAddedLater()) {
      writeTotals({.table = daysTableOf(totals_), .condition = isLate(), .sign = "-"});
      sql_ += " AND " + column(lines_, totals_.day) + (kept_.to.included ? " > " : " >= ") + textOf(kept_.to.day) +
              unionAll;
    }
    const std::string whenEarly = isAddedLater() ? "NOT " + isLate() : std::string();
    writeMonths(whenEarly);
    writeDays({.table = daysTableOf(totals_), .condition = whenEarly});
  }

  void writeYears(const std::string& chosen, bool countsLines) {
    const bool grouped = (!totals_.kind.empty() && !totals_.tellsNulls()) || !totals_.place.empty();
    writeTotals({.table = yearsTableOf(totals_),
                 .condition = kept_.to.day ? isLate() : "",
                 .grouped = grouped,
                 .countsLines = countsLines,
                 .isWhole = !countsLines});
    sql_ += chosen;
    if (grouped) writeGroupBy();
    sql_ += unionAll;
  }

  // Whether the last day lies in the latest month of the group, or behind it; of a group without days as well.
  std::string isLate() const {
    return "iif(" + monthOf(textOf(kept_.to.day)) + " < " + monthOf(edgeDay(" DESC")) + ", 0, 1)";
  }

  // The first day of the group, or the last one.
  std::string edgeDay(const std::string& order) const {
    const std::string table = '"' + daysTableOf(totals_) + '"';
    const std::string day = column(table, totals_.day);
    return "(SELECT " + day + " FROM " + table + " WHERE " + column(table, totals_.group) + " = " +
           textOf(kept_.group) + " AND " + day + " < " + noDay + " ORDER BY " + day + order + " LIMIT 1)";
  }

  std::string besideTest() const {
    const std::string test = additionTest(totals_, lines_, Added::NotYet);
    return totals_.counted.empty() ? test : test + " AND " + passedOverTest(totals_, lines_);
  }

  std::string apartLines() const {
    const std::string apart = apartTest(totals_, lines_);
    return isAddedLater() ? apart + " AND " + additionTest(totals_, lines_, Added::Already) : apart;
  }

  void writeAmounts(const Part& part) {
    const std::string source = part.sign + lines_ + ".";
    for (const std::string& amount : totals_.amounts) {
      const std::string sum =
          std::string(part.grouped ? "velmo_sum_kept" : "velmo_kept") + "(" + source + nameOf(amount) + ")";
      const std::string given = totals_.tellsNulls() ? givenOf(amount, source) : std::string();
      sql_ += ", " + (part.isWhole && !given.empty() ? "iif(" + given + " > 0, " + sum + ", NULL)" : sum) + " AS " +
              nameOf(amount);
      if (!given.empty() && !part.isWhole)
        sql_ += ", " + (part.grouped ? "sum(" + given + ")" : given) + " AS " + givenOf(amount, "");
    }
  }
  static std::string givenOf(const std::string& amount, const std::string& source) {
    return source + nameOf(givenColumnOf(amount));
  }
  std::string toldKind(const std::string& source) const {
    return totals_.tellsNulls() ? ", " + source + nameOf(totals_.kind) : std::string();
  }
  void writeGroupBy() { sql_ += " GROUP BY " + column(lines_, totals_.subject) + toldKind(lines_ + "."); }

  // What months hold stands in the order of subjects, and so is summed up as it is read.
  void writeTotals(const Part& part) {
    const std::string count = lines_ + ".Lines";
    sql_ += "SELECT " + column(lines_, totals_.subject) + toldKind(lines_ + ".") + ", " +
            (!part.countsLines ? "1"
             : part.grouped    ? "sum(" + count + ")"
                               : part.sign + count) +
            " AS Lines";
    writeAmounts(part);
    sql_ += " FROM ";
    writeName(part.table, sql_);
    sql_ += " AS " + lines_ + " WHERE " + column(lines_, totals_.group) + " = ";
    const std::string group = textOf(kept_.group);
    sql_ += part.condition.empty() ? group : "iif(" + part.condition + ", " + group + ", NULL)";
    writeKinds(lines_);
    writeTests();
  }

  void writeKinds(const std::string& source) {
    if (kept_.kinds.empty()) return;
    sql_ += " AND " + column(source, totals_.kind) + " IN (";
    for (const BoundPtr& kind : kept_.kinds) sql_ += (kind == kept_.kinds.front() ? "" : ", ") + textOf(kind);
    sql_ += ")";
  }

  void writeTests() {
    if (kept_.tests.empty()) return;
    sql_ += " AND ";
    ExpressionWriter(select_, sql_).all(kept_.tests);
  }

  // `condition` where there is a last day.
  void writeMonths(std::string condition) {
    const std::string last = kept_.to.day ? monthOf(textOf(kept_.to.day)) : std::string();
    if (kept_.to.day) condition += (condition.empty() ? "" : " AND ") + last + " > " + monthOf(edgeDay(""));
    writeTotals({.table = monthsTableOf(totals_), .condition = std::move(condition), .grouped = true});
    if (kept_.to.day) sql_ += " AND " + column(lines_, "Month") + " < " + last;
    writeGroupBy();
    sql_ += unionAll;
  }

  void writeDays(const Part& part) {
    writeTotals(part);
    const std::string day = column(lines_, totals_.day);
    if (!kept_.from.day) sql_ += " AND " + day + " >= " + monthOf(textOf(kept_.to.day));
    writeRange(day);
    sql_ += unionAll;
  }

  void writePending() {
    writeTotals({.table = pendingTableOf(totals_)});
    writeRange(column(lines_, totals_.day));
  }

  void writeRange(const std::string& day) {
    if (kept_.from.day && !kept_.to.day) sql_ += " AND " + day + " < " + noDay;
    writeEnds(day);
  }

  void writeEnds(const std::string& day) {
    if (kept_.from.day) sql_ += " AND " + day + (kept_.from.included ? " >= " : " > ") + textOf(kept_.from.day);
    if (kept_.to.day) sql_ += " AND " + day + (kept_.to.included ? " <= " : " < ") + textOf(kept_.to.day);
  }

  // The few lines are read first and their documents by key.
  void writeLines(const std::string& chosen) {
    sql_ += unionAll;
    sql_ += "SELECT " + column(lines_, totals_.subject) + toldKind(std::string(documentsName) + ".") + ", 1";
    for (const std::string& amount : totals_.amounts) {
      sql_ += ", " + column(lines_, amount);
      if (totals_.tellsNulls()) sql_ += ", (" + column(lines_, amount) + " IS NOT NULL)";
    }
    sql_ += " FROM ";
    writeName(totals_.lines, sql_);
    sql_ += " AS " + lines_ + " CROSS JOIN ";
    writeName(totals_.documents, sql_);
    sql_ += std::string(" AS ") + documentsName + " WHERE " + chosen;
    sql_ += " AND " + column(documentsName, totals_.key) + " = " + column(lines_, totals_.link) + " AND " +
            countTest(totals_, documentsName) + " AND " + column(documentsName, totals_.group) + " = " +
            textOf(kept_.group);
    writeKinds(documentsName);
    writeTests();
    writeEnds(column(documentsName, totals_.day));
  }

  static std::string nameOf(std::string_view name) {
    std::string text;
    writeName(name, text);
    return text;
  }
  static std::string column(const std::string& source, std::string_view name) {
    std::string text = source + ".";
    writeName(name, text);
    return text;
  }

  std::string textOf(const BoundPtr& literal) const {
    std::string text;
    ExpressionWriter(select_, text).value(*literal);
    return text;
  }

  const BoundSelect& select_;
  const BoundSource& source_;
  const KeptRange& kept_;
  const KeptTotals& totals_;
  std::string lines_;
  std::string& sql_;
};

}  // namespace

void writeKept(const BoundSelect& select, int source, std::string& sql) {
  KeptWriter(select, source, sql).write();
}

}  // namespace velmo::store::sql
