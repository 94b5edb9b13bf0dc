#pragma once

#include <QFrame>

#include "frame/totals_panel.h"

namespace velmo::frame {

// Takes the money of a document at the counter: `BalPic` over the document, with what is to be paid, what is received
// and the change. Enter takes it, Esc gives up.
class PaymentPanel : public QFrame {
  Q_OBJECT

 public:
  PaymentPanel(TotalsPanel& totals, QWidget* screen);

  void open();                         // over the middle of the screen, ready for what is received
  void tellScan(const QString& code);  // that an item was scanned, which comes too late

 Q_SIGNALS:
  void taken();
  void givenUp();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool focusNextPrevChild(bool) override { return true; }  // there is one box to type in

 private:
  TotalsPanel& totals_;
  QLabel* toPay_;
  QLabel* balanceCaption_;
  forms::NumberBox* received_;
  QLineEdit* balance_;
  QLabel* keys_;  // or what else is to be told
};

}  // namespace velmo::frame
