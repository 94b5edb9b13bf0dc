#include "documents/stock/stock_print.h"

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

constexpr Twips leastDescription = mm(28);
constexpr Twips rowHeight = mm(4.6);  // of a reference
constexpr Twips captionWidth = mm(34);
constexpr Twips gap = mm(6);

std::vector<Column> columnsOf(const StockPaper& paper) {
  return {{.heading = "No.", .dataField = "serial", .width = mm(9), .align = Align::Centre},
          {.heading = "Item Code", .dataField = "itemcode", .width = mm(24)},
          {.heading = "Description", .dataField = "itemname"},
          figureColumn("Quantity", paper.quantityField, mm(18)),
          {.heading = "Unit", .dataField = "unit", .width = mm(11)},
          figureColumn("Rate", "rate", mm(19)),
          figureColumn("Amount", "grossamt", mm(23), AmountFormat, "GrossSum"),
          figureColumn("Discount", "discamt", mm(18), AmountFormat, "DiscountSum"),
          figureColumn("Value Excl. Tax", "itemvalue", mm(23), AmountFormat, "NetSum")};
}

std::vector<Reference> whichDocument(const frame::DocumentValues& onScreen) {
  return {{"nolbl", "Serial No.", "docno", onScreen.DocNo},
          {"datelbl", "Date", "trandate", text::formatDate(onScreen.TrDate, "dd-mm-yyyy")},
          {"emplbl", "Employee Reference", "emptxt", onScreen.EmpList.text}};
}

std::vector<Reference> places(const StockPaper& paper, const frame::DocumentValues& onScreen) {
  if (paper.movement == StockMovement::BetweenPlaces)
    return {{"fromlbl", "From Location", "loctxt1", onScreen.LocationList.text},
            {"tolbl", "To Location", "loctxt2", onScreen.LocationListTo.text},
            {"jobfromlbl", "From Job No.", "jobtxt1", onScreen.JobList.text},
            {"jobtolbl", "To Job No.", "jobtxt2", onScreen.JobListTo.text}};
  return {{"loclbl", "Inventory Location", "loctxt", onScreen.LocationList.text},
          {"joblbl", "Job No & Description", "jobtxt", onScreen.JobList.text}};
}

Section references(Report& report, const StockPaper& paper, const frame::DocumentValues& onScreen, Twips width) {
  Section section{.name = "Section4", .keep = Keep::MayBreak};
  const Twips half = (width - gap) / 2;
  const Twips left = addReferences(report, section, {0, 0, half, rowHeight}, captionWidth, whichDocument(onScreen));
  const Twips right =
      addReferences(report, section, {half + gap, 0, half, rowHeight}, captionWidth, places(paper, onScreen));
  section.height = std::max(left, right);
  section.elements.push_back(
      {.name = "remLbl", .at = {0, section.height + mm(1), width, mm(4.4)}, .whenEmpty = WhenEmpty::Fold});
  report.variables["remLbl"] = onScreen.Desc;
  section.height += mm(6);
  return section;
}

Section closing(const std::vector<ColumnPlace>& columns, Twips width) {
  Section foot{.name = "Section5"};
  addTotalsRow(foot, columns, width, "Tlbl");
  foot.elements.push_back({.name = "wrdslbl", .at = {0, foot.height + mm(2), width, mm(4.4)}, .font = {.size = 9}});
  foot.height += mm(20);
  addSignatures(foot, width, {"Prepared By", "Store Keeper", "Authorised Signature"});
  return foot;
}

}  // namespace

Report stockPrint(const StockPaper& paper, const session::LoginContext& context, const frame::DocumentValues& onScreen,
                  const store::Recordset& lines, const text::DateTime& today) {
  const Letterhead letterhead = letterheadOf(context);
  const auto data = std::make_shared<RecordsetData>(lines);
  Report report{.title = paper.title,
                .author = letterhead.companyName,
                .design = {.paper = A4, .margins = {mm(10), mm(12), mm(10), mm(10)}, .detailMember = LinesLevel},
                .data = documentData(data),
                .printedOn = today};
  report.variables = {
      {"vlabel", paper.heading}, {"Tlbl", "Total  " + context.ccode}, {"wrdslbl", onScreen.totals.AmtWords}};
  if (!onScreen.Cancel) report.hidden.insert("clbl");
  const Twips width = report.design.bodyWidth();
  const FittedColumns fitted = fitColumns(columnsOf(paper), *data, width, leastDescription, TableFont.size);
  const std::vector<ColumnPlace> columns = placeColumns(fitted.columns, width);

  Section head{.name = "Section2"};
  addCompanyHead(report, head, letterhead);
  addPaperTitle(head, width);
  Section headings{.name = "TableHead", .height = mm(3), .repeat = Repeat::AboveRows};
  addColumnHeadings(headings, columns, width);
  Section line = tableLine(columns, width);
  Section totals = closing(columns, width);
  const double size = fitted.size / TableFont.size;
  for (Element& element : totals.elements)  // the sums stand in the size of their columns
    if (std::holds_alternative<Function>(element.content)) element.font.size = fitted.size;
  for (Section* section : {&headings, &line}) condense(*section, {.lengths = 1, .fonts = size});

  report.design.pageHeader = std::move(head);
  report.design.groups = {{.dataMember = DocumentLevel, .header = references(report, paper, onScreen, width)},
                          {.dataMember = TableLevel, .header = std::move(headings), .footer = std::move(totals)}};
  report.design.detail = std::move(line);
  report.design.pageFooter = pageFoot(report, letterhead, width);
  return report;
}

void showStockPrint(session::Workplace& workplace, const StockPaper& paper, const frame::DocumentValues& onScreen,
                    QWidget* screen) {
  session::LoginContext& context = workplace.context;
  Report report = stockPrint(paper, context, onScreen, context.PrintRS, workplace.clock.today());
  showPreview(screen, std::move(report), workplace.files, [&context] { context.PrintRS = {}; });
}

}  // namespace velmo::documents
