#include "vouchers/voucher_sheet.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace velmo::vouchers {

using namespace printing;

namespace {

constexpr const char* AmountFormat = "#,##0.00;(#,##0.00)";

struct Title {
  int tranType;
  const char* text;
};

constexpr std::array Titles{Title{22, "PURCHASE VOUCHER"},
                            Title{25, "PURCHASE RETURN VOUCHER"},
                            Title{28, "BANK PAYMENT VOUCHER"},
                            Title{29, "CASH PAYMENT VOUCHER"},
                            Title{32, "SALE VOUCHER"},
                            Title{35, "SALE RETURN VOUCHER"},
                            Title{38, "BANK RECEIPT VOUCHER"},
                            Title{39, "CASH RECEIPT VOUCHER"},
                            Title{41, "GENERAL JOURNAL VOUCHER"},
                            Title{42, "PRODUCTION VOUCHER"},
                            Title{45, "ADD INVENTORY ADJUSTMENT VOUCHER"},
                            Title{47, "REDUCE INVENTORY ADJUSTMENT VOUCHER"}};

std::vector<Column> lineColumns(const std::string& currencyCode) {
  return {{.heading = "Acc Code", .dataField = "acccode", .width = mm(26)},
          {.heading = "Account Name", .dataField = "accname"},
          {.heading = "Debit (" + currencyCode + ")",
           .dataField = "debit",
           .width = mm(36),
           .align = Align::Right,
           .format = AmountFormat,
           .headingName = "DrLbl",
           .totalName = "DebitSum"},
          {.heading = "Credit (" + currencyCode + ")",
           .dataField = "credit",
           .width = mm(36),
           .align = Align::Right,
           .format = AmountFormat,
           .headingName = "CrLbl",
           .totalName = "CreditSum"}};
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

std::string voucherTitle(int tranType) {
  const auto* found =
      std::find_if(Titles.begin(), Titles.end(), [&](const Title& title) { return title.tranType == tranType; });
  if (found == Titles.end())
    throw std::logic_error("documents of type " + std::to_string(tranType) + " have no voucher");
  return found->text;
}

Report voucher2Report(const VoucherSheet& sheet, std::shared_ptr<const ReportData> vouchers) {
  Report report{.title = voucherTitle(sheet.tranType),
                .author = sheet.letterhead.companyName,
                .data = std::move(vouchers),
                .printedOn = sheet.today};
  const Twips width = report.design.bodyWidth();
  const std::vector<ColumnPlace> columns = placeColumns(lineColumns(sheet.currencyCode), width);
  report.design.groups.push_back({.dataMember = "ParentCmd",
                                  .header = voucherHead(report, sheet, columns),
                                  .footer = voucherFoot(report, columns)});
  report.design.detailMember = "ChildCmd";
  report.design.detail = tableLine(columns, width);
  report.design.pageFooter = pageFoot(report, sheet.letterhead, width);
  return report;
}

}  // namespace velmo::vouchers
