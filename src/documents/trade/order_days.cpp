#include "documents/trade/order_days.h"

#include "schema/document_kinds.h"
#include "store/connection/connection.h"
#include "text/number.h"

namespace velmo::documents {

namespace {

std::string behind(int tranType, int fyid) {
  return " and trantype=" + std::to_string(tranType) + " and fyid = " + std::to_string(fyid) + " and cancel = No";
}

// The customer's order reference on a sale order of the year.
std::string saleOrderStatement(const std::string& reference, int fyid) {
  if (reference.empty()) return {};
  return "Select trandate, d1 from transactions where d1 like " + store::quoted(reference) +
         behind(schema::tran_type::SaleOrder, fyid);
}

std::string purchaseOrderStatement(const std::string& number, int fyid) {
  const std::optional<double> docNo = text::numberFrom(number);
  if (!docNo) return {};
  return "Select trandate, docno from transactions where docno = " + text::numberText(*docNo) +
         behind(schema::tran_type::PurchaseOrder, fyid);
}

}  // namespace

frame::DateLookup saleOrderDay() {
  return {.from = "D1", .to = "D1Dt", .statement = saleOrderStatement};
}

frame::DateLookup purchaseOrderDay() {
  return {.from = "D2", .to = "D2Dt", .statement = purchaseOrderStatement};
}

}  // namespace velmo::documents
