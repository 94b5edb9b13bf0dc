#include "documents/invoices/sale_invoice_type.h"

#include "documents/conversions/conversion_commands.h"
#include "documents/trade/find_screens.h"
#include "documents/trade/order_days.h"
#include "documents/trade/trade_body.h"
#include "documents/trade/trade_rules.h"
#include "schema/account_types.h"
#include "store/connection/connection.h"
#include "store/values/value.h"

namespace velmo::documents {

namespace {

using frame::DocumentValues;
using frame::HeaderRow;
using frame::SaveSituation;

constexpr std::string_view pointOfSale = "0";  // of InvTypeList

bool leavesBalance(const DocumentValues& values) {
  return values.totals.Balance != "0.00";
}

std::vector<frame::DocumentField> fields() {
  using enum frame::FieldKind;
  using enum frame::FieldPlace;
  return {
      {.name = "InvTypeList",
       .column = "Text12",
       .label = "Invoice Type",
       .kind = Choice,
       .place = Head,
       .choices = {"P.O.S. Invoice", "Sale Invoice", "Service Invoice"},
       .initial = "1"},
      {.name = "D1", .column = "D1", .label = "Purchase Order No."},
      {.name = "D1Dt", .column = "D1Date", .label = "Dated ", .place = Beside},
      {.name = "D2", .column = "D2", .label = "Delivery Challan No.", .opens = "DeliveryChallans"},
      {.name = "D2Dt", .column = "D2Date", .label = "Dated ", .place = Beside},
      {.name = "ACodeTxt", .column = "Text4", .kind = Unseen, .initial = "10001001"},
  };
}

std::vector<frame::ValidationStep> validation() {
  return {
      headAccountChosen("Select a correct income account."),
      partyChosen("Select a correct customer. You may select Account Code '12001001' for a Walk-in (Cash) Customer."),
      cashPartySettles("12001001",
                       "Select a correct customer to give debit for balance amount. Debit cannot be given to a Walk-in "
                       "(Cash) Customer."),
      {.fails = [](const DocumentValues& v,
                   const SaveSituation&) { return v.field("InvTypeList") == pointOfSale && leavesBalance(v); },
       .text = "You are saving a Point of Sale Invoice. You must receive full amount of invoice.",
       .control = "Received"},
      frame::locationIsListed(),
      frame::jobIsListedOrBlank(),
      frame::employeeIsListedOrBlank(),
      frame::receivedWithinNetTotal("Amount received cannot be greater then the total receivable."),
      frame::creditLimitKept(),
  };
}

void header(const DocumentValues& values, const session::LoginContext&, HeaderRow& row) {
  writeTradeHeader(values, row);
  row.set("Text11", "0");  // the mode of payment: cash
}

}  // namespace

const TradeKind& saleInvoiceKind() {
  static const TradeKind kind{
      .party = customers(),
      .head = incomeAccount(frame::salesIncome),
      .lines = {.stockWarning = frame::StockWarning::Shown, .serialNumbers = frame::SerialNumbers::Kept}};
  return kind;
}

const frame::DocumentType& saleInvoiceType() {
  static const frame::DocumentType type{
      .form = schema::documentForm("SaleInvoicesSimple"),
      .title = "SALE INVOICES",
      .duplicateText = "This Serial No. already exists in Sale Invoices. Saving this would create duplicate values.",
      .find = findSalesSimple(),
      .makeBody = tradeBody(saleInvoiceKind()),
      .fields = fields(),
      .dateLookups = {saleOrderDay()},
      .validation = validation(),
      .header = header,
      .posting = frame::PostingTable{.documentName = [](const DocumentValues& v) { return "Invoice No " + v.DocNo; },
                                     .rows = receivableRows(frame::carriageOutwards)},
      .aging = frame::AgingRule{.side = frame::AgingSide::Receivable, .row = ownOpenItem},
      .conversions = conversionCommands(schema::tran_type::SaleInvoice),
      .marks = conversionMarks(schema::tran_type::SaleInvoice),
      .printSettings = "InvoiceSettings",
  };
  return type;
}

}  // namespace velmo::documents
