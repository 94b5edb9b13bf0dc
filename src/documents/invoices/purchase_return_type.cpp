#include "documents/invoices/purchase_return_type.h"

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
           .choices = {"Purchase Return (Reduces Inventory)", "Rate Adjustment (No Change in Inventory)"},
           .initial = "0"},
          {.name = "D1", .column = "D1", .label = "Vendor Invoice No."},
          {.name = "D1Dt", .column = "D1Date", .label = "Dated "},
          {.name = "D2", .column = "D2", .label = "Purchase No."},
          {.name = "D2Dt", .column = "D2Date", .label = "Dated ", .kind = Day}};
}

frame::AgingRow openItem(const DocumentValues& values) {
  frame::AgingRow row = returnedItem(values, "D2", "D2Dt");
  row.vendorInvNo = values.field("D1");
  return row;
}

}  // namespace

const TradeKind& purchaseReturnKind() {
  static const TradeKind kind{.party = vendors(),
                              .head = expenseAccount(frame::purchaseReturnsExpense),
                              .lines = purchaseLines("StockOut"),
                              .receivedCaption = "Amount Paid "};
  return kind;
}

const frame::DocumentType& purchaseReturnType() {
  static const frame::DocumentType type{
      .form = schema::documentForm("PurchaseReturns"),
      .title = "PURCHASE RETURNS / DEBIT NOTES",
      .duplicateText = "This Serial No. already exists. Saving this would create duplicate values.",
      .find = findPReturns(),
      .makeBody = tradeBody(purchaseReturnKind()),
      .fields = fields(),
      .validation = {fieldNumeric("D2", "Purchase number must be a numeric figure."),
                     fieldFilled("D1", "Select correct vendor invoice number."),
                     headAccountChosen("Select a correct expense account."),
                     partyChosen(
                         "Select a correct vendor. You may select Account Code '21001001' for a Retail / Cash Purchase "
                         "Return."),
                     cashPartySettles(
                         "21001001",
                         "Select a correct vendor to give debit for balance amount. Debit cannot be given to a "
                         "Retail / Cash Purchase account."),
                     frame::locationIsListed(), frame::jobIsListedOrBlank(), frame::employeeIsListedOrBlank(),
                     frame::receivedWithinNetTotal("Amount received cannot be greater then the total receivable.")},
      .header = [](const DocumentValues& values, const session::LoginContext&,
                   frame::HeaderRow& row) { writeReturnHeader(values, row); },
      .posting = frame::PostingTable{.documentName =
                                         [](const DocumentValues& v) {
                                           return "Invoice No " + v.DocNo + "/" + v.field("D2") + "/" + v.field("D1");
                                         },
                                     .rows = receivableRows(frame::carriageInwards)},
      .aging = frame::AgingRule{.side = frame::AgingSide::Payable, .row = openItem},
  };
  return type;
}

}  // namespace velmo::documents
