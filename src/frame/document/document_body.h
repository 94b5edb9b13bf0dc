#pragma once

#include <QObject>
#include <cstdint>
#include <functional>
#include <string>
#include <tl/expected.hpp>

#include "frame/document/document_type.h"
#include "frame/posting/document_writer.h"

class QAbstractButton;

namespace velmo::frame {

class CommandBar;

// What a body is made for. All of it outlives the body.
struct BodyPlace {
  const DocumentType& type;
  session::Workplace& workplace;
  QWidget& screen;  // above whose fields lists and panels may float
  QWidget& form;    // all that the screen shows while nothing is asked in between
};

// What one shape of document has of its own: item lines with a party, invoices that are settled, ledger lines. Number,
// date, references, remarks and the life of the document are the screen's.
class DocumentBody : public QObject {
  Q_OBJECT

 public:
  // Where the screen puts the body; it owns the widgets. nullptr where there is nothing.
  struct Parts {
    QWidget* beside = nullptr;  // between number and references
    QWidget* lines = nullptr;   // takes the room that is left
    QWidget* strip = nullptr;   // a line of hints below them
    QWidget* aboveRemarks = nullptr;
    QWidget* totals = nullptr;
  };
  // Builds the widgets; called once.
  virtual Parts build() = 0;
  // Its own commands, which come and go with the screen's.
  virtual void addCommands(CommandBar& commands) = 0;

  // Reads the lines of a document, 0 for a new one. They are not in the grid before bind().
  virtual void open(std::int64_t tranNo) = 0;
  virtual void clear() = 0;                              // fields and amounts of a new document
  virtual void show(const store::Recordset& tran) = 0;   // of the document that `tran` stands on
  virtual void bind() = 0;                               // the grid edits the lines
  virtual void detach() = 0;                             // and lets go of them; a cell in edit is given up
  virtual bool commitEdit() = 0;                         // false when a cell refuses its text
  virtual void focusFirst() = 0;                         // where a new document begins
  virtual void focusNextPart(const QWidget* focus) = 0;  // F6
  virtual void fill(DocumentValues& values) const = 0;   // with what stands in it

  // Calls `save` when all that the user has to give before is given, at once or later.
  virtual void beforeSave(std::function<void()> save) { save(); }
  // Tests that come last and look at single lines; tells the user and gives true when the document may not be saved.
  virtual bool refuses(const DocumentValues&) { return false; }
  // What a save puts into the books beside the rows of writeRows(), or the sentence that tells why it cannot.
  virtual tl::expected<DocumentWrite, std::string> compose(const DocumentValues& values, const text::DateTime& now,
                                                           HeaderWrite mode) = 0;
  // Writes the lines, in the transaction of the save and behind the header.
  virtual void writeRows(const DocumentValues& values, std::int64_t tranNo) = 0;
  // The document stays on the screen once it is saved: reads its lines again, as they were written. Those that the next
  // save adds as another document are new ones that read the same and belong to none.
  virtual void reopen(std::int64_t /*tranNo*/, HeaderWrite /*nextSave*/) {}
  // What LoginContext::PrintRS hands to the print-out of the document that was saved; `tran` stands on it.
  virtual store::Recordset printRows(const store::Recordset& tran) {
    store::Recordset document = tran.clone();
    document.setBookmark(tran.bookmark());
    return document;
  }

 Q_SIGNALS:
  void saveRequested();              // from within the lines
  void employeeFound(qint64 empId);  // the party brings an employee along; 0 for none
};

}  // namespace velmo::frame
