#include "documents/invoices/sale_invoice_pos_type.h"

#include "documents/trade/find_screens.h"
#include "documents/trade/trade_body.h"
#include "documents/trade/trade_rules.h"
#include "schema/account_types.h"

namespace velmo::documents {

namespace {

using frame::above;
using frame::below;
using frame::DocumentValues;
using frame::Figure;
using frame::minus;
using frame::PostedAccount;
using frame::SaveSituation;

// References of an invoice that was written on the other screen stay as they are.
std::vector<frame::DocumentField> fields() {
  using enum frame::FieldKind;
  using enum frame::FieldPlace;
  return {{.name = "PayMode",
           .column = "Text11",
           .label = "Payment Mode",
           .kind = Choice,
           .place = Head,
           .choices = {"Cash", "Cheque", "Credit Card", "Demand Draft", "Pay Order", "Online Transfer"},
           .initial = "0"},
          {.name = "InvTypeList", .column = "Text12", .kind = Unseen, .initial = "0"},
          {.name = "D1", .column = "D1", .kind = Unseen},
          {.name = "D1Dt", .column = "D1Date", .kind = Unseen},
          {.name = "D2", .column = "D2", .kind = Unseen},
          {.name = "D2Dt", .column = "D2Date", .kind = Unseen}};
}

// The money goes straight into the debit account: the customer's is never posted.
frame::PostingTable posting() {
  using enum Figure;
  return {.documentName = [](const DocumentValues& v) { return "Invoice No " + v.DocNo; },
          .rows =
              {
                  {.when = {above(NetTotal)}, .account = PostedAccount::Debit, .debit = NetTotal},
                  {.account = PostedAccount::Head, .credit = GTotal},
                  {.when = {above(Carriage)}, .account = frame::carriageOutwards, .credit = Carriage},
                  {.when = {below(Carriage)}, .account = frame::carriageOutwards, .debit = minus(Carriage)},
              },
          .narration = [](const DocumentValues& v) { return v.Desc; }};
}

}  // namespace

const TradeKind& saleInvoicePosKind() {
  static const TradeKind kind{.party = customers(),
                              .head = incomeAccount(frame::salesIncome),
                              .counter = CounterRules{.caption = "Debit Account",
                                                      .listCondition = schema::account_type::money(),
                                                      .debitCode = frame::cashInHand.code,
                                                      .partyCode = frame::walkInCustomer,
                                                      .termsWithoutParty = "CASH"},
                              .lines = {.stockWarning = frame::StockWarning::Shown,
                                        .serialNumbers = frame::SerialNumbers::Kept,
                                        .history = frame::ItemHistory::None,
                                        .f4 = frame::F4Key::ItemList,
                                        .scan = frame::ScanRule::OnePiece}};
  return kind;
}

const frame::DocumentType& saleInvoicePosType() {
  static const frame::DocumentType type{
      .form = schema::documentForm("SaleInvoicesPOS"),
      .title = "POINT OF SALE INVOICES",
      .duplicateText = "This Serial No. already exists in Sale Invoices. Saving this would create duplicate values.",
      .find = findSalesPOS(),
      .makeBody = tradeBody(saleInvoicePosKind()),
      .fields = fields(),
      .validation = {partyChosen("Select a correct customer. You may select Account Code '12001001' for a Walk-in "
                                 "(Cash) Customer."),
                     frame::locationIsListed(),
                     frame::jobIsListedOrBlank(),
                     frame::employeeIsListedOrBlank(),
                     {.fails = [](const DocumentValues& v, const SaveSituation&) { return v.Acc.empty(); },
                      .text = "Select a correct account to debit.",
                      .control = "ACodeTxt"}},
      .header =
          [](const DocumentValues& values, const session::LoginContext&, frame::HeaderRow& row) {
            writeTradeHeader(values, row);
            row.set("Received", netTotalOf(values));
            row.set("Balance", 0.0);
            row.set("Text4", values.ACodeTxt);
          },
      .posting = posting(),
      .aging = frame::AgingRule{.side = frame::AgingSide::Receivable, .row = ownOpenItem},  // paid is what was tendered
      .marks = {{.column = "Text10"}},
      .printSettings = "InvoiceSettings",
  };
  return type;
}

}  // namespace velmo::documents
