#include "documents/invoices/purchase_bill_type.h"

#include "documents/trade/find_screens.h"
#include "documents/trade/order_days.h"
#include "documents/trade/trade_body.h"
#include "documents/trade/trade_rules.h"
#include "text/number.h"

namespace velmo::documents {

namespace {

using frame::DocumentValues;

std::vector<frame::DocumentField> fields() {
  using enum frame::FieldPlace;
  return {{.name = "D1", .column = "D1", .label = "Vendor Invoice No."},
          {.name = "D1Dt", .column = "D1Date", .label = "Dated ", .place = Beside},
          {.name = "D2", .column = "D2", .label = "Purchase Order No.", .opens = "PurchaseOrders"},
          {.name = "D2Dt", .column = "D2Date", .label = "Dated ", .place = Beside}};
}

frame::AgingRow openItem(const DocumentValues& values) {
  frame::AgingRow row = ownOpenItem(values);
  row.vendorInvNo = values.field("D1");
  return row;
}

}  // namespace

const TradeKind& purchaseBillKind() {
  static const TradeKind kind{.party = vendors(),
                              .head = expenseAccount(frame::purchasesExpense),
                              .lines = purchaseLines("StockIn"),
                              .receivedCaption = "Amount Paid "};
  return kind;
}

const frame::DocumentType& purchaseBillType() {
  static const frame::DocumentType type{
      .form = schema::documentForm("PurchaseBillsSimple"),
      .title = "PURCHASES",
      .duplicateText = "This Serial No. already exists. Saving this would create duplicate values.",
      .find = findPurchasesSimple(),
      .makeBody = tradeBody(purchaseBillKind()),
      .fields = fields(),
      .dateLookups = {purchaseOrderDay()},
      .validation =
          {fieldFilled("D1", "Select correct vendor invoice number."),
           headAccountChosen("Select a correct expense account."),
           partyChosen("Select a correct vendor. You may select Account Code '21001001' for a Retail / Cash Purchase."),
           cashPartySettles("21001001",
                            "Select a correct vendor to give credit for balance amount. Credit cannot be given to a "
                            "Retail / Cash Purchase Account."),
           frame::locationIsListed(), frame::jobIsListedOrBlank(), frame::employeeIsListedOrBlank(),
           frame::receivedWithinNetTotal("Amount paid cannot be greater then the total payable.")},
      .header = [](const DocumentValues& values, const session::LoginContext&,
                   frame::HeaderRow& row) { writeTradeHeader(values, row); },
      .posting =
          frame::PostingTable{
              .documentName = [](const DocumentValues& v) { return "Invoice No " + v.DocNo + "/" + v.field("D1"); },
              .rows = payableRows(frame::carriageInwards)},
      .aging = frame::AgingRule{.side = frame::AgingSide::Payable, .row = openItem},
  };
  return type;
}

}  // namespace velmo::documents
