#include "masters/import/read_counts.h"

#include <memory>

#include "masters/import/import_dialog.h"

namespace velmo::masters {

std::map<std::string, double> readCounts(session::Workplace& workplace, QWidget* parent) {
  std::map<std::string, double> counts;
  const std::unique_ptr<QDialog> import(
      makeImport(ImportKind::Counts, workplace, parent, [&counts](const ImportPlan& plan, const ImportProgress&) {
        for (const PlannedRow& row : plan.rows)
          if (row.problem.empty()) counts[row.code] = store::numberOf(row.values[1]);
        return true;
      }));
  import->exec();
  return counts;
}

}  // namespace velmo::masters
