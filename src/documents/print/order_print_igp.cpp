#include "documents/print/order_prints.h"

namespace velmo::documents {

const OrderPrint& inwardGatePassPrint() {
  static const OrderPrint print{.title = "Inward Gate Pass",
                                .heading = "INWARD GATE PASS",
                                .number = "Gate Pass No.",
                                .party = "Vendor",
                                .quantity = "stockin",
                                .references = {{"d2txt", "Purchase Order No.", "D2"},
                                               {"d2dttxt", "Dated", "D2Date"},
                                               {"d1txt", "Delivery Challan No.", "D1"},
                                               {"d1dttxt", "Dated", "D1Date"}},
                                .across = transport(),
                                .notes = {remarks()},
                                .signatures = {"Received By", "Authorised Signature"}};
  return print;
}

void printInwardGatePass(session::Workplace& workplace, const frame::DocumentValues& onScreen, QWidget* screen) {
  showOrder(inwardGatePassPrint(), workplace, onScreen, screen);
}

}  // namespace velmo::documents
