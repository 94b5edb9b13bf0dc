#include "documents/print/order_prints.h"

namespace velmo::documents {

const OrderPrint& saleOrderPrint() {
  static const OrderPrint print{.title = "Sale Order",
                                .heading = "SALE ORDER",
                                .number = "Order No.",
                                .references = {{"d1txt", "Customer Order Ref.", "D1"}, {"d1dttxt", "Dated", "D1Date"}}};
  return print;
}

void printSaleOrder(session::Workplace& workplace, const frame::DocumentValues& onScreen, QWidget* screen) {
  showOrder(saleOrderPrint(), workplace, onScreen, screen);
}

}  // namespace velmo::documents
