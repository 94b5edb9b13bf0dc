#include "documents/orders/order_screens.h"

#include "documents/orders/order_types.h"
#include "frame/document/document_screen.h"

namespace velmo::documents {

QWidget* makeQuotations(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  return new frame::DocumentScreen(quotationType(), workplace, std::move(printOuts), parent);
}

QWidget* makeSaleOrders(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  return new frame::DocumentScreen(saleOrderType(), workplace, std::move(printOuts), parent);
}

QWidget* makeDeliveryChallans(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  return new frame::DocumentScreen(deliveryChallanType(), workplace, std::move(printOuts), parent);
}

QWidget* makeGatePassesOut(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  return new frame::DocumentScreen(outwardPassType(), workplace, std::move(printOuts), parent);
}

QWidget* makePurchaseOrders(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  return new frame::DocumentScreen(purchaseOrderType(), workplace, std::move(printOuts), parent);
}

QWidget* makeGatePassesIn(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  return new frame::DocumentScreen(inwardPassType(), workplace, std::move(printOuts), parent);
}

}  // namespace velmo::documents
