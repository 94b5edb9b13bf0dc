#pragma once

#include "printing/report.h"
#include "session/login_context.h"
#include "store/recordset/recordset.h"

namespace velmo::masters {

// The layout `JobCardRpt`: one job on one page. `job` has the columns of Jobs; its in charge is named as Employees has
// them, also when they have left.
printing::Report jobCardPrint(session::LoginContext& context, const store::Recordset& job, text::DateTime today);

}  // namespace velmo::masters
