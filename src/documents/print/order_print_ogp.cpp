#include "documents/print/order_prints.h"

namespace velmo::documents {

const OrderPrint& outwardGatePassPrint() {
  static const OrderPrint print{.title = "Outward Gate Pass",
                                .heading = "OUTWARD GATE PASS",
                                .number = "Gate Pass No.",
                                .references = {{"d1txt", "Purchase Order No.", "D1"},
                                               {"d1dttxt", "Dated", "D1Date"},
                                               {"d2txt", "Delivery Challan No.", "D2"},
                                               {"d2dttxt", "Dated", "D2Date"}},
                                .across = transport(),
                                .notes = {remarks()},
                                .signatures = {"Checked Out By", "Authorised Signature"}};
  return print;
}

void printOutwardGatePass(session::Workplace& workplace, const frame::DocumentValues& onScreen, QWidget* screen) {
  showOrder(outwardGatePassPrint(), workplace, onScreen, screen);
}

}  // namespace velmo::documents
