#include "vouchers/journal/general_journal_type.h"

#include "frame/document/document_screen.h"
#include "text/number.h"
#include "vouchers/journal/find_journals.h"
#include "vouchers/journal/journal_body.h"

namespace velmo::vouchers {

namespace {

using frame::DocumentValues;
using frame::SaveSituation;

// The texts are compared: to the second decimal and no further.
frame::ValidationStep totalsAreEqual() {
  return {.fails = [](const DocumentValues& v, const SaveSituation&) { return v.field("DTot") != v.field("CTot"); },
          .text = "Totals of debits and credits must be equal.",
          .control = "Grid"};
}

void writeHeader(const DocumentValues& values, const session::LoginContext&, frame::HeaderRow& row) {
  const double total = text::amountFrom(values.field("DTot"));
  row.set("TrAmount", total);
  row.set("WordsAmt", frame::amountInWordsOnly(total));
}

}  // namespace

frame::DocumentType generalJournalType() {
  return {.form = schema::documentForm("GeneralJournal"),
          .title = "GENERAL JOURNAL",
          .duplicateText = "This Serial No. already exists. Saving this would create duplicate values.",
          .find = findJournals(),
          .makeBody = [](const frame::BodyPlace& place) -> std::shared_ptr<frame::DocumentBody> {
            return std::make_shared<JournalBody>(place);
          },
          .locationChoice = frame::LocationChoice::None,
          .printCommands = frame::PrintCommands::VoucherOnly,
          .validation = {frame::jobIsListedOrBlank(), frame::employeeIsListedOrBlank(), totalsAreEqual()},
          .header = writeHeader};
}

QWidget* makeGeneralJournal(session::Workplace& workplace, QWidget* parent, frame::PrintOuts printOuts) {
  return new frame::DocumentScreen(generalJournalType(), workplace, std::move(printOuts), parent);
}

}  // namespace velmo::vouchers
