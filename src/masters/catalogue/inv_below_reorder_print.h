#pragma once

#include <string>

#include "printing/report.h"
#include "session/login_context.h"
#include "store/recordset/recordset.h"

namespace velmo::masters {

// Which items stand below their re-order level.
enum class ReorderChoice {
  All,
  NonZero,  // those that have a re-order level
};

// The goods whose stock in the year is at or below their re-order level. An item that never moved is not among them.
std::string belowReorderStatement(int fyid, ReorderChoice choice);

// The categories with these items in the chapter `Level3`.
std::string belowReorderHierarchy(int fyid, ReorderChoice choice);

// The layout `InvBelowReorderRep`: the items under their categories, without the categories that have none.
printing::Report invBelowReorderPrint(const session::LoginContext& context, const store::Recordset& rows,
                                      text::DateTime today);

}  // namespace velmo::masters
