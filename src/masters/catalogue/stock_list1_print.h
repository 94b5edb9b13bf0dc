#pragma once

#include "printing/report.h"
#include "session/login_context.h"
#include "store/recordset/recordset.h"

namespace velmo::masters {

// The layout `StockList1`: the chart of inventory. `rows` are of one of the hierarchies of goods.
printing::Report stockList1Print(const session::LoginContext& context, const store::Recordset& rows,
                                 text::DateTime today);

}  // namespace velmo::masters
