#include "documents/invoice_sheet.h"

#include "documents/document_print_data.h"
#include "text/format.h"

namespace velmo::documents {

using namespace printing;

Report invoiceReport(const InvoiceSheet& sheet, const std::shared_ptr<const ReportData>& lines, Paper paper,
                     Margins margins) {
  Report report{.title = "Sale Invoice",
                .author = sheet.letterhead.companyName,
                .design = {.paper = paper, .margins = margins, .detailMember = LinesLevel},
                .data = documentData(lines),
                .printedOn = sheet.request.today};
  if (sheet.headStyle == HeadStyle::OwnLetterhead) report.design.margins.top = sheet.topMargin;
  report.variables = {{"vlabel", sheet.isService() ? "SERVICE INVOICE" : "SALE INVOICE"},
                      {"lbl5", sheet.isService() ? "Description of Service" : "Description"},
                      {"partyname", sheet.partyname},
                      {"partyadd", sheet.partyadd},
                      {"partytel", sheet.partytel.empty() ? "" : "Tel: " + sheet.partytel},
                      {"Tlbl", "Totals  " + sheet.currencyCode},
                      {"wrdslbl", sheet.words},
                      {"printbylbl", "Prepared By: " + sheet.letterhead.userName}};
  if (sheet.request.state != DocumentState::Cancelled) report.hidden.insert("clbl");
  return report;
}

std::vector<Total> invoiceTotals(const InvoiceSheet& sheet, const TotalsStyle& style) {
  const std::string& code = sheet.currencyCode;
  const auto amount = [&](double value) { return text::formatNumber(value, style.amountFormat); };
  const double discount =
      sheet.discount + (style.lineDiscounts == LineDiscounts::AmongTotals ? sheet.lineDiscount : 0.0);
  return {{"Tlbl1", style.discountWord + code, "DiscountAmt", text::formatNumber(discount, style.discountFormat)},
          {"Tlbl2", "Gross Total  " + code, "GrossTotalAmt", amount(sheet.netTotal - sheet.carriage)},
          {"Tlbl3", "Carriage & Freight  " + code, "CarriageAmt", amount(sheet.carriage)},
          {"Tlbl4", "Net Total  " + code, "NetTotalAmt", amount(sheet.netTotal), Emphasis::Strong},
          {"Tlbl5", style.receivedWord + code, "ReceivedAmt", amount(sheet.received)},
          {"Tlbl6", "Balance  " + code, "BalanceAmt", amount(sheet.balance)}};
}

std::vector<Reference> invoiceReferences(const InvoiceSheet& sheet) {
  return {{"label3", sheet.isService() ? "Service Invoice No." : "Invoice No.", "docno", sheet.docno},
          {"datelbl", "Date", "trandate", text::formatDate(sheet.trandate, "dd-mm-yyyy")},
          {"naturelbl", "Terms of Payment", "nature", sheet.nature},
          {"d1lbl", "Purchase Order No.", "d1txt", sheet.d1txt},
          {"d1dtlbl", "Dated", "d1dttxt", sheet.d1dttxt},
          {"d2lbl", "Delivery Challan No.", "d2txt", sheet.d2txt},
          {"d2dtlbl", "Dated", "d2dttxt", sheet.d2dttxt}};
}

}  // namespace velmo::documents
