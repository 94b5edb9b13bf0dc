#pragma once

#include "printing/report.h"
#include "session/login_context.h"
#include "store/recordset/recordset.h"

namespace velmo::masters {

// The layout `StockList4`: services. `rows` are of one of the hierarchies of services.
printing::Report stockList4Print(const session::LoginContext& context, const store::Recordset& rows,
                                 text::DateTime today);

}  // namespace velmo::masters
