#pragma once

#include "documents/print/order_print.h"

// The print-outs of quotations, orders, challans and gate passes, one file each: how it looks, and what shows it of
// LoginContext::PrintRS.
namespace velmo::documents {

const OrderPrint& quotationPrint();
const OrderPrint& saleOrderPrint();
const OrderPrint& deliveryChallanPrint();
const OrderPrint& outwardGatePassPrint();
const OrderPrint& purchaseOrderPrint();
const OrderPrint& inwardGatePassPrint();

void printQuotation(session::Workplace& workplace, const frame::DocumentValues& onScreen, QWidget* screen);
void printSaleOrder(session::Workplace& workplace, const frame::DocumentValues& onScreen, QWidget* screen);
void printDeliveryChallan(session::Workplace& workplace, const frame::DocumentValues& onScreen, QWidget* screen);
void printOutwardGatePass(session::Workplace& workplace, const frame::DocumentValues& onScreen, QWidget* screen);
void printPurchaseOrder(session::Workplace& workplace, const frame::DocumentValues& onScreen, QWidget* screen);
void printInwardGatePass(session::Workplace& workplace, const frame::DocumentValues& onScreen, QWidget* screen);

}  // namespace velmo::documents
