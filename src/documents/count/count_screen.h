#pragma once

#include <QWidget>
#include <functional>
#include <map>
#include <string>

#include "documents/count/count_documents.h"
#include "session/open_screen.h"
#include "session/workplace.h"

class QCheckBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTimeEdit;
class QVBoxLayout;

namespace velmo::forms {
class DatePicker;
class DropCombo;
}  // namespace velmo::forms

namespace velmo::documents {

class CountGrid;

// Brings counted quantities in from a file, by item code; none when the user gave it up. What stands on a floor beside
// is handed over by the catalogue of screens.
using ReadCounts = std::function<std::map<std::string, double>(session::Workplace&, QWidget* parent)>;

// The count sheet `CountSheet`: the items of a place with what the books had at a moment, printed, counted by keys,
// scans or a file, and brought into the books by adjustments that are shown first.
class CountScreen : public QWidget, public session::UnsavedWork {
  Q_OBJECT

 public:
  // Throws StoreError when the lists cannot be read.
  CountScreen(session::Workplace& workplace, ReadCounts readCounts, QWidget* parent);
  ~CountScreen() override;

  bool MayLeave() override;
  void GiveUp() override { givenUp_ = true; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void buildInto(QVBoxLayout& column);
  QWidget* buildPlace();
  QWidget* buildScan();
  QHBoxLayout* buildCommands();
  void connectAll();
  void loadLists();

  CountPlace place() const;
  QString laterWords() const;
  void takeMoment(const text::DateTime& moment);
  void readBookNow();
  void listCategory();
  void countChanged();
  void tell(const QString& words);
  void scan(const QString& code);
  void print();
  void bringIn();
  void showDifferences();
  void save(const std::vector<CountDocument>& documents);
  void clear();

  session::Workplace& workplace_;
  ReadCounts readCounts_;
  CountSheet sheet_;
  bool givenUp_ = false;

  forms::DropCombo* locations_ = nullptr;
  forms::DropCombo* categories_ = nullptr;
  forms::DatePicker* day_ = nullptr;
  QTimeEdit* time_ = nullptr;
  QPushButton* take_ = nullptr;
  QLineEdit* code_ = nullptr;
  QLabel* scanned_ = nullptr;
  CountGrid* grid_ = nullptr;
  QLabel* later_ = nullptr;
  QLabel* summary_ = nullptr;
  QCheckBox* nil_ = nullptr;
  QCheckBox* bookOnPaper_ = nullptr;
  QPushButton* print_ = nullptr;
  QPushButton* bringIn_ = nullptr;
  QPushButton* differences_ = nullptr;
  QPushButton* clear_ = nullptr;
};

}  // namespace velmo::documents
