#include "documents/purchase_return_type.h"

#include "documents/find_screens.h"
#include "documents/purchase_bill_type.h"
#include "documents/trade_rules.h"
#include "frame/day_text.h"
#include "store/value.h"

namespace velmo::documents {

namespace {

using frame::above;
using frame::below;
using frame::DocumentValues;
using frame::Figure;
using frame::minus;
using frame::Narration;
using frame::PostedAccount;

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
          {.name = "D1Dt", .column = "D1Date", .label = "Dated ", .place = Beside},
          {.name = "D2", .column = "D2", .label = "Purchase No."},
          {.name = "D2Dt", .column = "D2Date", .label = "Dated ", .kind = Day, .place = Beside}};
}

frame::PostingTable posting() {
  using enum Figure;
  return {
      .documentName =
          [](const DocumentValues& v) { return "Invoice No " + v.DocNo + "/" + v.field("D2") + "/" + v.field("D1"); },
      .rows = {
          {.when = {above(Received)}, .account = frame::cashInHand, .debit = Received},
          {.when = {above(Balance)}, .account = PostedAccount::Party, .debit = NetTotal},
          {.when = {above(Received), above(Balance)}, .account = PostedAccount::Party, .credit = Received},
          {.account = PostedAccount::Head, .narration = Narration::Lines, .credit = GTotal},
          {.when = {above(Carriage)},
           .account = frame::carriageInwards,
           .narration = Narration::Lines,
           .credit = Carriage},
          {.when = {below(Carriage)},
           .account = frame::carriageInwards,
           .narration = Narration::Lines,
           .debit = minus(Carriage)},
      }};
}

// Takes the return off the bill that it names; money got back is a payment below zero.
frame::AgingRow openItem(const DocumentValues& values) {
  return {.docNo = store::integerOf(values.field("D2")),
          .docNo2 = store::integerOf(values.DocNo),
          .vendorInvNo = values.field("D1"),
          .tranDate = frame::dayFrom(values.field("D2Dt")).value_or(values.TrDate),
          .tranDate2 = values.TrDate,
          .partyCode = store::integerOf(values.PartyCodeTxt),
          .returned = netTotalOf(values),
          .payment = -receivedOf(values),
          .totPayment = balanceOf(values)};
}

}  // namespace

const frame::DocumentType& purchaseReturnType() {
  static const frame::DocumentType type{
      .TranType = purchaseReturnTranType,
      .screen = "PurchaseReturns",
      .title = "PURCHASE RETURNS / DEBIT NOTES",
      .duplicateText = "This Serial No. already exists. Saving this would create duplicate values.",
      .viewRight = 62,
      .find = findPReturns(),
      .party = {.caption = "Vendor",
                .listCondition = "Level1ID=120 or Level1ID=210",
                .newParty = {.caption = "New Vendor", .right = 12, .dialog = "ModifySuppliers"}},
      .head = frame::HeadRules{.caption = "Expense Account",
                               .listCondition = "Level1ID=500",
                               .initialCode = frame::purchaseReturnsExpense},
      .fields = fields(),
      .lines = {.quantityField = "StockOut",
                .priceField = "PurchasePrice",
                .priceCaption = "Purchase Price",
                .historyTranType = purchaseBillTranType,
                .historyQuantityField = "StockIn",
                .serialNumbers = frame::SerialNumbers::Kept},
      .receivedCaption = "Amount Paid ",
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
      .header =
          [](const DocumentValues& values, const session::LoginContext& context, frame::HeaderRow& row) {
            writeTradeHeader(values, row);
            row.set("InvLedger", returnLeavesStock(values, context));
          },
      .posting = posting(),
      .aging = frame::AgingRule{.side = frame::AgingSide::Payable, .row = openItem},
  };
  return type;
}

}  // namespace velmo::documents
