#include "schema/company_checks.h"

#include "schema/document_kinds.h"
#include "store/checks/soundness.h"
#include "store/recordset/forward_reader.h"

namespace velmo::schema {
namespace {

constexpr const char* halfCent = "0.005";

std::string typesWithoutPromise() {
  std::string types;
  for (const DocumentKind& kind : documentKinds())
    if (kind.ledger == Ledger::None) types += (types.empty() ? "" : ", ") + std::to_string(kind.tranType);
  return types;
}

std::vector<store::Finding> documentFaults(store::Connection& snapshot) {
  std::vector<store::Finding> faults;
  store::ForwardReader documents(snapshot, unbalancedDocuments());
  const int key = documents.field("TranNo");
  const int name = documents.field("TranRefShort");
  const int cancelled = documents.field("Cancel");
  while (documents.next())
    faults.push_back({.kind = store::Finding::Kind::Document,
                      .words = std::string(documents.text(name)),
                      .document = documents.integer(key),
                      .cancelled = documents.integer(cancelled) != 0});
  return faults;
}

}  // namespace

std::vector<store::IdleCheck> companyChecks() {
  return {{"the structure of the file", store::structureFaults},
          {"the relations between its tables", store::relationFaults},
          {"its kept totals", store::totalFaults},
          {"the balance of its documents", documentFaults}};
}

std::vector<store::IdleCheck> startChecks() {
  return {{"the structure of the file", store::pageFaults}, {"its kept totals", store::totalSumFaults}};
}

std::string unbalancedDocuments() {
  const std::string debits = "Sum(IIf(IsNull(SubTransactions.Debit),0,SubTransactions.Debit))";
  const std::string credits = "Sum(IIf(IsNull(SubTransactions.Credit),0,SubTransactions.Credit))";
  const std::string documents =
      "Transactions.TranNo, Transactions.TranType, Transactions.TranDate, Transactions.DocNo, Transactions.FYID, "
      "Transactions.Cancel, TranType.[short]";
  return "SELECT " + documents + ", [TranType].[short] & ' ' & [Transactions].[docno] AS TranRefShort, " +
         "IIf(Transactions.Cancel, 'Cancelled', '') AS State, " + debits + " AS Debits, " + credits +
         " AS Credits, [Debits]-[Credits] AS Difference FROM (Transactions INNER JOIN SubTransactions ON "
         "Transactions.TranNo = SubTransactions.TranNo) LEFT JOIN TranType ON Transactions.TranType = "
         "TranType.TranType WHERE Transactions.TranType Not In (" +
         typesWithoutPromise() + ") GROUP BY " + documents + " HAVING Abs(" + debits + "-" + credits +
         ")>=" + halfCent + " ORDER BY Transactions.Cancel DESC, Transactions.TranDate, Transactions.TranNo";
}

}  // namespace velmo::schema
