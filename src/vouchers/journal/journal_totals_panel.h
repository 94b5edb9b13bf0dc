#pragma once

#include <QFrame>
#include <string>

#include "frame/sheets/ledger_sheet.h"

class QLabel;
class QLineEdit;

namespace velmo::vouchers {

// The totals of a journal voucher as they are shown, with two decimals, which are its working values.
struct JournalTotals {
  std::string DTot = "0.00";
  std::string CTot = "0.00";

  bool areEqual() const { return DTot == CTot; }
};

JournalTotals journalTotals(const frame::LedgerSums& sums);

// What is told of totals that differ; "" of equal ones.
std::string differenceText(const JournalTotals& totals);

// Debits and credits of a journal voucher, by how much they differ, and the amount in words.
class JournalTotalsPanel : public QFrame {
  Q_OBJECT

 public:
  JournalTotalsPanel();

  void setCurrencyName(const std::string& name) { currencyName_ = name; }
  void setSums(const frame::LedgerSums& sums);
  const JournalTotals& totals() const { return totals_; }

 private:
  std::string currencyName_;
  JournalTotals totals_;
  QLineEdit* DTot_;
  QLineEdit* CTot_;
  QLabel* DiffLbl_;
  QLabel* AmtWords_;
};

}  // namespace velmo::vouchers
