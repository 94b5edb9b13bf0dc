#include "documents/print/paper_texts.h"

#include "documents/print/document_print_data.h"

namespace velmo::documents {

using namespace printing;

Report paperReport(const PaperTexts& texts, const std::shared_ptr<const ReportData>& lines, Paper paper,
                   Margins margins) {
  Report report{.title = texts.title,
                .author = texts.letterhead.companyName,
                .design = {.paper = paper, .margins = margins, .detailMember = LinesLevel},
                .data = documentData(lines),
                .printedOn = texts.today};
  if (texts.headStyle == HeadStyle::OwnLetterhead) report.design.margins.top = texts.topMargin;
  report.variables = {{"vlabel", texts.heading},
                      {"lbl5", texts.description},
                      {"partyname", texts.partyname},
                      {"partyadd", texts.partyadd},
                      {"partytel", texts.partytel.empty() ? "" : "Tel: " + texts.partytel},
                      {"Tlbl", "Totals  " + texts.currencyCode},
                      {"wrdslbl", texts.words},
                      {"printbylbl", "Prepared By: " + texts.letterhead.userName}};
  if (texts.state != DocumentState::Cancelled) report.hidden.insert("clbl");
  return report;
}

}  // namespace velmo::documents
