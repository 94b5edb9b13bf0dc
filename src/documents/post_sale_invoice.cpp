#include "documents/post_sale_invoice.h"

#include "documents/invoices/sale_invoice_type.h"
#include "frame/document/compose_document.h"
#include "frame/items/line_arithmetic.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::documents {

namespace {

using text::numberText;

frame::LineAmounts amountsOf(const SaleInvoiceLine& line) {
  return frame::lineAmounts({.quantity = numberText(line.quantity),
                             .rate = numberText(line.rate),
                             .discountRate = line.discountRate == 0 ? "" : numberText(line.discountRate),
                             .discount = "0.00"});
}

// The lines as the grid would hold them.
store::Recordset sheetOf(store::Connection& connection, const std::vector<SaleInvoiceLine>& lines) {
  store::Recordset sheet(connection, "Select * from stockflow where tranno = 0", store::LockType::BatchOptimistic);
  for (const SaleInvoiceLine& line : lines) {
    const frame::LineAmounts amounts = amountsOf(line);
    sheet.addNew({{"ItemCode", line.itemCode},
                  {"ItemName", line.itemName},
                  {"ProductSerials", line.productSerials},
                  {"StockOut", line.quantity},
                  {"Unit", line.unit},
                  {"Rate", line.rate},
                  {"GrossAmt", text::amountFrom(amounts.gross)},
                  {"DiscRate", line.discountRate == 0 ? store::Value(store::Null{}) : store::Value(line.discountRate)},
                  {"DiscAmt", text::amountFrom(amounts.discount)},
                  {"ItemValue", text::amountFrom(amounts.net)}});
  }
  return sheet;
}

frame::DocumentTotals totalsOf(const SaleInvoiceValues& invoice, const store::Recordset& sheet,
                               const std::string& currencyName) {
  const auto shown = [](double amount) { return text::formatNumber(amount, "#0.00; (#0.00)"); };
  return frame::RecalculateTotals(
      frame::sumLines(sheet),
      {.Discount = shown(invoice.discount), .Carriage = shown(invoice.carriage), .Received = shown(invoice.received)},
      invoice.customerCode == frame::walkInCustomer ? frame::ReceivedRule::WholeNetTotal : frame::ReceivedRule::AsTyped,
      currencyName);
}

frame::ListChoice choiceOf(std::int64_t id) {
  return {.text = id == 0 ? "" : std::to_string(id), .id = id, .matches = id != 0};
}

frame::DocumentValues valuesOf(const SaleInvoiceValues& invoice, const frame::DocumentTotals& totals) {
  return {.DocNo = std::to_string(invoice.docNo),
          .TrDate = invoice.day,
          .Desc = invoice.remarks,
          .Cancel = invoice.cancelled,
          .PartyCodeTxt = std::to_string(invoice.customerCode),
          .PartyNameTxt = invoice.customerName,
          .PartyAddress = invoice.customerAddress,
          .PartyTel = invoice.customerTelephone,
          .Terms = invoice.terms,
          .IncomeCode = std::to_string(invoice.incomeCode),
          .IncomeAcc = invoice.incomeName,
          .JobList = choiceOf(invoice.jobId),
          .EmpList = choiceOf(invoice.employeeId),
          .LocationList = choiceOf(invoice.locationId),
          .fields = {{"InvTypeList", std::to_string(invoice.invoiceType)},
                     {"D1", invoice.orderNo},
                     {"D1Dt", invoice.orderDate},
                     {"D2", invoice.challanNo},
                     {"D2Dt", invoice.challanDate}},
          .totals = totals};
}

}  // namespace

tl::expected<std::int64_t, std::string> postSaleInvoice(store::Connection& connection,
                                                        const session::LoginContext& context, const text::DateTime& now,
                                                        const SaleInvoiceValues& invoice) {
  const frame::DocumentType& type = saleInvoiceType();
  store::Recordset sheet = sheetOf(connection, invoice.lines);
  const frame::DocumentValues values = valuesOf(invoice, totalsOf(invoice, sheet, context.currencyname));
  const std::string narrations = frame::lineNarrations(sheet, saleInvoiceKind().lines.quantityField, context.ccode);
  const auto document = frame::composeDocument(type, values, context, now, narrations, frame::HeaderWrite::Add);
  if (!document) return tl::unexpected(document.error());
  store::Recordset tran(connection, "SELECT * from transactions where tranno = 0");
  return frame::writeDocument(connection, *document, tran, sheet);
}

}  // namespace velmo::documents
