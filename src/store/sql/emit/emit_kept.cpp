#include "store/sql/emit/emitter.h"
#include "store/sqlite/kept_totals.h"

namespace velmo::store::sql {
namespace {

// A name of its own, beside that of the lines, which tests of subjects are written with.
constexpr const char* documentsName = "\"document\"";

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

  // Whole months up to the one in which the last day lies, and the days of that one; where there is a first day, days
  // alone; and the lines that are not added yet, or stand apart.
  void write() {
    sql_ += "(SELECT ";
    writeName(totals_.subject, sql_);
    writeAmounts("velmo_sum_exactly", "");
    sql_ += " FROM (";
    if (!kept_.from.day) writeMonths();
    if (!kept_.from.day && kept_.to.day) sql_ += unionAll;
    if (kept_.from.day || kept_.to.day) writeDays();
    if (totals_.adds == KeptTotals::Adds::Later) writeLines(additionTest(totals_, lines_, Added::NotYet));
    writeLines(apartLines());
    sql_ += ") GROUP BY ";
    writeName(totals_.subject, sql_);
    sql_ += totals_.subjectType == KeptTotals::Subject::Text ? " COLLATE NOCASE)" : ")";
  }

 private:
  static constexpr const char* unionAll = " UNION ALL ";

  std::string apartLines() const {
    const std::string apart = "(" + apartTest(totals_, lines_) + ")";
    return totals_.adds == KeptTotals::Adds::AtOnce ? apart
                                                    : apart + " AND " + additionTest(totals_, lines_, Added::Already);
  }

  void writeAmounts(std::string_view function, const std::string& source) {
    for (const std::string& amount : totals_.amounts) {
      std::string name;
      writeName(amount, name);
      sql_ += ", ";
      sql_ += function;
      sql_ += "(" + source + name + ") AS " + name;
    }
  }

  void writeTotals(const std::string& table) {
    sql_ += " FROM ";
    writeName(table, sql_);
    sql_ += " AS " + lines_ + " WHERE " + column(lines_, totals_.group) + " = " + textOf(kept_.group);
    writeTests();
  }

  void writeTests() {
    if (kept_.tests.empty()) return;
    sql_ += " AND ";
    ExpressionWriter(select_, sql_).all(kept_.tests);
  }

  // They stand in the order of subjects, and so are summed up as they are read.
  void writeMonths() {
    sql_ += "SELECT " + column(lines_, totals_.subject);
    writeAmounts("velmo_sum_kept", lines_ + ".");
    writeTotals(monthsTableOf(totals_));
    if (kept_.to.day) sql_ += " AND " + column(lines_, "Month") + " < " + monthOf(textOf(kept_.to.day));
    sql_ += " GROUP BY " + column(lines_, totals_.subject);
  }

  void writeDays() {
    sql_ += "SELECT " + column(lines_, totals_.subject);
    writeAmounts("velmo_kept", lines_ + ".");
    writeTotals(daysTableOf(totals_));
    const std::string day = column(lines_, totals_.day);
    if (!kept_.from.day) sql_ += " AND " + day + " >= " + monthOf(textOf(kept_.to.day));
    if (!kept_.to.day) sql_ += " AND " + day + " < " + noDay;
    writeEnds(day);
  }

  void writeEnds(const std::string& day) {
    if (kept_.from.day) sql_ += " AND " + day + (kept_.from.included ? " >= " : " > ") + textOf(kept_.from.day);
    if (kept_.to.day) sql_ += " AND " + day + (kept_.to.included ? " <= " : " < ") + textOf(kept_.to.day);
  }

  // The few lines are read first and their documents by key.
  void writeLines(const std::string& chosen) {
    sql_ += unionAll;
    sql_ += "SELECT " + column(lines_, totals_.subject);
    for (const std::string& amount : totals_.amounts) sql_ += ", " + column(lines_, amount);
    sql_ += " FROM ";
    writeName(totals_.lines, sql_);
    sql_ += " AS " + lines_ + " CROSS JOIN ";
    writeName(totals_.documents, sql_);
    sql_ += std::string(" AS ") + documentsName + " WHERE " + chosen + " AND " + column(documentsName, totals_.key) +
            " = " + column(lines_, totals_.link) + " AND " + countTest(totals_, documentsName) + " AND " +
            column(documentsName, totals_.group) + " = " + textOf(kept_.group);
    writeTests();
    writeEnds(column(documentsName, totals_.day));
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
