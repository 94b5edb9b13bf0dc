#include "store/kept_totals.h"
#include "store/sql/emitter.h"

namespace velmo::store::sql {
namespace {

class KeptWriter {
 public:
  KeptWriter(const KeptRange& kept, const BoundSelect& select, std::string& sql)
      : kept_(kept), select_(select), sql_(sql) {}

  // Whole months up to the one in which the last day lies, and the days of that one; where there is a first day, days
  // alone.
  void write() {
    sql_ += "(SELECT ";
    writeName(kept_.totals->subject, sql_);
    sql_ += " AS ";
    writeName(kept_.subject, sql_);
    for (std::size_t i = 0; i < kept_.amounts.size(); ++i) {
      if (kept_.amounts[i].empty()) continue;
      sql_ += ", sum(";
      writeName(kept_.totals->amounts[i], sql_);
      sql_ += ") AS ";
      writeName(kept_.amounts[i], sql_);
    }
    sql_ += " FROM (";
    if (!kept_.from.day) writeMonths();
    if (!kept_.from.day && kept_.to.day) sql_ += " UNION ALL ";
    if (kept_.from.day || kept_.to.day) writeDays();
    sql_ += ") GROUP BY 1)";
  }

 private:
  void writeRows(const std::string& table) {
    sql_ += "SELECT ";
    writeName(kept_.totals->subject, sql_);
    for (std::size_t i = 0; i < kept_.amounts.size(); ++i) {
      if (kept_.amounts[i].empty()) continue;
      sql_ += ", ";
      writeName(kept_.totals->amounts[i], sql_);
    }
    sql_ += " FROM ";
    writeName(table, sql_);
    sql_ += " WHERE ";
    writeName(kept_.totals->group, sql_);
    sql_ += " = " + textOf(kept_.group);
  }

  void writeMonths() {
    writeRows(monthsTableOf(*kept_.totals));
    if (kept_.to.day) sql_ += " AND \"Month\" < " + monthOf(textOf(kept_.to.day));
  }

  void writeDays() {
    writeRows(daysTableOf(*kept_.totals));
    if (!kept_.from.day)
      writeEnd(" >= ", monthOf(textOf(kept_.to.day)));
    else
      writeEnd(kept_.from.included ? " >= " : " > ", textOf(kept_.from.day));
    if (kept_.to.day)
      writeEnd(kept_.to.included ? " <= " : " < ", textOf(kept_.to.day));
    else
      writeEnd(" < ", noDay);
  }

  void writeEnd(std::string_view comparison, std::string_view day) {
    sql_ += " AND ";
    writeName(kept_.totals->day, sql_);
    sql_ += comparison;
    sql_ += day;
  }

  std::string textOf(const BoundPtr& literal) const {
    std::string text;
    ExpressionWriter(select_, text).value(*literal);
    return text;
  }

  const KeptRange& kept_;
  const BoundSelect& select_;
  std::string& sql_;
};

}  // namespace

void writeKept(const KeptRange& kept, const BoundSelect& select, std::string& sql) {
  KeptWriter(kept, select, sql).write();
}

}  // namespace velmo::store::sql
