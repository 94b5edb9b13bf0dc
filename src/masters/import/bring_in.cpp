#include "masters/import/bring_in.h"

#include <memory>

#include "frame/master/master_dialog.h"
#include "masters/import/import_dialog.h"

namespace velmo::masters {

std::function<bool(frame::MasterDialog&)> bringIn(ImportKind kind) {
  return [kind](frame::MasterDialog& dialog) {
    const std::unique_ptr<QDialog> import(makeImport(kind, dialog.workplace(), &dialog));
    return import->exec() == QDialog::Accepted;
  };
}

}  // namespace velmo::masters
