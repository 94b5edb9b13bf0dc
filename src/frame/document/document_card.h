#pragma once

#include <QFrame>

#include "frame/document/own_fields.h"
#include "text/date_time.h"

class QCheckBox;

namespace velmo::forms {
class DatePicker;
class DigitsBox;
}  // namespace velmo::forms

namespace velmo::frame {

// Which document it is: number, date, the fields beside them, and whether it is cancelled.
class DocumentCard : public QFrame {
  Q_OBJECT

 public:
  DocumentCard(const DocumentType& type, OwnFields& fields, QWidget* parent);

  std::string docNo() const;
  void setDocNo(std::int64_t docNo);
  // A number that the program chose. It stays a proposal until somebody types in the box or a document has it.
  void proposeDocNo(std::int64_t docNo);
  bool isDocNoProposed() const { return docNoProposed_; }
  void keepDocNo() { docNoProposed_ = false; }
  text::DateTime day() const;  // none of a document whose date nobody gives
  void setDay(const text::DateTime& day);
  bool isCancelled() const;
  void setCancelled(bool cancelled);

 private:
  void showCancelled();

  forms::DigitsBox* docNo_;
  bool docNoProposed_ = false;
  forms::DatePicker* day_ = nullptr;  // of documents with a date that is given
  QCheckBox* cancel_ = nullptr;       // of documents that can be cancelled; the others always are
};

}  // namespace velmo::frame
