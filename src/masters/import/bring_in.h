#pragma once

#include <functional>

#include "masters/import/import_kind.h"

namespace velmo::frame {
class MasterDialog;
}

namespace velmo::masters {

// What `ImportBttn` of a dialog does: opens the import over it; true when rows were written.
std::function<bool(frame::MasterDialog&)> bringIn(ImportKind kind);

}  // namespace velmo::masters
