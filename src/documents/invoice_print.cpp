#include "documents/invoice_print.h"

#include "documents/invoice_sheet.h"
#include "printing/element_text.h"
#include "printing/recordset_data.h"

namespace velmo::documents {

namespace {

constexpr int OnOwnLetterhead = 11;  // of sif: the layout with the discount column, without headers

// The date of a reference; "" when the document has none.
std::string referenceDate(const store::Recordset& document, const char* field) {
  return printing::formatted(document.value(field), "dd-mm-yyyy");
}

InvoiceSheet sheetOf(const session::LoginContext& context, const store::Recordset& document) {
  InvoiceSheet sheet;
  sheet.letterhead = {.companyName = context.CompanyName,
                      .address = context.CompanyAddress,
                      .telephones = context.CompanyTelLine,
                      .email = context.CompanyEmailLine,
                      .userName = context.UserName};
  if (context.sif == OnOwnLetterhead) {
    sheet.headStyle = printing::HeadStyle::OwnLetterhead;
    sheet.topMargin = context.sitm;
  }
  sheet.currencyCode = context.ccode;
  sheet.docno = document.text("DocNo");
  sheet.trandate = document.date("TranDate");
  sheet.partyname = document.text("text1");
  sheet.partyadd = document.text("text2");
  sheet.partytel = document.text("text3");
  sheet.nature = document.text("Nature");
  sheet.d1txt = document.text("D1");
  sheet.d1dttxt = referenceDate(document, "D1Date");
  sheet.d2txt = document.text("D2");
  sheet.d2dttxt = referenceDate(document, "D2Date");
  sheet.discount = document.number("Discount");
  sheet.carriage = document.number("carriage");
  sheet.netTotal = document.number("tramount");
  sheet.received = document.number("Received");
  sheet.balance = document.number("Balance");
  sheet.words = context.currencyname + " " + document.text("WordsAmt");
  return sheet;
}

}  // namespace

printing::Report invoicePrint(const session::LoginContext& context, const store::Recordset& document,
                              const store::Recordset& lines, const PrintRequest& request) {
  InvoiceSheet sheet = sheetOf(context, document);
  sheet.request = request;
  return invoiceReport(sheet, std::make_shared<printing::RecordsetData>(lines));
}

}  // namespace velmo::documents
