#include "documents/invoices/trade_screens.h"

#include "documents/invoices/purchase_bill_type.h"
#include "documents/invoices/purchase_return_type.h"
#include "documents/invoices/sale_invoice_pos_type.h"
#include "documents/invoices/sale_return_type.h"
#include "documents/print/invoice_print.h"
#include "documents/print/show_print.h"
#include "frame/document/document_screen.h"

namespace velmo::documents {

namespace {

QWidget* makeScreen(frame::DocumentType type, InvoiceKind kind, session::Workplace& workplace, QWidget* parent,
                    frame::PrintOuts printOuts) {
  type.print = [kind](session::Workplace& place, const frame::DocumentValues& onScreen, QWidget* screen) {
    showPrint(place, onScreen, screen, [kind](const PrintSource& source) { return tradePrint(source, kind); });
  };
  return new frame::DocumentScreen(std::move(type), workplace, std::move(printOuts), parent);
}

}  // namespace

QWidget* makeSaleInvoicesPOS(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  frame::DocumentType type = saleInvoicePosType();
  // A slip, whatever layout the invoices of the office have.
  type.print = [](session::Workplace& place, const frame::DocumentValues& onScreen, QWidget* screen) {
    printSlip(place, onScreen, screen,
              [](const PrintSource& source) { return invoicePrint(InvoiceLayout::Invoice7, source); });
  };
  return new frame::DocumentScreen(std::move(type), workplace, std::move(printOuts), parent);
}

QWidget* makeSaleReturns(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  return makeScreen(saleReturnType(), InvoiceKind::SaleReturn, workplace, parent, std::move(printOuts));
}

QWidget* makePurchaseBillsSimple(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  return makeScreen(purchaseBillType(), InvoiceKind::Purchase, workplace, parent, std::move(printOuts));
}

QWidget* makePurchaseReturns(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  return makeScreen(purchaseReturnType(), InvoiceKind::PurchaseReturn, workplace, parent, std::move(printOuts));
}

}  // namespace velmo::documents
