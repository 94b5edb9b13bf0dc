#include "frame/posting/party_balance.h"

#include "store/recordset/recordset.h"

namespace velmo::frame {

PartyBalance partyBalance(store::Connection& connection, std::int64_t accCode, int fyid) {
  const store::Recordset found(
      connection,
      "SELECT SubTransactions.AccCode, Sum(IIf(IsNull([debit]),0,[debit])) AS Debits, "
      "Sum(IIf(IsNull([credit]),0,[credit])) AS Credits, [Debits]-[Credits] AS Dif, "
      "IIf([Dif]>0,Format(Abs([Dif]),'Fixed') & ' Dr',Format(Abs([Dif]),'Fixed') & ' Cr') AS PBalance "
      "FROM Transactions INNER JOIN SubTransactions ON Transactions.TranNo = SubTransactions.TranNo "
      "GROUP BY SubTransactions.AccCode, Transactions.Cancel, Transactions.FYID "
      "HAVING (((SubTransactions.AccCode)=" +
          std::to_string(accCode) +
          ") AND ((Transactions.Cancel)=No) AND ((Transactions.FYID)=" + std::to_string(fyid) + "))",
      store::LockType::ReadOnly);
  if (found.isEmpty()) return {};
  return {.shown = found.text("pbalance"), .amount = found.number("dif")};
}

}  // namespace velmo::frame
