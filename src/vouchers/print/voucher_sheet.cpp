#include "vouchers/print/voucher_sheet.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "schema/document_kinds.h"

namespace velmo::vouchers {

using namespace printing;

namespace {

constexpr const char* AmountFormat = "#,##0.00;(#,##0.00)";

struct Voucher {
  int tranType;
  VoucherLayout layout;
  const char* title;
};

using enum VoucherLayout;
using namespace schema::tran_type;
constexpr std::array Vouchers{Voucher{PurchaseBill, Voucher2, "PURCHASE VOUCHER"},
                              Voucher{PurchaseReturn, Voucher2, "PURCHASE RETURN VOUCHER"},
                              Voucher{BankPayment, Voucher1, "BANK PAYMENT VOUCHER"},
                              Voucher{CashPayment, Voucher1, "CASH PAYMENT VOUCHER"},
                              Voucher{SaleInvoice, Voucher2, "SALE VOUCHER"},
                              Voucher{SaleReturn, Voucher2, "SALE RETURN VOUCHER"},
                              Voucher{BankReceipt, Voucher1, "BANK RECEIPT VOUCHER"},
                              Voucher{CashReceipt, Voucher1, "CASH RECEIPT VOUCHER"},
                              Voucher{JournalVoucher, Voucher1, "GENERAL JOURNAL VOUCHER"},
                              Voucher{Production, Voucher2, "PRODUCTION VOUCHER"},
                              Voucher{InventoryAdded, Voucher2, "ADD INVENTORY ADJUSTMENT VOUCHER"},
                              Voucher{InventoryReduced, Voucher2, "REDUCE INVENTORY ADJUSTMENT VOUCHER"}};

const Voucher& voucherOf(int tranType) {
  const auto* found = std::ranges::find(Vouchers, tranType, &Voucher::tranType);
  if (found == Vouchers.end())
    throw std::logic_error("documents of type " + std::to_string(tranType) + " have no voucher");
  return *found;
}

Column amountColumn(const char* side, const std::string& currencyCode, Twips width) {
  return {.heading = std::string(side) + " (" + currencyCode + ")",
          .dataField = side,
          .width = width,
          .align = Align::Right,
          .format = AmountFormat};
}

// With descriptions, names and texts share what the amounts leave.
std::vector<Column> lineColumns(VoucherLayout layout, const std::string& currencyCode) {
  const bool described = layout == Voucher1;
  std::vector<Column> columns = {{.heading = "Acc Code", .dataField = "acccode", .width = mm(described ? 20 : 26)},
                                 {.heading = "Account Name", .dataField = "accname", .width = described ? mm(50) : 0}};
  if (described) columns.push_back({.heading = "Description", .dataField = "desc"});
  columns.push_back(amountColumn("Debit", currencyCode, mm(described ? 30 : 36)));
  columns.back().headingName = "DrLbl";
  columns.back().totalName = "DebitSum";
  columns.push_back(amountColumn("Credit", currencyCode, mm(described ? 30 : 36)));
  columns.back().headingName = "CrLbl";
  columns.back().totalName = "CreditSum";
  return columns;
}

Element caption(Frame at, const char* words) {
  return {.at = at, .content = Label{words}, .colour = ink::Quiet};
}

Element value(const char* name, Frame at, const char* field, const char* format = "") {
  return {.name = name, .at = at, .content = Field{field, format, "ParentCmd"}, .font = {.weight = Weight::SemiBold}};
}

// The head of one voucher: again on the pages that a long one runs on to.
Section voucherHead(Report& report, const VoucherSheet& sheet, const std::vector<ColumnPlace>& columns) {
  const Twips width = report.design.bodyWidth();
  Section head{.name = "Section6", .repeat = Repeat::EveryPage};
  addCompanyLines(report, head, sheet.letterhead);
  report.variables["VLabel"] = voucherTitle(sheet.tranType);
  head.elements.push_back({.name = "VLabel",
                           .at = {0, head.height, width, mm(7)},
                           .font = {.size = 13, .weight = Weight::Bold},
                           .align = Align::Centre,
                           .colour = ink::Accent});
  head.elements.push_back({.name = "cstatus",
                           .at = {0, head.height + mm(7), width, mm(6)},
                           .content = Field{"cstatus", "", "ParentCmd"},
                           .font = {.size = 12, .weight = Weight::Bold},
                           .align = Align::Centre,
                           .colour = ink::Alarm,
                           .whenEmpty = WhenEmpty::Fold});
  const Twips top = head.height + mm(15);
  const Twips right = width - mm(60);
  head.elements.push_back(caption({0, top, mm(26), mm(4.4)}, "Serial No :"));
  head.elements.push_back(value("DocNo", {mm(26), top, mm(60), mm(4.4)}, "docno"));
  head.elements.push_back(caption({right, top, mm(20), mm(4.4)}, "Date :"));
  head.elements.push_back(value("TranDate", {right + mm(20), top, mm(40), mm(4.4)}, "trandate", "dd-MM-yyyy"));
  head.elements.push_back(caption({0, top + mm(5.4), mm(26), mm(4.4)}, "Description :"));
  head.elements.push_back(value("Desc", {mm(26), top + mm(5.4), width - mm(26), mm(4.4)}, "desc"));
  head.elements.back().font = {};
  head.height = top + mm(10.5);
  addColumnHeadings(head, columns, width);
  return head;
}

Section voucherFoot(Report& report, const std::vector<ColumnPlace>& columns) {
  const Twips width = report.design.bodyWidth();
  Section foot{.name = "Section7", .forcePageBreak = PageBreak::After};
  report.variables["TtlLbl"] = "Totals";
  addTotalsRow(foot, columns, width, "TtlLbl");
  const Twips top = foot.height + mm(4);
  foot.elements.push_back(caption({0, top, mm(34), mm(4.4)}, "Amount in Words :"));
  foot.elements.push_back({.name = "WordsAmt",
                           .at = {mm(34), top, width - mm(34), mm(4.4)},
                           .content = Field{"wordsamt", "", "ParentCmd"}});
  foot.height = top + mm(6);
  addSignatures(foot, width, {"Prepared By", "Checked By", "Approved By"});
  return foot;
}

}  // namespace

VoucherLayout voucherLayout(int tranType) {
  return voucherOf(tranType).layout;
}

std::string voucherTitle(int tranType) {
  return voucherOf(tranType).title;
}

Report voucherReport(VoucherLayout layout, const VoucherSheet& sheet, std::shared_ptr<const ReportData> vouchers) {
  Report report{.title = voucherTitle(sheet.tranType),
                .author = sheet.letterhead.companyName,
                .data = std::move(vouchers),
                .printedOn = sheet.today};
  const Twips width = report.design.bodyWidth();
  const std::vector<ColumnPlace> columns = placeColumns(lineColumns(layout, sheet.currencyCode), width);
  report.design.groups.push_back({.dataMember = "ParentCmd",
                                  .header = voucherHead(report, sheet, columns),
                                  .footer = voucherFoot(report, columns)});
  report.design.detailMember = "ChildCmd";
  report.design.detail = tableLine(columns, width);
  report.design.pageFooter = pageFoot(report, sheet.letterhead, width);
  return report;
}

}  // namespace velmo::vouchers
