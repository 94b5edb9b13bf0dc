#include "documents/print/invoice_print.h"

#include <array>

#include "documents/print/invoice_design.h"
#include "frame/posting/day_text.h"
#include "printing/recordset_data.h"
#include "text/decimal_sum.h"

namespace velmo::documents {

namespace {

constexpr int OnOwnLetterhead = 10;  // more than the layout's number

struct Design {
  InvoiceLayout layout;
  printing::Report (*report)(const InvoiceSheet&, const InvoiceLines&);
};

constexpr std::array Designs{
    Design{InvoiceLayout::Invoice, designInvoice},     Design{InvoiceLayout::Invoice0, designInvoice0},
    Design{InvoiceLayout::Invoice01, designInvoice01}, Design{InvoiceLayout::Invoice02, designInvoice02},
    Design{InvoiceLayout::Invoice6, designInvoice6},   Design{InvoiceLayout::Invoice7, designInvoice7}};

const Design& designOf(InvoiceLayout layout) {
  return *std::find_if(Designs.begin(), Designs.end(), [&](const Design& design) { return design.layout == layout; });
}

enum class DateBox { Typed, Picked };

// What was typed is printed; a date that was picked, in whichever form the file has it.
std::string referenceDate(const store::Recordset& document, const char* field, DateBox box) {
  const std::string stored = document.text(field);
  const auto day = box == DateBox::Picked ? frame::dayFrom(stored) : std::nullopt;
  return day ? frame::dayText(*day) : stored;
}

double discountOf(const printing::ReportData& lines) {
  text::DecimalSum sum;
  for (const auto rows = lines.rows(); rows->next();) {
    sum += store::numberOf(rows->value("grossamt"));
    sum -= store::numberOf(rows->value("itemvalue"));
  }
  return sum.value();
}

InvoiceSheet sheetOf(const PrintSource& source, InvoiceKind kind) {
  const auto& [context, document, lines, state, today] = source;
  InvoiceSheet sheet;
  sheet.letterhead = printing::letterheadOf(context);
  sheet.request = {kind, state, today};
  sheet.currencyCode = context.ccode;
  sheet.docno = document.text("DocNo");
  sheet.trandate = document.date("TranDate");
  sheet.partyname = document.text("text1");
  sheet.partyadd = document.text("text2");
  sheet.partytel = document.text("text3");
  sheet.nature = document.text("Nature");
  sheet.d1txt = document.text("D1");
  sheet.d1dttxt = referenceDate(document, "D1Date", kind == InvoiceKind::SaleReturn ? DateBox::Picked : DateBox::Typed);
  sheet.d2txt = document.text("D2");
  sheet.d2dttxt =
      referenceDate(document, "D2Date", kind == InvoiceKind::PurchaseReturn ? DateBox::Picked : DateBox::Typed);
  sheet.discount = document.number("Discount");
  sheet.carriage = document.number("carriage");
  sheet.netTotal = document.number("tramount");
  sheet.received = document.number("Received");
  sheet.balance = document.number("Balance");
  sheet.words = context.currencyname + " " + document.text("WordsAmt");
  return sheet;
}

}  // namespace

std::optional<InvoiceLayout> invoiceLayout(int sif) {
  for (const Design& design : Designs) {
    const int number = static_cast<int>(design.layout);
    if (sif == number || sif == number + OnOwnLetterhead) return design.layout;
  }
  return std::nullopt;
}

printing::Report invoicePrint(InvoiceLayout layout, const PrintSource& source, InvoiceKind kind) {
  const InvoiceLines data = std::make_shared<printing::RecordsetData>(source.lines);
  InvoiceSheet sheet = sheetOf(source, kind);
  if (source.context.sif == static_cast<int>(layout) + OnOwnLetterhead) {
    sheet.headStyle = printing::HeadStyle::OwnLetterhead;
    sheet.topMargin = source.context.sitm;
  }
  sheet.lineDiscount = discountOf(*data);
  return designOf(layout).report(sheet, data);
}

printing::Report tradePrint(const PrintSource& source, InvoiceKind kind) {
  const InvoiceLines data = std::make_shared<printing::RecordsetData>(source.lines);
  InvoiceSheet sheet = sheetOf(source, kind);
  sheet.lineDiscount = discountOf(*data);
  return designInvoice(sheet, data);
}

std::optional<printing::Report> invoicePrint(const PrintSource& source, InvoiceKind kind) {
  const std::optional<InvoiceLayout> layout = invoiceLayout(source.context.sif);
  if (!layout) return std::nullopt;
  return invoicePrint(*layout, source, kind);
}

}  // namespace velmo::documents
