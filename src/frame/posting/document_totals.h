#pragma once

#include <string>
#include <string_view>

#include "store/recordset/recordset.h"

namespace velmo::frame {

// Sums over all item lines of a document, in money.
struct LineSums {
  double gross = 0;
  double discount = 0;
  double net = 0;
};

// Nulls count as 0; the cursor does not move.
LineSums sumLines(const store::Recordset& lines);

// The three boxes of the totals column that a person fills, as they stand.
struct TypedAmounts {
  std::string Discount;
  std::string Carriage;
  std::string Received;
};

enum class ReceivedRule {
  AsTyped,
  WholeNetTotal,  // always what is to be paid
  Tendered        // as typed, and the balance is the change: what is received less what is to be paid
};

// Every figure of the totals column as it is shown. A figure is computed from the shown texts of the figures before it,
// so that what is posted adds up to the cent as the eye adds it.
struct DocumentTotals {
  std::string GrTot;
  std::string Disc;
  std::string TExc;
  std::string Discount;
  std::string GTotal;
  std::string Carriage;
  std::string NetTotal;
  std::string Received;
  std::string Balance;
  std::string AmtWords;

  bool operator==(const DocumentTotals&) const = default;
};

// A typed amount as it is counted: to two decimals, as its box shows it once it is left. What has no more of them stays
// as typed, and what is no number becomes "0.00".
std::string countedText(const std::string& typed);

DocumentTotals RecalculateTotals(const LineSums& sums, const TypedAmounts& typed, ReceivedRule rule,
                                 std::string_view currencyName);

// "one hundred and 00/100 only."; an amount below zero begins with "minus ".
std::string amountInWordsOnly(double amount);

}  // namespace velmo::frame
