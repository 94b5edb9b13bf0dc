#include "documents/print/order_prints.h"
#include "session/own_letterhead.h"

namespace velmo::documents {

const OrderPrint& purchaseOrderPrint() {
  static const OrderPrint print{
      .title = "Purchase Order",
      .heading = "PURCHASE ORDER",
      .number = "Purchase Order No.",
      .party = "Vendor",
      .quantity = "stockin",
      .references = {{"d1dttxt", "Delivery Date", "D1Date"}},
      .notes = {{"termslbl", "Terms & Conditions", "Text8"}},
      .standingTerms = PaperField{"standinglbl", "Terms & Conditions", "TermsPO"},
      .letterhead =
          LetterheadSetting{&session::LoginContext::pof, session::on_letterhead::order, &session::LoginContext::potm}};
  return print;
}

void printPurchaseOrder(session::Workplace& workplace, const frame::DocumentValues& onScreen, QWidget* screen) {
  showOrder(purchaseOrderPrint(), workplace, onScreen, screen);
}

}  // namespace velmo::documents
