#include "documents/production/production_print.h"

#include "documents/print/document_print_data.h"
#include "documents/print/line_columns.h"
#include "documents/print/paper_title.h"
#include "documents/print/print_columns.h"
#include "printing/pieces.h"
#include "printing/preview_window.h"
#include "printing/recordset_data.h"
#include "text/format.h"

namespace velmo::documents {

using namespace printing;

namespace {

constexpr Twips leastName = mm(26);
constexpr Twips rowHeight = mm(4.6);  // of a reference
constexpr Twips captionWidth = mm(34);
constexpr Twips gap = mm(6);

// The amounts of a side are blank in the lines of the other, but for the sums they are 0 there.
std::vector<Column> tableColumns() {
  return {{.heading = "Item Code", .dataField = "itemcode", .width = mm(20)},
          {.heading = "Item Name", .dataField = "itemname"},
          figureColumn("Qty In", "Qty", mm(15)),
          {.heading = "Unit", .dataField = "unit", .width = mm(9)},
          figureColumn("Rate", "Rate", mm(17)),
          figureColumn("Amount", "grossamt", mm(21), AmountFormat, "valueout"),
          figureColumn("Qty Out", "Qtyout", mm(15)),
          {.heading = "Unit", .dataField = "unitout", .width = mm(9)},
          figureColumn("Rate", "Rateout", mm(17)),
          figureColumn("Amount", "grossamtout", mm(21), AmountFormat, "valuein")};
}

Section references(Report& report, const frame::DocumentValues& onScreen, Twips width) {
  Section section{.name = "Section4", .keep = Keep::MayBreak};
  const Twips half = (width - gap) / 2;
  const Twips left = addReferences(report, section, {0, 0, half, rowHeight}, captionWidth,
                                   {{"nolbl", "Serial No.", "docno", onScreen.DocNo},
                                    {"datelbl", "Date", "trandate", text::formatDate(onScreen.TrDate, "dd-mm-yyyy")},
                                    {"loclbl", "Inventory Location", "loctxt", onScreen.LocationList.text}});
  const Twips right = addReferences(report, section, {half + gap, 0, half, rowHeight}, captionWidth,
                                    {{"joblbl", "Job No & Description", "jobtxt", onScreen.JobList.text},
                                     {"emplbl", "Employee Reference", "emptxt", onScreen.EmpList.text},
                                     {"oslbl", "Outsourced To", "osparty", onScreen.PartyNameTxt}});
  section.height = std::max(left, right);
  section.elements.push_back(
      {.name = "remLbl", .at = {0, section.height + mm(1), width, mm(4.4)}, .whenEmpty = WhenEmpty::Fold});
  report.variables["remLbl"] = onScreen.Desc;
  section.height += mm(6);
  return section;
}

// Each side is summed up by the field that holds a figure in every line.
void addSums(Section& foot, const std::vector<ColumnPlace>& columns, Twips width, double size) {
  addTotalsRow(foot, columns, width, "Tlbl");
  for (Element& element : foot.elements)
    if (auto* function = std::get_if<Function>(&element.content)) {
      function->dataField = element.name;
      element.font.size = size;
    }
}

Section closing(Report& report, const FittedColumns& fitted, const frame::DocumentValues& onScreen, Twips width) {
  Section foot{.name = "Section5"};
  addSums(foot, placeColumns(fitted.columns, width), width, fitted.size);
  const auto cost = [&onScreen](const char* name) { return text::formatText(onScreen.field(name), AmountFormat); };
  const Twips lowest =
      addTotals(report, foot, foot.height + mm(2), width,
                {{"matlbl2", "Material Cost  ", "matlbl", cost("TotM")},
                 {"lablbl2", "Labour Cost  ", "lablbl", cost("TotL")},
                 {"fohlbl2", "Factory Overhead  ", "fohlbl", cost("TotFOH")},
                 {"oslbl2", "Outsourcing Charges  ", "oschlbl", cost("TotOS")},
                 {"coplbl2", "Total Cost of Production  ", "coplbl", cost("TotCOP"), Emphasis::Strong}});
  foot.elements.push_back({.name = "wrdslbl", .at = {0, lowest + mm(2), width, mm(4.4)}, .font = {.size = 9}});
  foot.height = lowest + mm(20);
  addSignatures(foot, width, {"Prepared By", "Production In Charge", "Authorised Signature"});
  return foot;
}

}  // namespace

Report productionPrint(const session::LoginContext& context, const frame::DocumentValues& onScreen,
                       const store::Recordset& lines, const text::DateTime& today) {
  const Letterhead letterhead = letterheadOf(context);
  const auto data = std::make_shared<RecordsetData>(lines);
  Report report{.title = "Production",
                .author = letterhead.companyName,
                .design = {.paper = A4, .margins = {mm(10), mm(12), mm(10), mm(10)}, .detailMember = LinesLevel},
                .data = documentData(data),
                .printedOn = today};
  report.variables = {
      {"vlabel", "PRODUCTION"}, {"Tlbl", "Total  " + context.ccode}, {"wrdslbl", onScreen.field("AmtWords")}};
  if (!onScreen.Cancel) report.hidden.insert("clbl");
  const Twips width = report.design.bodyWidth();
  const FittedColumns fitted = fitColumns(tableColumns(), *data, width, leastName, TableFont.size);
  const std::vector<ColumnPlace> columns = placeColumns(fitted.columns, width);

  Section head{.name = "Section2"};
  addCompanyHead(report, head, letterhead);
  addPaperTitle(head, width);
  Section headings{.name = "TableHead", .height = mm(3), .repeat = Repeat::AboveRows};
  addColumnHeadings(headings, columns, width);
  Section line = tableLine(columns, width);
  for (Section* section : {&headings, &line}) condense(*section, {.lengths = 1, .fonts = fitted.size / TableFont.size});

  report.design.pageHeader = std::move(head);
  Section foot = closing(report, fitted, onScreen, width);
  report.design.groups = {{.dataMember = DocumentLevel, .header = references(report, onScreen, width)},
                          {.dataMember = TableLevel, .header = std::move(headings), .footer = std::move(foot)}};
  report.design.detail = std::move(line);
  report.design.pageFooter = pageFoot(report, letterhead, width);
  return report;
}

void showProductionPrint(session::Workplace& workplace, const frame::DocumentValues& onScreen, QWidget* screen) {
  session::LoginContext& context = workplace.context;
  Report report = productionPrint(context, onScreen, context.PrintRS, workplace.clock.today());
  showPreview(screen, std::move(report), workplace.files, [&context] { context.PrintRS = {}; });
}

}  // namespace velmo::documents
