#include "masters/people/job_card_print.h"

#include "printing/pieces.h"
#include "printing/recordset_data.h"
#include "printing/report_walk.h"

namespace velmo::masters {

using namespace printing;

namespace {

constexpr const char* AmountFormat = "#,##0.00;(#,##0.00)";
constexpr Twips BlockGap = mm(4);
constexpr Twips HeadingHeight = mm(6.2);
constexpr Twips EntryHeight = mm(10.5);
constexpr Twips Inset = mm(1.6);

// What stands under its caption in a place of the form, which is four wide.
struct Entry {
  std::string caption = {};
  int column = 0;
  int span = 1;
  Content content = {};
  std::string name = {};
};

class Form {
 public:
  Form(Section& section, Twips width) : section_(section), width_(width) {}

  void beginBlock(const std::string& heading) {
    section_.height += BlockGap;
    const Twips top = section_.height;
    section_.elements.push_back(
        {.at = {0, top, width_, HeadingHeight}, .content = Box{.fill = ink::Band}, .stretch = Stretch::WithContents});
    section_.elements.push_back({.at = {Inset, top + mm(1.2), width_ - 2 * Inset, mm(3.8)},
                                 .content = Label{heading},
                                 .font = {.size = 8.5, .weight = Weight::SemiBold},
                                 .colour = ink::Accent});
    section_.height += HeadingHeight + mm(1.4);
  }

  // A text over the whole width, without a caption of its own.
  void addText(const Content& content) {
    section_.elements.push_back(
        {.at = {Inset, section_.height, width_ - 2 * Inset, mm(5)}, .content = content, .font = {.size = 10}});
    section_.height += mm(14);
  }

  void addRow(const std::vector<Entry>& entries) {
    for (const Entry& entry : entries) {
      const Twips left = entry.column * width_ / 4 + Inset;
      const Twips width = entry.span * width_ / 4 - 2 * Inset;
      section_.elements.push_back({.at = {left, section_.height, width, mm(3.4)},
                                   .content = Label{entry.caption},
                                   .font = {.size = 7.5},
                                   .colour = ink::Quiet});
      section_.elements.push_back({.name = entry.name,
                                   .at = {left, section_.height + mm(3.8), width, mm(5)},
                                   .content = entry.content,
                                   .font = {.size = 10}});
    }
    section_.height += EntryHeight;
  }

 private:
  Section& section_;
  Twips width_;
};

// The one place of the form that says one of two things.
void addState(Section& section, Frame at) {
  const auto isClosed = [](const RowScope& rows) { return store::isYes(rows.value("status")); };
  const FontSpec font{.size = 12, .weight = Weight::Bold};
  section.elements.push_back({.name = "Closed",
                              .at = at,
                              .content = Label{"CLOSED"},
                              .font = font,
                              .align = Align::Right,
                              .colour = ink::Accent,
                              .visibleWhen = isClosed});
  section.elements.push_back({.name = "Open",
                              .at = at,
                              .content = Label{"OPEN"},
                              .font = font,
                              .align = Align::Right,
                              .colour = ink::Quiet,
                              .visibleWhen = [isClosed](const RowScope& rows) { return !isClosed(rows); }});
}

Section card(const std::string& currencyCode, Twips width) {
  const std::string amountIn = currencyCode.empty() ? "" : " (" + currencyCode + ")";
  Section section{.name = "Section1", .keep = Keep::MayBreak};
  section.elements.push_back({.at = {0, 0, width / 2, mm(7)},
                              .content = Label{"JOB CARD"},
                              .font = {.size = 15, .weight = Weight::Bold},
                              .colour = ink::Accent});
  addState(section, {width / 2, mm(1), width - width / 2, mm(6)});
  section.height = mm(6);
  Form form(section, width);
  form.beginBlock("Job");
  form.addRow({{"Job No.", 0, 1, Field{"jobno", {}, {}}},
               {"Job Date", 1, 1, Field{"jobdate", "dd-mm-yyyy", {}}},
               {"In Charge", 2, 2, Label{}, "InCharge"}});
  form.addRow({{"Description", 0, 4, Field{"jobdesc", {}, {}}}});
  form.beginBlock("Customer");
  form.addRow(
      {{"Customer Code", 0, 1, Field{"customercode", {}, {}}}, {"Customer Name", 1, 3, Field{"customername", {}, {}}}});
  form.addRow({{"Address", 0, 2, Field{"address", {}, {}}},
               {"Telephone", 2, 1, Field{"telephone", {}, {}}},
               {"Contact", 3, 1, Field{"contact", {}, {}}}});
  form.beginBlock("Order and Delivery");
  form.addRow({{"Order Ref. & Date", 0, 2, Field{"orderrefdate", {}, {}}},
               {"Expected Delivery", 2, 2, Field{"expdeliverydate", {}, {}}}});
  form.addRow({{"Delivery Ref. & Date", 0, 2, Field{"deliveryrefdate", {}, {}}},
               {"Completion Date", 2, 2, Field{"completiondate", {}, {}}}});
  form.beginBlock("Amounts");
  form.addRow({{"Estimated Cost" + amountIn, 0, 2, Field{"estimatedcost", AmountFormat, {}}},
               {"Value of Work" + amountIn, 2, 2, Field{"valueofwork", AmountFormat, {}}}});
  form.beginBlock("Remarks");
  form.addText(Field{"remarks", {}, {}});
  addSignatures(section, width, {"Prepared By", "In Charge", "Customer"});
  return section;
}

std::string inChargeOf(session::LoginContext& context, const store::Recordset& job) {
  const store::Value id = job.isEmpty() ? store::Null{} : job.valueAt(0, job.fieldIndex("inchargeid"));
  if (store::isNull(id)) return {};
  const store::Recordset employee(context.KORDconn,
                                  "select EmpName from Employees where Empid = " + std::to_string(store::integerOf(id)),
                                  store::LockType::ReadOnly);
  return employee.eof() ? std::string() : employee.text("EmpName");
}

}  // namespace

Report jobCardPrint(session::LoginContext& context, const store::Recordset& job, text::DateTime today) {
  Report report{.title = "Job Card",
                .author = context.CompanyName,
                .data = std::make_shared<RecordsetData>(job),
                .printedOn = today};
  const Letterhead letterhead = letterheadOf(context);
  report.variables["InCharge"] = inChargeOf(context, job);
  report.design.pageHeader = Section{.name = "Section2"};
  addCompanyHead(report, *report.design.pageHeader, letterhead);
  report.design.detail = card(context.ccode, report.design.bodyWidth());
  report.design.pageFooter = pageFoot(report, letterhead, report.design.bodyWidth());
  return report;
}

}  // namespace velmo::masters
