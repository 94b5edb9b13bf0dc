#include "frame/posting/posted_accounts.h"

#include <set>

namespace velmo::frame {

namespace {

store::StoreError unknownAccount(std::int64_t code) {
  return {store::ErrorKind::Failed, "Account " + std::to_string(code) +
                                        " is not in the chart of accounts. It may have been deleted since it was "
                                        "chosen; choose another one and save again."};
}

}  // namespace

void demandAccounts(store::Connection& connection, const std::vector<LedgerLine>& lines) {
  std::set<std::int64_t> codes;
  for (const LedgerLine& line : lines) codes.insert(line.accCode);
  for (const std::int64_t code : codes)
    if (store::Recordset(connection, "select acccode from acclevel3 where acccode=" + std::to_string(code),
                         store::LockType::ReadOnly)
            .isEmpty())
      throw unknownAccount(code);
}

void demandAccounts(store::Connection& connection, std::int64_t tranNo) {
  const store::Recordset unknown(
      connection,
      "select subtransactions.acccode from subtransactions left join acclevel3 on subtransactions.acccode = "
      "acclevel3.acccode where subtransactions.tranno=" +
          std::to_string(tranNo) + " and acclevel3.acccode is null",
      store::LockType::ReadOnly);
  if (!unknown.isEmpty()) throw unknownAccount(unknown.integer("acccode"));
}

}  // namespace velmo::frame
