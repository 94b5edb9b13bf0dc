#pragma once

#include <QDialog>
#include <QTimer>
#include <cstdint>
#include <functional>
#include <memory>

#include "frame/document/find_statement.h"
#include "frame/document/find_type.h"
#include "schema/document_kinds.h"
#include "session/workplace.h"
#include "store/recordset/rows_ahead.h"

class QComboBox;
class QLabel;
class QLineEdit;

namespace velmo::forms {
class DatePicker;
class RecordsetModel;
class TableView;
}  // namespace velmo::forms

namespace velmo::frame {

// Looks for documents of one type in the year, by one column at a time. Picking a row sets LoginContext::OpenTranNo,
// has the owning screen show it and closes.
class FindScreen : public QDialog {
  Q_OBJECT

 public:
  FindScreen(const FindType& type, const schema::DocumentForm& form, session::Workplace& workplace,
             std::function<void()> showRecord, QWidget* parent);
  ~FindScreen() override;

 private:
  QWidget* makeSearchRow();
  void columnChosen();
  void find();
  void showAll();
  void query(const std::string& condition, FindOrder order);
  void countFound();
  void lookForCount();
  void showCount(std::int64_t documents);
  void sortBy(int column);
  void noteRow();
  void pick();

  const FindType& type_;
  const schema::DocumentForm& form_;
  session::Workplace& workplace_;
  std::function<void()> showRecord_;
  QComboBox* columns_;
  QLineEdit* value_;
  forms::DatePicker* day_;
  QLineEdit* tranNo_;
  QLabel* count_;
  std::string condition_;                      // of the documents found
  std::unique_ptr<store::RowsAhead> counted_;  // while their number is not known
  QTimer counting_;
  forms::RecordsetModel* found_;
  forms::TableView* grid_;
};

}  // namespace velmo::frame
