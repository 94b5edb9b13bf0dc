#pragma once

#include <QFrame>

#include "frame/posting/document_totals.h"

class QLabel;
class QLineEdit;

namespace velmo::documents {

// The total of a stock document, which is that of its amounts before discounts, and its words.
class StockTotals : public QFrame {
  Q_OBJECT

 public:
  StockTotals();

  void setSums(const frame::LineSums& sums, const std::string& currencyName);
  const frame::DocumentTotals& totals() const { return totals_; }

 private:
  frame::DocumentTotals totals_;
  QLineEdit* TInc_;
  QLabel* AmtWords_;
};

}  // namespace velmo::documents
