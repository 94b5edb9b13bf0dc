#include "documents/print/order_prints.h"
#include "session/own_letterhead.h"

namespace velmo::documents {

const OrderPrint& deliveryChallanPrint() {
  static const OrderPrint print{
      .title = "Delivery Challan",
      .heading = "DELIVERY CHALLAN",
      .number = "Delivery Challan No.",
      .references = {{"d1txt", "Purchase Order No.", "D1"}, {"d1dttxt", "Dated", "D1Date"}},
      .across = transport(),
      .signatures = {"Received By", "Authorised Signature"},
      .letterhead =
          LetterheadSetting{&session::LoginContext::dcf, session::on_letterhead::order, &session::LoginContext::dctm}};
  return print;
}

void printDeliveryChallan(session::Workplace& workplace, const frame::DocumentValues& onScreen, QWidget* screen) {
  showOrder(deliveryChallanPrint(), workplace, onScreen, screen);
}

}  // namespace velmo::documents
