#pragma once

#include "frame/report/report_period.h"
#include "printing/report.h"
#include "reports/ledgers/ledgers_data.h"

namespace velmo::reports {

enum class EveryLedgerOn { NewPage, SamePage };

struct LedgersSheet {
  std::string period = {};      // "Ledger For The Period ..."
  bool broughtForward = false;  // whether opening balances show
  EveryLedgerOn begins = EveryLedgerOn::SamePage;
};

// The layout `AccLedgerMulti`.
printing::Report ledgersPrint(const session::LoginContext& context, const LedgersSheet& sheet,
                              std::shared_ptr<const LedgersData> ledgers, text::DateTime today);

}  // namespace velmo::reports
