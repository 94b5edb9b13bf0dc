#pragma once

#include <QDialog>

#include "masters/import/import_plan.h"
#include "session/workplace.h"

namespace velmo::masters {

// A modal dialog that brings accounts, customers, vendors or items in from a spreadsheet: the file, which column is
// what, and a dry run that shows what would be made and every problem beside its row. exec() gives QDialog::Accepted
// when rows were written; the caller then reads its lists again. Its name is that of the descriptor, "ImportItems".
QDialog* makeImport(ImportKind kind, session::Workplace& workplace, QWidget* parent);

// The same of rows that the books have no place for: `take` gets the plan instead of the file; false when it did not
// take it.
using TakePlan = std::function<bool(const ImportPlan& plan, const ImportProgress& progress)>;
QDialog* makeImport(ImportKind kind, session::Workplace& workplace, QWidget* parent, TakePlan take);

}  // namespace velmo::masters
