#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/document/find_type.h"
#include "frame/posting/aging.h"
#include "frame/posting/document_number.h"
#include "frame/posting/document_values.h"
#include "frame/posting/header_row.h"
#include "frame/posting/posting_table.h"
#include "frame/posting/validation.h"
#include "schema/document_kinds.h"
#include "session/workplace.h"

class QWidget;

namespace velmo::frame {

enum class FieldKind {
  Text,
  Choice,  // one of `choices`; its index is the value
  Day,     // a date, today on a new document; its text is the value
  Unseen   // no control: the shown document's value is kept, a new one gets `initial`
};

enum class FieldPlace {
  Head,       // beside the serial number and the date
  Reference,  // begins a row of references
  Beside      // behind the reference before it, in the same row
};

// A field of the document's own, and the column of `Transactions` that holds it.
struct DocumentField {
  std::string_view name;  // the control's
  std::string_view column;
  std::string_view label = {};
  FieldKind kind = FieldKind::Text;
  FieldPlace place = FieldPlace::Reference;
  std::vector<std::string_view> choices = {};
  std::string_view initial = {};  // of a new document; of a choice also what an unknown stored value means
  std::string_view opens = {};    // screen of the documents whose number the field holds; "" for none
};

// A typed reference finds the date of the document it names, when the focus leaves it.
struct DateLookup {
  std::string_view from;
  std::string_view to;
  // The statement whose first column `trandate` is wanted; "" when the text names nothing.
  std::function<std::string(const std::string& typed, int fyid)> statement;
};

// The command that opens the master screen of a party or an item.
struct MasterCommand {
  std::string_view caption;
  int right = 0;
  std::string_view dialog;
};

class DocumentBody;
struct BodyPlace;

// Whether goods of a stock location are in the document.
enum class LocationChoice {
  Shown,
  OfCompany,  // of the company's own, which is not shown
  FromAndTo,  // they leave one and arrive at another
  None
};

enum class JobChoice { Shown, FromAndTo, None };
enum class EmployeeChoice { Shown, None };

enum class PrintCommands {
  DocumentAndVoucher,
  VoucherOnly,   // the ledger voucher is the document's print-out
  DocumentOnly,  // there are no ledger lines to print
  None
};

enum class DateChoice {
  Shown,
  DayOfSave  // of a record that holds until it is changed: nobody gives it, and no year bounds it
};

enum class CancelChoice {
  Shown,
  Always  // of a record beside the books: its lines count nowhere
};

// What the opening of the screen asks of the costs of items.
enum class CostsOnOpening {
  AsTheyStand,
  ToYearEnd  // lines propose them: they are brought up to date
};

enum class AfterPrint {
  NewDocument,
  StayOnSaved,  // the screen goes on showing what it printed, as if it were not saved yet
  ShowSaved     // the saved document is shown, and what follows changes it
};

// Makes a document of another kind from this one, which is saved first.
struct ConversionCommand {
  std::string_view name;
  std::string_view caption;
  schema::DocumentForm target;  // on whose screen the new document opens, and whose right is asked for
  std::string_view refusal;     // of a document that is cancelled
  // Makes it from the saved document, in one durable change, and gives its key. Throws StoreError; then nothing was
  // written.
  std::function<std::int64_t(session::LoginContext&, std::int64_t tranNo, const text::DateTime& now)> convert;
};

// A column in which conversions leave a mark of what the document became: "D.C. No. 12". A further save leaves it
// alone.
struct ConversionMark {
  std::string_view column;
  std::string_view label = {};  // that shows it, beside "Converted To:"; "" for none
  std::string_view words = {};  // before the number
  schema::DocumentForm target = {};
};

// A kind of document: everything in which its screen differs from the others.
struct DocumentType {
  schema::DocumentForm form;  // number, screens and rights
  std::string_view title;
  std::string_view duplicateText;
  FindType find;

  // The shape of the document between its head and its commands.
  std::function<std::shared_ptr<DocumentBody>(const BodyPlace&)> makeBody;
  LocationChoice locationChoice = LocationChoice::Shown;
  JobChoice jobChoice = JobChoice::Shown;
  EmployeeChoice employeeChoice = EmployeeChoice::Shown;
  BelongsTo belongsTo = BelongsTo::Year;
  DateChoice dateChoice = DateChoice::Shown;
  CancelChoice cancelChoice = CancelChoice::Shown;
  std::string_view numberCaption = "Serial No";
  CostsOnOpening costsOnOpening = CostsOnOpening::AsTheyStand;
  PrintCommands printCommands = PrintCommands::DocumentAndVoucher;
  AfterPrint afterPrint = AfterPrint::NewDocument;

  std::vector<DocumentField> fields = {};
  std::vector<DateLookup> dateLookups = {};

  std::vector<ValidationStep> validation = {};  // after those of every document

  // Writes the columns that are the document's own: accounts and amounts.
  std::function<void(const DocumentValues&, const session::LoginContext&, HeaderRow&)> header = {};
  std::optional<PostingTable> posting = {};
  std::optional<AgingRule> aging = {};

  std::vector<ConversionCommand> conversions = {};
  std::vector<ConversionMark> marks = {};
  std::string_view printSettings = {};  // screen of `SetBttn`

  // Shows the print-out of LoginContext::PrintRS; the values are those on the screen.
  std::function<void(session::Workplace&, const DocumentValues&, QWidget* parent)> print = {};
};

}  // namespace velmo::frame
