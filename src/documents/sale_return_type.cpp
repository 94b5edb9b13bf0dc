#include "documents/sale_return_type.h"

#include "documents/find_screens.h"
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
           .choices = {"Sale Return (Increases Inventory)", "Rate Adjustment (No Change in Inventory)"},
           .initial = "0"},
          {.name = "D1", .column = "D1", .label = "Sale Invoice No."},
          {.name = "D1Dt", .column = "D1Date", .label = "Dated ", .kind = Day, .place = Beside}};
}

frame::PostingTable posting() {
  using enum Figure;
  return {.documentName = [](const DocumentValues& v) { return "Invoice No " + v.DocNo + "/" + v.field("D1"); },
          .rows = {
              {.account = PostedAccount::Head, .narration = Narration::Lines, .debit = GTotal},
              {.when = {above(Carriage)},
               .account = frame::carriageOutwards,
               .narration = Narration::Lines,
               .debit = Carriage},
              {.when = {below(Carriage)},
               .account = frame::carriageOutwards,
               .narration = Narration::Lines,
               .credit = minus(Carriage)},
              {.when = {above(Received), above(Balance)}, .account = PostedAccount::Party, .debit = Received},
              {.when = {above(Received)}, .account = frame::cashInHand, .credit = Received},
              {.when = {above(Balance)}, .account = PostedAccount::Party, .credit = NetTotal},
          }};
}

// Takes the return off the invoice that it names; money paid back is a payment below zero.
frame::AgingRow openItem(const DocumentValues& values) {
  return {.docNo = store::integerOf(values.field("D1")),
          .docNo2 = store::integerOf(values.DocNo),
          .tranDate = frame::dayFrom(values.field("D1Dt")).value_or(values.TrDate),
          .tranDate2 = values.TrDate,
          .partyCode = store::integerOf(values.PartyCodeTxt),
          .returned = netTotalOf(values),
          .payment = -receivedOf(values),
          .totPayment = balanceOf(values)};
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
      .party = {.caption = "Customer",
                .listCondition = "Level1ID=120 or Level1ID=210",
                .newParty = {.caption = "New Customer", .right = 12, .dialog = "ModifyCustomers"},
                .cashCode = frame::walkInCustomer,
                .cashRule = frame::ReceivedRule::WholeNetTotal},
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
      .posting = posting(),
      .aging = frame::AgingRule{.side = frame::AgingSide::Receivable, .row = openItem},
  };
  return type;
}

}  // namespace velmo::documents
