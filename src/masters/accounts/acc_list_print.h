#pragma once

#include <cstdint>
#include <string>

#include "printing/report.h"
#include "session/login_context.h"
#include "store/recordset/recordset.h"

namespace velmo::masters {

// The hierarchies behind the print-out: types, their sub types in the chapter `level2`, the accounts of these in
// `level3`.
std::string wholeChartOfAccounts();
std::string accountsOfType(std::int64_t typeId);
std::string accountsOfSubType(std::int64_t typeId, std::int64_t level2Id);

// The layout `AccList`: the chart of accounts, or a part of it, under its types and sub types.
printing::Report accListPrint(const session::LoginContext& context, const store::Recordset& rows, text::DateTime today);

}  // namespace velmo::masters
