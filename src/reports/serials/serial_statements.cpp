#include "reports/serials/serial_statements.h"

#include "store/recordset/recordset.h"

namespace velmo::reports {
namespace {

constexpr int few = 4000;  // whose documents are looked up and ordered by date in some milliseconds

// Only lines that have serial numbers are read: they have an index of their own, and are few among all.
std::string heldBy(const std::string& serial) {
  return "((StockFlow.ProductSerials) Is Not Null) AND ((StockFlow.ProductSerials) like " +
         store::quoted("%" + serial + "%") + ")";
}

// A table of so many rows at most is made before anything is joined to it.
std::string foundLines(const std::string& serial) {
  return "(SELECT TOP " + std::to_string(few + 1) +
         " StockFlow.TranNo, StockFlow.ItemCode, StockFlow.ItemName, StockFlow.ProductSerials FROM StockFlow WHERE " +
         heldBy(serial) + ")";
}

}  // namespace

SerialHits serialHits(store::Connection& books, const std::string& serial) {
  const store::Recordset found(books, "SELECT Count(*) AS Hits FROM " + foundLines(serial) + " AS StockFlow",
                               store::LockType::ReadOnly);
  return found.integer("Hits") > few ? SerialHits::Many : SerialHits::Few;
}

std::string serialStatement(int fyid, const std::string& serial, SerialHits hits) {
  const std::string lines = hits == SerialHits::Few ? foundLines(serial) + " AS StockFlow" : "StockFlow";
  return "SELECT Transactions.TranNo, Transactions.DocNo, Transactions.TranDate, [Trantype].[short] & ' ' & "
         "[Transactions].[docno] AS TranRefShort, Transactions.TranType, Transactions.Text1, Transactions.Text2, "
         "Transactions.Text3, Transactions.FYID, StockFlow.ItemCode, StockFlow.ItemName, StockFlow.ProductSerials FROM "
         "TranType INNER JOIN (Transactions INNER JOIN " +
         lines +
         " ON Transactions.TranNo = StockFlow.TranNo) ON TranType.TranType = Transactions.TranType WHERE "
         "(((Transactions.FYID)=" +
         std::to_string(fyid) + ") AND " + heldBy(serial) + ") ORDER BY Transactions.TranDate, Transactions.TranNo";
}

}  // namespace velmo::reports
