#include "session/stock_movement.h"

#include <algorithm>

#include "schema/document_kinds.h"

namespace velmo::session {
namespace {

// A raised flag says that the document does not move stock.
struct Movement {
  int number;
  bool inwardPass, bill, outwardPass, challan, invoice;
};

constexpr Movement movements[] = {
    // number, IGPInvLedger, BillInvLedger, OGPInvLedger, DCInvLedger, InvoiceInvLedger
    {11, false, true, false, true, true},  // in by gate passes, out by gate passes
    {12, false, true, true, false, true},  // in by gate passes, out by challans
    {13, false, true, true, true, false},  // in by gate passes, out by invoices
    {21, true, false, false, true, true},  // in by purchases, out by gate passes
    {22, true, false, true, false, true},  // in by purchases, out by challans
    {23, true, false, true, true, false},  // in by purchases, out by invoices
};

}  // namespace

void applyStockMovement(LoginContext& context, const store::Value& stockMovement) {
  const std::int64_t number = store::isNull(stockMovement) ? 0 : store::integerOf(stockMovement);
  const auto* found = std::find_if(std::begin(movements), std::end(movements),
                                   [number](const Movement& movement) { return movement.number == number; });
  const Movement movement = found == std::end(movements) ? Movement{} : *found;
  context.IGPInvLedger = movement.inwardPass;
  context.BillInvLedger = movement.bill;
  context.OGPInvLedger = movement.outwardPass;
  context.DCInvLedger = movement.challan;
  context.InvoiceInvLedger = movement.invoice;
}

bool leavesStock(int tranType, const LoginContext& context) {
  using enum schema::StockRule;
  switch (schema::documentKind(tranType).stock) {
    case NoGoods:
    case Always:
      return false;
    case Never:
      return true;
    case InwardPassSetting:
      return context.IGPInvLedger;
    case BillSetting:
      return context.BillInvLedger;
    case OutwardPassSetting:
      return context.OGPInvLedger;
    case ChallanSetting:
      return context.DCInvLedger;
    case InvoiceSetting:
      return context.InvoiceInvLedger;
  }
  return false;
}

}  // namespace velmo::session
