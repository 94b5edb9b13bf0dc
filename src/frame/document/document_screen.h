#pragma once

#include <QTimer>
#include <QWidget>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "frame/document/document_body.h"
#include "frame/document/document_type.h"
#include "frame/document/own_fields.h"
#include "frame/document/print_outs.h"
#include "frame/posting/document_values.h"
#include "session/open_screen.h"
#include "session/workplace.h"
#include "store/recordset/recordset.h"

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace velmo::forms {
class LinkButton;
}

namespace velmo::frame {

class CommandBar;
class DocumentCard;
class ReferencesCard;

// The screen of every business document: one document at a time, new or shown, saved by posting it. What a kind of
// document has of its own stands in its DocumentType, what a shape of document has in its DocumentBody.
//
// Life: ClearForNewRecord -> (ShowRecord) -> ValidateAndSave -> PostDocument -> print-out -> ClearForNewRecord.
// Leaving a document drops what was not saved, without a word unless the user wants to be asked.
class DocumentScreen : public QWidget, public session::Reopened, public session::UnsavedWork {
  Q_OBJECT

 public:
  // Starts on a new document, or on LoginContext::OpenTranNo when OpenTranFlag is set. Throws StoreError when the
  // documents cannot be read.
  DocumentScreen(DocumentType type, session::Workplace& workplace, PrintOuts printOuts, QWidget* parent);
  ~DocumentScreen() override;

  // What stands on the screen, in the cells that are not in edit.
  DocumentValues values() const;

  // Shows the document LoginContext::OpenTranNo. When there is none, tells so and leaves the screen as it is, as it
  // does when the user does not want to drop what is typed.
  void ShowRecord();
  void reopen() override;  // shows a document when OpenTranFlag is set
  bool MayLeave() override;
  void GiveUp() override { kept_ = written(); }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  enum class PrintMode { Nothing = 0, Document = 1, Voucher = 2 };

  // All that a person could have typed.
  struct Written {
    DocumentValues values;
    std::vector<std::string> sheets;
    bool operator==(const Written&) const = default;
  };
  Written written() const;

  // The widgets (document_screen_layout.cpp)
  void buildLayout();
  QHBoxLayout* buildTitleRow();
  QHBoxLayout* buildCards();
  QHBoxLayout* buildFoot();
  void orderTabs();
  void connectParts();
  void connectCommands();
  void offerCommands();

  // The life of a document
  void ClearForNewRecord();
  void ValidateAndSave(PrintMode mode, const ConversionCommand* conversion = nullptr);
  void proposeDocNo();
  bool isFreeDocNo() const;
  void refuseDocNo();
  bool passes(const DocumentValues& values);
  bool PostDocument(const DocumentValues& values, const ConversionCommand* conversion);
  void afterSave(PrintMode mode, const DocumentValues& values);
  void printDocument(const DocumentValues& values);
  void printVoucher();

  // Commands
  void addCommand();
  void cancelCommand();
  void deleteCommand();
  void findCommand();
  void retrieveCommand();
  bool mayBrowse();
  void previousCommand();
  void nextCommand();

  // What the document becomes (document_conversions.cpp)
  struct Mark {
    const ConversionMark* mark;
    forms::LinkButton* link;
  };
  QWidget* buildMarks();
  void connectConversions();
  void connectReference(const DocumentField& field);
  void convert(const ConversionCommand& conversion);
  void demandUnharmed(const ConversionCommand& conversion) const;
  void finishConversion(const ConversionCommand& conversion);
  void showMarks();
  void openMark(const Mark& mark);

  // Showing
  void showTran();
  bool moveToTran(std::int64_t tranNo);
  void fillFromTran();
  void showTranNo();
  void bindAgain();
  void focusControl(std::string_view name);

  DocumentType type_;
  session::Workplace& workplace_;
  PrintOuts printOuts_;
  OwnFields fields_;
  std::shared_ptr<DocumentBody> body_;
  DocumentBody::Parts parts_;

  store::Recordset Tran_;
  Written kept_;  // as it was begun, shown or saved
  bool AddMode_ = true;
  std::int64_t LastSavedTranNo_ = 0;
  QTimer PrintTimer_;

  QWidget* FormPic_ = nullptr;  // all but what asks in between
  CommandBar* commands_ = nullptr;
  DocumentCard* card_ = nullptr;
  ReferencesCard* references_ = nullptr;
  QPlainTextEdit* Desc_ = nullptr;
  QLineEdit* TranNo_ = nullptr;
  QWidget* Conversions_ = nullptr;  // the row of marks
  QLabel* ConvLbl_ = nullptr;
  std::vector<Mark> marks_;
  std::vector<std::function<void()>> showArrows_;  // of numbers that lead to their documents
};

}  // namespace velmo::frame
