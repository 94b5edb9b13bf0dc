#include "vouchers/settlement/pending_items.h"

#include <vector>

namespace velmo::vouchers {

namespace {

// An amount of the aging table and the name of its sum.
struct Sum {
  std::string_view column;
  std::string_view name;
};

const std::vector<Sum> balanceOnly = {{"TrAmount", "TrAmounts"}, {"TotPayment", "Payments"}};
const std::vector<Sum> everyColumn = {{"TrAmount", "TrAmounts"},    {"Return", "Returns"}, {"Payment", "Payments"},
                                      {"WHTax", "WHTaxs"},          {"AdvAdj", "AdvAdjs"}, {"Discount", "Discounts"},
                                      {"TotPayment", "TotPayments"}};

// What tells one item from another, and the types of the documents that open one.
struct OpenItems {
  std::string table;
  std::string key;
  std::vector<std::string_view> group;
  std::vector<int> types;
};

OpenItems openItems(const SettlementKind& kind) {
  using namespace schema::tran_type;
  if (isReceipt(kind))
    return {"AgingDr",
            std::string(keyColumn(kind)),
            {"DocNo", "TranDate", "PartyCode", "FYID"},
            {OpeningBalance, SalesTaxInvoice, SaleInvoice}};
  return {"AgingCr",
          std::string(keyColumn(kind)),
          {"DocNo", "VendorInvNo", "TranDate", "PartyCode", "FYID"},
          {OpeningBalance, SalesTaxPurchase, PurchaseBill}};
}

// The balance of every item of the year: `SubAging`.
std::string balances(const OpenItems& items, const std::vector<Sum>& sums, const std::string& fyid) {
  const std::string table = items.table + ".";
  std::string group;
  for (const std::string_view column : items.group) group += (group.empty() ? "" : ", ") + table + std::string(column);
  std::string columns = group;
  for (const Sum& sum : sums) columns += ", Sum(" + table + std::string(sum.column) + ") AS " + std::string(sum.name);
  return "(SELECT " + columns + ", [TrAmounts]-[" + std::string(sums.back().name) +
         "] AS BalAmt FROM Transactions INNER JOIN " + items.table + " ON Transactions.TranNo = " + table +
         "TranNo WHERE (((Transactions.Cancel)=No)) GROUP BY " + group + " HAVING (" + table + "FYID=" + fyid +
         ")) AS SubAging";
}

std::string statement(const SettlementKind& kind, const std::vector<Sum>& sums, const std::string& shownSums,
                      std::int64_t partyCode, int fyid) {
  const OpenItems items = openItems(kind);
  const std::string table = items.table + ".";
  const std::string year = std::to_string(fyid);
  const auto matches = [&](const std::string& column) { return "(" + table + column + " = SubAging." + column + ")"; };
  std::string columns = table + "TranNo";
  for (const std::string_view column : items.group)
    if (column != "FYID") columns += ", " + table + std::string(column);
  std::string types;
  for (const int type : items.types)
    types += (types.empty() ? "(" : " Or (") + table + "TranType) = " + std::to_string(type);
  return "SELECT " + columns + shownSums + ", SubAging.BalAmt FROM Transactions INNER JOIN (" + items.table +
         " INNER JOIN " + balances(items, sums, year) + " ON " + matches("PartyCode") + " AND " + matches("TranDate") +
         " AND " + matches(items.key) + ") ON Transactions.TranNo = " + table + "TranNo Where (((" + table +
         "PartyCode) = " + std::to_string(partyCode) + ") And ((SubAging.BalAmt) > 0) And (" + types + ") And ((" +
         table + "FYID) = " + year + ") And ((Transactions.Cancel) = No)) ORDER BY " + table + "TranDate, " + table +
         items.key;
}

}  // namespace

std::string pendingStatement(const SettlementKind& kind, std::int64_t partyCode, int fyid) {
  return statement(kind, balanceOnly, ", SubAging.TrAmounts", partyCode, fyid);
}

std::string pendingListStatement(const SettlementKind& kind, std::int64_t partyCode, int fyid) {
  std::string shownSums;
  for (const Sum& sum : everyColumn) shownSums += ", SubAging." + std::string(sum.name);
  return statement(kind, everyColumn, shownSums, partyCode, fyid);
}

PendingItem pendingItem(const SettlementKind& kind, const store::Recordset& pending) {
  return {.key = pending.text(keyColumn(kind)),
          .docNo = pending.integer("DocNo"),
          .tranDate = pending.date("TranDate"),
          .partyCode = pending.integer("PartyCode"),
          .balance = pending.number("BalAmt")};
}

}  // namespace velmo::vouchers
