#include "documents/invoices/sale_return_type.h"

#include "documents/trade/find_screens.h"
#include "documents/trade/trade_body.h"
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

const TradeKind& saleReturnKind() {
  static const TradeKind kind{.party = customers(),
                              .head = incomeAccount(frame::salesReturnsIncome),
                              .lines = {.quantityField = "StockIn", .serialNumbers = frame::SerialNumbers::Kept},
                              .receivedCaption = "Amount Paid "};
  return kind;
}

const frame::DocumentType& saleReturnType() {
  static const frame::DocumentType type{
      .form = schema::documentForm("SaleReturns"),
      .title = "SALE RETURNS / CREDIT NOTES",
      .duplicateText = "This Serial No. already exists. Saving this would create duplicate values.",
      .find = findSReturns(),
      .makeBody = tradeBody(saleReturnKind()),
      .fields = fields(),
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
      .header = [](const DocumentValues& values, const session::LoginContext&,
                   frame::HeaderRow& row) { writeReturnHeader(values, row); },
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
