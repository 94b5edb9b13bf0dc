#include "documents/invoice_sheet.h"

#include "text/format.h"

namespace velmo::documents {

using namespace printing;

namespace {

constexpr const char* AmountFormat = "#,##0.00; (#,##0.00)";

std::string amount(double value) {
  return text::formatNumber(value, AmountFormat);
}

std::vector<Column> lineColumns(bool service) {
  return {
      {.heading = "No.", .dataField = "serial", .width = mm(8), .align = Align::Centre},
      {.heading = service ? "Service" : "Item Code", .dataField = "itemcode", .width = mm(19)},
      {.heading = service ? "Description of Service" : "Description", .dataField = "itemname", .headingName = "lbl5"},
      {.heading = "Quantity", .dataField = "stockout", .width = mm(17), .align = Align::Right, .format = AmountFormat},
      {.heading = "Unit", .dataField = "unit", .width = mm(10)},
      {.heading = "Rate", .dataField = "rate", .width = mm(20), .align = Align::Right, .format = AmountFormat},
      {.heading = "Gross Amount",
       .dataField = "grossamt",
       .width = AmountColumn,
       .align = Align::Right,
       .format = AmountFormat,
       .totalName = "GrossSum"},
      {.heading = "Discount",
       .dataField = "discamt",
       .width = AmountColumn,
       .align = Align::Right,
       .format = AmountFormat,
       .totalName = "DiscountSum"},
      {.heading = "Net Amount",
       .dataField = "itemvalue",
       .width = AmountColumn,
       .align = Align::Right,
       .format = AmountFormat,
       .totalName = "NetSum"}};
}

// Title, and the mark of a cancelled document beside it.
void addTitle(Report& report, Section& head, const InvoiceSheet& sheet) {
  const Twips width = report.design.bodyWidth();
  head.elements.push_back({.name = "vlabel",
                           .at = {0, head.height, width * 2 / 3, mm(7)},
                           .content = Label{"SALE INVOICE"},
                           .font = {.size = 14, .weight = Weight::Bold},
                           .colour = ink::Accent});
  head.elements.push_back({.name = "clbl",
                           .at = {width * 2 / 3, head.height, width - width * 2 / 3, mm(7)},
                           .content = Label{"CANCELLED"},
                           .font = {.size = 14, .weight = Weight::Bold},
                           .align = Align::Right,
                           .colour = ink::Alarm});
  head.height += mm(9);
  if (sheet.request.kind == InvoiceKind::Service) report.variables["vlabel"] = "SERVICE INVOICE";
  if (sheet.request.state != DocumentState::Cancelled) report.hidden.insert("clbl");
}

void addParty(Report& report, Section& head, const InvoiceSheet& sheet) {
  const Twips width = report.design.bodyWidth();
  const Twips split = mm(112);
  const Twips top = head.height;
  const bool service = sheet.request.kind == InvoiceKind::Service;
  report.variables["partyname"] = sheet.partyname;
  report.variables["partyadd"] = sheet.partyadd;
  report.variables["partytel"] = sheet.partytel.empty() ? "" : "Tel: " + sheet.partytel;
  const Twips inner = split - mm(12);
  head.elements.push_back(
      {.at = {0, top, split - mm(6), mm(25)}, .content = Box{.outline = ink::Rule}, .stretch = Stretch::WithContents});
  head.elements.push_back({.at = {mm(3), top + mm(2), inner, mm(3.6)},
                           .content = Label{"Bill To"},
                           .font = {.size = 7.5},
                           .colour = ink::Quiet});
  head.elements.push_back({.name = "partyname",
                           .at = {mm(3), top + mm(5.8), inner, mm(5.2)},
                           .font = {.size = 10.5, .weight = Weight::SemiBold}});
  head.elements.push_back({.name = "partyadd", .at = {mm(3), top + mm(11.4), inner, mm(4.2)}});
  head.elements.push_back(
      {.name = "partytel", .at = {mm(3), top + mm(16), inner, mm(4.2)}, .whenEmpty = WhenEmpty::Fold});
  addReferences(report, head, {split, top, width - split, 0}, mm(31),
                {{"label3", service ? "Service Invoice No." : "Invoice No.", "docno", sheet.docno},
                 {"datelbl", "Date", "trandate", text::formatDate(sheet.trandate, "dd-mm-yyyy")},
                 {"naturelbl", "Terms of Payment", "nature", sheet.nature},
                 {"d1lbl", "Purchase Order No.", "d1txt", sheet.d1txt},
                 {"d1dtlbl", "Dated", "d1dttxt", sheet.d1dttxt},
                 {"d2lbl", "Delivery Challan No.", "d2txt", sheet.d2txt},
                 {"d2dtlbl", "Dated", "d2dttxt", sheet.d2dttxt}});
  head.height = top + mm(35);
}

Section closing(Report& report, const InvoiceSheet& sheet, const std::vector<ColumnPlace>& columns) {
  const Twips width = report.design.bodyWidth();
  Section foot{.name = "Section5"};
  report.variables["Tlbl"] = "Totals  " + sheet.currencyCode;
  addTotalsRow(foot, columns, width, "Tlbl");
  const Twips top = foot.height + mm(2);
  const std::string& code = sheet.currencyCode;
  const Twips lowest =
      addTotals(report, foot, top, width,
                {{"Tlbl1", "Additional Discount  " + code, "DiscountAmt", amount(sheet.discount)},
                 {"Tlbl2", "Gross Total  " + code, "GrossTotalAmt", amount(sheet.netTotal - sheet.carriage)},
                 {"Tlbl3", "Carriage & Freight  " + code, "CarriageAmt", amount(sheet.carriage)},
                 {"Tlbl4", "Net Total  " + code, "NetTotalAmt", amount(sheet.netTotal), Emphasis::Strong},
                 {"Tlbl5", "Amount Received  " + code, "ReceivedAmt", amount(sheet.received)},
                 {"Tlbl6", "Balance  " + code, "BalanceAmt", amount(sheet.balance)}});
  report.variables["wrdslbl"] = sheet.words;
  foot.elements.push_back({.at = {0, top + mm(1), mm(96), mm(3.6)},
                           .content = Label{"Amount in Words"},
                           .font = {.size = 7.5},
                           .colour = ink::Quiet});
  foot.elements.push_back({.name = "wrdslbl", .at = {0, top + mm(4.8), mm(96), mm(4.4)}, .font = {.size = 9}});
  foot.height = lowest;
  report.variables["printbylbl"] = "Prepared By: " + sheet.letterhead.userName;
  foot.elements.push_back({.name = "printbylbl", .at = {0, lowest + mm(17), mm(96), mm(4)}, .colour = ink::Quiet});
  addSignatures(foot, width, {"Authorised Signature"});
  return foot;
}

}  // namespace

Report invoiceReport(const InvoiceSheet& sheet, std::shared_ptr<const ReportData> lines) {
  const bool service = sheet.request.kind == InvoiceKind::Service;
  Report report{.title = "Sale Invoice",
                .author = sheet.letterhead.companyName,
                .data = std::move(lines),
                .printedOn = sheet.request.today};
  report.design.margins.left = report.design.margins.right = mm(10);
  Section head{.name = "Section2"};
  if (sheet.headStyle == HeadStyle::Company)
    addCompanyHead(report, head, sheet.letterhead);
  else
    report.design.margins.top = sheet.topMargin;
  addTitle(report, head, sheet);
  addParty(report, head, sheet);
  const Twips width = report.design.bodyWidth();
  const std::vector<ColumnPlace> columns = placeColumns(lineColumns(service), width);
  addColumnHeadings(head, columns, width);
  report.design.pageHeader = std::move(head);
  report.design.detail = tableLine(columns, width);
  report.design.reportFooter = closing(report, sheet, columns);
  report.design.pageFooter = pageFoot(report, sheet.letterhead, width);
  return report;
}

}  // namespace velmo::documents
