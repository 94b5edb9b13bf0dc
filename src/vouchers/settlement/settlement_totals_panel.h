#pragma once

#include <QFrame>

#include "vouchers/settlement/settlement_posting.h"

class QLabel;
class QLineEdit;
class QStackedWidget;

namespace velmo::forms {
class NumberBox;
}

namespace velmo::vouchers {

// The totals of a receipt or payment: of the settled invoices with the prepayment, or of the petty lines; the amount in
// words below.
class SettlementTotalsPanel : public QFrame {
  Q_OBJECT

 public:
  explicit SettlementTotalsPanel(const SettlementKind& kind);

  void setMode(SettlementMode mode);
  void setCurrencyName(const std::string& name) { currencyName_ = name; }
  void setAdvance(const std::string& advance);  // as a new or a saved document has it
  void setSums(const SettlementSums& sums);
  void setPettyTotal(double total);
  // The prepayment stands as it is counted, whatever the keyboard is still in.
  void finishTyping();

  const SettlementTotals& totals() const { return totals_; }
  std::string TAmt() const;
  QWidget* firstBox() const;

 private:
  void RecalculateSettlementTotals();
  void showWords();

  const SettlementKind& kind_;
  SettlementMode mode_ = SettlementMode::Party;
  std::string currencyName_;
  SettlementSums sums_;
  SettlementTotals totals_;
  QStackedWidget* pages_;
  forms::NumberBox* AdvTxt_;
  QLineEdit* AdvTtl_;
  QLineEdit* Amt_;
  QLineEdit* WHTax_;
  QLineEdit* AdvAdj_;
  QLineEdit* Disc_;
  QLineEdit* Amt2Party_;
  QLineEdit* TAmt_;
  QLabel* AmtWords_;
};

}  // namespace velmo::vouchers
