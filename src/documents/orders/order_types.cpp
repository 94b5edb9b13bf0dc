#include "documents/orders/order_types.h"

#include "documents/orders/find_orders.h"
#include "documents/orders/order_paper.h"
#include "documents/trade/trade_rules.h"

// Quotations and orders. Their goods stand at the company's own location.
namespace velmo::documents {

namespace {

using enum frame::FieldPlace;

frame::DocumentType quotation() {
  frame::DocumentType type =
      orderPaper("Quotations", "QUOTATIONS",
                 salePaper({.historyTranTypes = {schema::tran_type::SalesTaxInvoice, schema::tran_type::SaleInvoice},
                            .historyNumberCaption = "Inv. No.",
                            .historyPartyCaption = "Customer"}));
  type.find = findQuotations();
  type.locationChoice = frame::LocationChoice::OfCompany;
  type.jobChoice = frame::JobChoice::None;
  type.fields = {{.name = "Subject", .column = "D1", .label = "Subject"},
                 {.name = "D1Dt", .column = "D1Date", .label = "Dated "},
                 {.name = "PartyContact", .column = "Text6", .label = "Contact Person"},
                 {.name = "Conditions", .column = "Text8", .label = "Conditions"}};
  type.validation = {partyChosen("Select a correct customer."), frame::employeeIsListedOrBlank()};
  type.printSettings = "QuoteSettings";
  return type;
}

frame::DocumentType saleOrder() {
  frame::DocumentType type = orderPaper("SaleOrders", "SALE ORDERS", salePaper({.netCaption = valueExclTax}));
  type.find = findSO();
  type.locationChoice = frame::LocationChoice::OfCompany;
  type.fields = {{.name = "D1", .column = "D1", .label = "Customer Order Ref."},
                 {.name = "D1Dt", .column = "D1Date", .label = "Dated ", .place = Beside}};
  type.validation = {partyChosen("Select a correct customer."),
                     fieldFilled("D1", "Select a correct sale order customer reference no."),
                     frame::jobIsListedOrBlank(), frame::employeeIsListedOrBlank()};
  return type;
}

frame::DocumentType purchaseOrder() {
  frame::ItemGridKind lines = purchaseLines("StockIn");
  lines.netCaption = valueExclTax;
  lines.serialNumbers = frame::SerialNumbers::None;
  frame::DocumentType type = orderPaper("PurchaseOrders", "PURCHASE ORDERS", purchasePaper(std::move(lines)));
  type.find = findPO();
  type.locationChoice = frame::LocationChoice::OfCompany;
  type.fields = {{.name = "D1Dt", .column = "D1Date", .label = "Delivery Date"},
                 {.name = "Conditions", .column = "Text8", .label = "Conditions"}};
  type.validation = {partyChosen("Select a correct vendor."), frame::jobIsListedOrBlank(),
                     frame::employeeIsListedOrBlank()};
  type.printSettings = "POSettings";
  return type;
}

}  // namespace

const frame::DocumentType& quotationType() {
  static const frame::DocumentType type = quotation();
  return type;
}

const frame::DocumentType& saleOrderType() {
  static const frame::DocumentType type = saleOrder();
  return type;
}

const frame::DocumentType& purchaseOrderType() {
  static const frame::DocumentType type = purchaseOrder();
  return type;
}

}  // namespace velmo::documents
