#pragma once

#include <QDialog>

#include "masters/import/import_kind.h"
#include "session/workplace.h"

namespace velmo::masters {

// A modal dialog that brings accounts, customers, vendors or items in from a spreadsheet: the file, which column is
// what, and a dry run that shows what would be made and every problem beside its row. exec() gives QDialog::Accepted
// when rows were written; the caller then reads its lists again. Its name is that of the descriptor, "ImportItems".
QDialog* makeImport(ImportKind kind, session::Workplace& workplace, QWidget* parent);

}  // namespace velmo::masters
