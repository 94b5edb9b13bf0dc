#include "documents/invoices/sale_return_type.h"

#include "documents/trade/find_screens.h"
#include "documents/trade/trade_rules.h"

namespace velmo::documents {

namespace {

using frame::DocumentValues;

std::vector<frame::DocumentField> fields() {
  using enum frame::FieldKind;
  using enum frame::FieldPlace;
  return {{.name = "NoteType",
           .column = "Text7",
           .label = "Note Type",
           .kind = Choice,
           .place = Head,
           .choices = {"Sale Return (Increases Inventory)", "Rate Adjustment (No Change in Inventory)"},
           .initial = "0"},
          {.name = "D1", .column = "D1", .label = "Sale Invoice No."},
          {.name = "D1Dt", .column = "D1Date", .label = "Dated ", .kind = Day}};
}

}  // namespace

const frame::DocumentType& saleReturnType() {
  static const frame::DocumentType type{
      .TranType = saleReturnTranType,
      .screen = "SaleReturns",
      .title = "SALE RETURNS / CREDIT NOTES",
      .duplicateText = "This Serial No. already exists. Saving this would create duplicate values.",
      .viewRight = 100,
      .find = findSReturns(),
      .party = customers(),
      .head =
          frame::HeadRules{
              .caption = "Income Account", .listCondition = "Level1ID=400", .initialCode = frame::salesReturnsIncome},
      .fields = fields(),
      .lines = {.quantityField = "StockIn", .serialNumbers = frame::SerialNumbers::Kept},
      .receivedCaption = "Amount Paid ",
      .validation = {fieldNumeric("D1", "Sale invoice number must be a numeric figure."),
                     headAccountChosen("Select a correct income account."),
                     partyChosen(
                         "Select a correct customer. You may select Account Code '12001001' for a Walk-in (Cash) "
                         "Customer."),
                     cashPartySettles(
                         "12001001",
                         "Select a correct customer to give credit for balance amount. Credit cannot be given to a "
                         "Walk-in (Cash) Customer."),
                     frame::locationIsListed(), frame::jobIsListedOrBlank(), frame::employeeIsListedOrBlank(),
                     frame::receivedWithinNetTotal("Amount paid cannot be greater then the total payable.")},
      .header =
          [](const DocumentValues& values, const session::LoginContext& context, frame::HeaderRow& row) {
            writeTradeHeader(values, row);
            row.set("InvLedger", returnLeavesStock(values, context));
          },
      .posting =
          frame::PostingTable{
              .documentName = [](const DocumentValues& v) { return "Invoice No " + v.DocNo + "/" + v.field("D1"); },
              .rows = payableRows(frame::carriageOutwards)},
      .aging = frame::AgingRule{.side = frame::AgingSide::Receivable,
                                .row = [](const DocumentValues& v) { return returnedItem(v, "D1", "D1Dt"); }},
  };
  return type;
}

}  // namespace velmo::documents
