#pragma once

#include <QFrame>
#include <string>
#include <vector>

#include "documents/trade/trade_kind.h"
#include "forms/number_box.h"
#include "frame/posting/document_totals.h"

class QGridLayout;
class QLabel;
class QLineEdit;

namespace velmo::session {
class Prompts;
}

namespace velmo::documents {

// The totals of a document: three sums of the lines and, of a document to its balance, the three typed amounts and
// what follows from them, with the amount in words below.
class TotalsPanel : public QFrame {
  Q_OBJECT

 public:
  TotalsPanel(TradeFigures figures, std::string_view receivedCaption, session::Prompts& prompts, QWidget* parent);

  // Takes what is received and the balance out of a panel to the balance, for a place of their own.
  struct PaymentBoxes {
    forms::NumberBox* received;
    QLineEdit* balance;
  };
  PaymentBoxes takePaymentBoxes();

  void setSums(const frame::LineSums& sums);
  // The currency stands before the words; the rule says whether the amount received follows the net total.
  void setCurrencyName(const std::string& name);
  void setReceivedRule(frame::ReceivedRule rule);
  // The three typed amounts, as texts.
  void setTyped(const frame::TypedAmounts& typed);

  const frame::DocumentTotals& totals() const { return totals_; }
  QWidget* firstBox() const;  // nullptr where nothing is typed
  // The typed amounts stand as they are counted, whatever the keyboard is still in.
  void finishTyping();

 public Q_SLOTS:
  void RecalculateTotals();

 private:
  using Text = std::string frame::DocumentTotals::*;
  struct Figure {
    QLineEdit* box;
    Text text;
  };
  // A typed amount, as it stands and as it is counted.
  struct Amount {
    forms::NumberBox* box;
    std::string frame::TypedAmounts::*typed;
    Text counted;
  };
  void buildBalance(QGridLayout& grid, std::string_view receivedCaption);
  void buildLinesOnly(QLineEdit& total);
  QLineEdit* addFigure(QGridLayout& grid, int row, int column, const char* name, const QString& caption, Text text);
  forms::NumberBox* addAmount(QGridLayout& grid, int row, int column, const char* name, const QString& caption,
                              forms::NumberBoxOptions options);

  session::Prompts& prompts_;
  frame::LineSums sums_;
  frame::ReceivedRule rule_ = frame::ReceivedRule::AsTyped;
  std::string currencyName_;
  frame::DocumentTotals totals_;
  bool recalculating_ = false;

  std::vector<Figure> figures_;
  std::vector<Amount> amounts_;
  forms::NumberBox* received_ = nullptr;
  QLineEdit* balance_ = nullptr;
  QLabel* words_;
};

}  // namespace velmo::documents
