#include "documents/orders/find_orders.h"
#include "documents/orders/order_paper.h"
#include "documents/orders/order_types.h"
#include "documents/trade/order_days.h"
#include "documents/trade/trade_rules.h"

// Challans and gate passes: goods on their way, with the vehicle that carries them.
namespace velmo::documents {

namespace {

using enum frame::FieldPlace;

// Which papers two references name; the second is not there on a challan, which is itself what others refer to.
struct References {
  std::string_view first;
  std::string_view second = {};
  std::string_view secondOpens = {};  // screen of the documents that the second names
};

std::vector<frame::DocumentField> fields(const References& references) {
  std::vector<frame::DocumentField> all = {
      {.name = "SupplyTime", .column = "Text6", .label = "Supply Time", .place = Head},
      {.name = "D1", .column = "D1", .label = references.first},
      {.name = "D1Dt", .column = "D1Date", .label = "Dated ", .place = Beside}};
  if (!references.second.empty()) {
    all.push_back({.name = "D2", .column = "D2", .label = references.second, .opens = references.secondOpens});
    all.push_back({.name = "D2Dt", .column = "D2Date", .label = "Dated ", .place = Beside});
  }
  all.push_back({.name = "Vehicle", .column = "Text7", .label = "Vehicle"});
  all.push_back({.name = "Driver", .column = "Text8", .label = "Driver", .place = Beside});
  return all;
}

frame::DocumentType gatePaper(frame::DocumentType type, std::string_view partyWords) {
  type.employeeChoice = frame::EmployeeChoice::None;
  type.validation = {partyChosen(partyWords), frame::locationIsListed(), frame::jobIsListedOrBlank()};
  return type;
}

frame::ItemGridKind outwardLines() {
  return {.netCaption = valueExclTax,
          .stockWarning = frame::StockWarning::Shown,
          .serialNumbers = frame::SerialNumbers::Kept};
}

frame::DocumentType deliveryChallan() {
  frame::DocumentType type = gatePaper(orderPaper("DeliveryChallans", "DELIVERY CHALLANS", salePaper(outwardLines())),
                                       "Select a correct customer.");
  type.find = findDC();
  type.fields = fields({.first = "Purchase Order No."});
  type.dateLookups = {saleOrderDay()};
  type.printSettings = "DCSettings";
  return type;
}

frame::DocumentType outwardPass() {
  frame::DocumentType type = gatePaper(orderPaper("GatePassesOut", "OUTWARD GATE PASSES", salePaper(outwardLines())),
                                       "Select a correct customer.");
  type.find = findOGP();
  type.fields =
      fields({.first = "Purchase Order No.", .second = "Delivery Challan No.", .secondOpens = "DeliveryChallans"});
  return type;
}

frame::DocumentType inwardPass() {
  frame::ItemGridKind lines = purchaseLines("StockIn");
  lines.netCaption = valueExclTax;
  frame::DocumentType type = gatePaper(
      orderPaper("GatePassesIn", "INWARD GATE PASSES", purchasePaper(std::move(lines))), "Select a correct vendor.");
  type.find = findIGP();
  type.fields =
      fields({.first = "Delivery Challan No.", .second = "Purchase Order No.", .secondOpens = "PurchaseOrders"});
  type.dateLookups = {purchaseOrderDay()};
  return type;
}

}  // namespace

const frame::DocumentType& deliveryChallanType() {
  static const frame::DocumentType type = deliveryChallan();
  return type;
}

const frame::DocumentType& outwardPassType() {
  static const frame::DocumentType type = outwardPass();
  return type;
}

const frame::DocumentType& inwardPassType() {
  static const frame::DocumentType type = inwardPass();
  return type;
}

}  // namespace velmo::documents
