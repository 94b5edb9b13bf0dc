#pragma once

#include "printing/report.h"
#include "session/login_context.h"
#include "store/recordset/recordset.h"

namespace velmo::masters {

// The layout `StockList3`: the items of a brand. `rows` are of itemsOfBrand().
printing::Report stockList3Print(const session::LoginContext& context, const store::Recordset& rows,
                                 text::DateTime today);

}  // namespace velmo::masters
