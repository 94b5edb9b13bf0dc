#pragma once

#include <QFrame>

#include "frame/posting/document_totals.h"

class QGridLayout;
class QLabel;
class QLineEdit;

namespace velmo::forms {
class NumberBox;
}

namespace velmo::session {
class Prompts;
}

namespace velmo::frame {

// The totals of a document: three sums of the lines, the three typed amounts, and what follows from them, with the
// amount in words below.
class TotalsPanel : public QFrame {
  Q_OBJECT

 public:
  TotalsPanel(std::string_view receivedCaption, session::Prompts& prompts, QWidget* parent);

  // Takes what is received and the balance out of the panel, for a place of their own.
  struct PaymentBoxes {
    forms::NumberBox* received;
    QLineEdit* balance;
  };
  PaymentBoxes takePaymentBoxes();

  void setSums(const LineSums& sums);
  // The currency stands before the words; the rule says whether the amount received follows the net total.
  void setCurrencyName(const std::string& name);
  void setReceivedRule(ReceivedRule rule);
  // The three typed amounts, as texts.
  void setTyped(const TypedAmounts& typed);

  const DocumentTotals& totals() const { return totals_; }
  QWidget* firstBox() const;
  // The typed amounts stand as they are counted, whatever the keyboard is still in.
  void finishTyping();

 public Q_SLOTS:
  void RecalculateTotals();

 private:
  forms::NumberBox* addAmount(QGridLayout& grid, int row, int column, const char* name, const QString& caption,
                              bool isSigned);
  void showTyped(forms::NumberBox& box, const std::string& counted);

  session::Prompts& prompts_;
  LineSums sums_;
  ReceivedRule rule_ = ReceivedRule::AsTyped;
  std::string currencyName_;
  DocumentTotals totals_;
  bool recalculating_ = false;

  QLineEdit* grTot_;
  QLineEdit* disc_;
  QLineEdit* tExc_;
  forms::NumberBox* discount_;
  QLineEdit* gTotal_;
  forms::NumberBox* carriage_;
  QLineEdit* netTotal_;
  forms::NumberBox* received_;
  QLineEdit* balance_;
  QLabel* words_;
};

}  // namespace velmo::frame
