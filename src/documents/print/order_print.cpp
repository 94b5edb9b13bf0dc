#include "documents/print/order_print.h"

#include "documents/print/line_columns.h"
#include "documents/print/paper_page.h"
#include "documents/print/show_print.h"
#include "frame/posting/document_totals.h"
#include "printing/recordset_data.h"
#include "text/format.h"

namespace velmo::documents {

using namespace printing;

namespace {

Reference referenceOf(const PaperField& field, std::string text) {
  return {field.name + "Caption", field.caption, field.name, std::move(text)};
}

std::vector<Reference> referencesOf(const std::vector<PaperField>& fields, const store::Recordset& document) {
  std::vector<Reference> references;
  for (const PaperField& field : fields) references.push_back(referenceOf(field, document.text(field.column)));
  return references;
}

std::vector<Reference> besideParty(const OrderPrint& print, const store::Recordset& document) {
  std::vector<Reference> references = {
      referenceOf({"docno", print.number, {}}, document.text("DocNo")),
      referenceOf({"trandate", "Date", {}}, text::formatDate(document.date("TranDate"), "dd-mm-yyyy")),
      referenceOf({"nature", "Terms of Payment", {}}, document.text("Nature"))};
  for (Reference& reference : referencesOf(print.references, document)) references.push_back(std::move(reference));
  return references;
}

std::vector<PaperNote> notesOf(const OrderPrint& print, const PrintSource& source) {
  std::vector<PaperNote> notes;
  const auto add = [&notes](const PaperField& field, const std::string& text) {
    if (!QString::fromStdString(text).trimmed().isEmpty()) notes.push_back({field.name, field.caption, text});
  };
  for (const PaperField& field : print.notes) add(field, source.document.text(field.column));
  if (!print.standingTerms) return notes;
  const std::string& column = print.standingTerms->column;
  const store::Recordset company(source.context.KORDconn, "Select " + column + " from businessinfo",
                                 store::LockType::ReadOnly);
  if (!company.isEmpty()) add(*print.standingTerms, company.text(column));
  return notes;
}

PaperTexts textsOf(const OrderPrint& print, const PrintSource& source) {
  const auto& [context, document, lines, state, today] = source;
  const double total = document.number("tramount");
  PaperTexts texts{.title = print.title,
                   .heading = print.heading,
                   .number = print.number,
                   .docno = document.text("DocNo"),
                   .party = print.party,
                   .partyname = document.text("text1"),
                   .partyadd = document.text("text2"),
                   .partytel = document.text("text3"),
                   .references = besideParty(print, document),
                   .across = referencesOf(print.across, document),
                   .currencyCode = context.ccode,
                   .totals = {{"Tlbl4", print.total + context.ccode, "NetTotalAmt",
                               text::formatNumber(total, AmountFormat), Emphasis::Strong}},
                   .words = context.currencyname + " " + frame::amountInWordsOnly(total),
                   .notes = notesOf(print, source),
                   .letterhead = letterheadOf(context),
                   .state = state,
                   .today = today};
  if (print.letterhead && context.*print.letterhead->format == print.letterhead->onLetterhead) {
    texts.headStyle = HeadStyle::OwnLetterhead;
    texts.topMargin = context.*print.letterhead->topMargin;
  }
  return texts;
}

// Without a discount on any line there are no columns for it.
std::vector<Column> columnsOf(const OrderPrint& print, const ReportData& lines) {
  bool discounted = false;
  for (const auto rows = lines.rows(); rows->next();)
    discounted = discounted || store::numberOf(rows->value("discamt")) != 0;
  std::vector<Column> columns = {numberColumn(mm(9)), codeColumn("Item Code", mm(24)), descriptionColumn(),
                                 quantityColumn(print.quantity, mm(18)), unitColumn(mm(12))};
  if (!discounted) {
    columns.insert(columns.end(), {rateColumn(mm(24)), netColumn("Amount", mm(28))});
    return columns;
  }
  columns.insert(columns.end(), {rateColumn(mm(19)), grossColumn("Gross Amount", mm(23)), discountColumn(mm(18)),
                                 netColumn("Net Amount", mm(23))});
  return columns;
}

}  // namespace

std::vector<PaperField> transport() {
  return {{"suplbl", "Time of Supply", "Text6"}, {"vehlbl", "Vehicle", "Text7"}, {"driverlbl", "Driver", "Text8"}};
}

PaperField remarks() {
  return {"remlbl", "Remarks", "Desc"};
}

Report orderPrint(const OrderPrint& print, const PrintSource& source) {
  const auto lines = std::make_shared<RecordsetData>(source.lines);
  const PaperPage page{.columns = columnsOf(print, *lines), .signatures = print.signatures};
  return paperOnPages(page, textsOf(print, source), lines);
}

void showOrder(const OrderPrint& print, session::Workplace& workplace, const frame::DocumentValues& onScreen,
               QWidget* screen) {
  showPrint(workplace, onScreen, screen, [&print](const PrintSource& source) { return orderPrint(print, source); });
}

}  // namespace velmo::documents
