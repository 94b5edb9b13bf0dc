#pragma once

#include <QFrame>
#include <vector>

#include "documents/trade/totals_panel.h"
#include "session/workplace.h"

class QBoxLayout;
class QPushButton;

namespace velmo::documents {

// The amounts that a customer is likely to hand over for a total above zero, rising: the total itself, and for notes of
// 10, 50, 100, 500 and 1000 the next whole number of them above it.
std::vector<double> likelyTenders(double total);

// Takes the money of a document at the counter: `BalPic` over the document, with what is to be paid, what is received
// and the change. Enter takes it, Esc gives up; what comes short is told before, and asked about where the company
// wants that.
class PaymentPanel : public QFrame {
  Q_OBJECT

 public:
  PaymentPanel(TotalsPanel& totals, session::Workplace& workplace, QWidget* screen);

  void open();                         // over the middle of the screen, ready for what is received
  void tellScan(const QString& code);  // that an item was scanned, which comes too late

 Q_SIGNALS:
  void taken();
  void givenUp();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool focusNextPrevChild(bool) override { return true; }  // there is one box to type in

 private:
  QLayout* buildAmounts();
  QLayout* buildTenders();
  QLayout* buildCommands();
  QWidget* buildAskOption();
  void offerTenders();
  void showWhatIsShort();
  double shortBy() const;  // 0 when enough is received
  void take();

  TotalsPanel& totals_;
  session::Workplace& workplace_;
  QLabel* toPay_ = nullptr;
  forms::NumberBox* received_ = nullptr;
  QLabel* short_ = nullptr;
  QLineEdit* balance_ = nullptr;  // the change
  std::vector<QPushButton*> tenders_;
  QLabel* keys_ = nullptr;  // or what else is to be told
};

}  // namespace velmo::documents
