#include "documents/orders/order_screens.h"

#include "documents/orders/order_types.h"
#include "documents/print/order_prints.h"
#include "frame/document/document_screen.h"

namespace velmo::documents {

namespace {

using Print = void (*)(session::Workplace&, const frame::DocumentValues&, QWidget*);

QWidget* makeScreen(frame::DocumentType type, Print print, session::Workplace& workplace, QWidget* parent,
                    frame::PrintOuts printOuts) {
  type.print = print;
  return new frame::DocumentScreen(std::move(type), workplace, std::move(printOuts), parent);
}

}  // namespace

QWidget* makeQuotations(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  return makeScreen(quotationType(), printQuotation, workplace, parent, std::move(printOuts));
}

QWidget* makeSaleOrders(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  return makeScreen(saleOrderType(), printSaleOrder, workplace, parent, std::move(printOuts));
}

QWidget* makeDeliveryChallans(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  return makeScreen(deliveryChallanType(), printDeliveryChallan, workplace, parent, std::move(printOuts));
}

QWidget* makeGatePassesOut(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  return makeScreen(outwardPassType(), printOutwardGatePass, workplace, parent, std::move(printOuts));
}

QWidget* makePurchaseOrders(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  return makeScreen(purchaseOrderType(), printPurchaseOrder, workplace, parent, std::move(printOuts));
}

QWidget* makeGatePassesIn(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  return makeScreen(inwardPassType(), printInwardGatePass, workplace, parent, std::move(printOuts));
}

}  // namespace velmo::documents
