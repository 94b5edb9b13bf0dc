#pragma once

#include <QDialog>
#include <cstdint>
#include <functional>

#include "frame/document/find_type.h"
#include "schema/document_kinds.h"
#include "session/workplace.h"

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
  void query(const std::string& condition);
  std::int64_t countFound(const std::string& condition) const;
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
  forms::RecordsetModel* found_;
  forms::TableView* grid_;
};

}  // namespace velmo::frame
