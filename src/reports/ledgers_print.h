#pragma once

#include "frame/report_period.h"
#include "printing/report.h"

namespace velmo::reports {

enum class EveryLedgerOn { NewPage, SamePage };

struct LedgersSheet {
  std::string period = {};      // "Ledger For The Period ..."
  bool broughtForward = false;  // whether opening balances show
  EveryLedgerOn begins = EveryLedgerOn::SamePage;
};

// The layout `AccLedgerMulti` over the rows of `ParentCmd` with their lines in the chapter `ChildCmd`.
printing::Report ledgersPrint(const session::LoginContext& context, const LedgersSheet& sheet,
                              const store::Recordset& ledgers, text::DateTime today);

}  // namespace velmo::reports
