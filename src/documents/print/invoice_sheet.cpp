#include "documents/print/invoice_sheet.h"

#include "text/decimal_sum.h"
#include "text/format.h"

namespace velmo::documents {

using namespace printing;

SheetWords wordsOf(InvoiceKind kind) {
  switch (kind) {
    case InvoiceKind::Sale:
      return {};
    case InvoiceKind::Service:
      return {.heading = "SERVICE INVOICE", .number = "Service Invoice No.", .description = "Description of Service"};
    case InvoiceKind::SaleReturn:
      return {.title = "Sale Return / Credit Note",
              .heading = "SALE RETURN / CREDIT NOTE",
              .number = "Return No.",
              .party = "Customer",
              .d1 = "Sale Invoice No.",
              .d2 = {}};
    case InvoiceKind::Purchase:
      return {.title = "Purchase Bill",
              .heading = "PURCHASE BILL",
              .number = "Bill No.",
              .party = "Vendor",
              .d1 = "Vendor Invoice No.",
              .d2 = "Purchase Order No.",
              .received = "Amount Paid  "};
    case InvoiceKind::PurchaseReturn:
      return {.title = "Purchase Return / Debit Note",
              .heading = "PURCHASE RETURN / DEBIT NOTE",
              .number = "Return No.",
              .party = "Vendor",
              .d1 = "Vendor Invoice No.",
              .d2 = "Purchase No."};
  }
  return {};
}

std::string InvoiceSheet::codeHeading() const {
  return request.kind == InvoiceKind::Service ? "Service" : "Item Code";
}

std::string InvoiceSheet::quantityField() const {
  return request.kind == InvoiceKind::SaleReturn || request.kind == InvoiceKind::Purchase ? "stockin" : "stockout";
}

namespace {

std::vector<Total> invoiceTotals(const InvoiceSheet& sheet, const TotalsStyle& style) {
  const std::string& code = sheet.currencyCode;
  const auto amount = [&](double value) { return text::formatNumber(value, style.amountFormat); };
  const double discount =
      text::sumOf({sheet.discount, style.lineDiscounts == LineDiscounts::AmongTotals ? sheet.lineDiscount : 0.0});
  return {{"Tlbl1", style.discountWord + code, "DiscountAmt", text::formatNumber(discount, style.discountFormat)},
          {"Tlbl2", "Gross Total  " + code, "GrossTotalAmt", amount(text::sumOf({sheet.netTotal, -sheet.carriage}))},
          {"Tlbl3", "Carriage & Freight  " + code, "CarriageAmt", amount(sheet.carriage)},
          {"Tlbl4", "Net Total  " + code, "NetTotalAmt", amount(sheet.netTotal), Emphasis::Strong},
          {"Tlbl5", (style.receivedWord.empty() ? wordsOf(sheet.request.kind).received : style.receivedWord) + code,
           "ReceivedAmt", amount(sheet.received)},
          {"Tlbl6", "Balance  " + code, "BalanceAmt", amount(sheet.balance)}};
}

std::vector<Reference> invoiceReferences(const InvoiceSheet& sheet) {
  const SheetWords words = wordsOf(sheet.request.kind);
  std::vector<Reference> references = {{"label3", words.number, "docno", sheet.docno},
                                       {"datelbl", "Date", "trandate", text::formatDate(sheet.trandate, "dd-mm-yyyy")},
                                       {"naturelbl", "Terms of Payment", "nature", sheet.nature},
                                       {"d1lbl", words.d1, "d1txt", sheet.d1txt},
                                       {"d1dtlbl", "Dated", "d1dttxt", sheet.d1dttxt}};
  if (!words.d2.empty()) {
    references.push_back({"d2lbl", words.d2, "d2txt", sheet.d2txt});
    references.push_back({"d2dtlbl", "Dated", "d2dttxt", sheet.d2dttxt});
  }
  return references;
}

}  // namespace

PaperTexts invoiceTexts(const InvoiceSheet& sheet, const TotalsStyle& style) {
  const SheetWords words = wordsOf(sheet.request.kind);
  return {.title = words.title,
          .heading = words.heading,
          .number = words.number,
          .docno = sheet.docno,
          .party = words.party,
          .partyname = sheet.partyname,
          .partyadd = sheet.partyadd,
          .partytel = sheet.partytel,
          .references = invoiceReferences(sheet),
          .description = words.description,
          .currencyCode = sheet.currencyCode,
          .totals = invoiceTotals(sheet, style),
          .words = sheet.words,
          .letterhead = sheet.letterhead,
          .headStyle = sheet.headStyle,
          .topMargin = sheet.topMargin,
          .state = sheet.request.state,
          .today = sheet.request.today};
}

}  // namespace velmo::documents
