#include "frame/posting/document_totals.h"

#include "text/amount_in_words.h"
#include "text/decimal_sum.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::frame {

namespace {

constexpr std::string_view totalFormat = "0.00; (0.00)";

std::string shown(double amount) {
  return text::formatNumber(amount, totalFormat);
}

}  // namespace

std::string countedText(const std::string& typed) {
  const std::optional<double> amount = text::numberFrom(typed);
  if (!amount) return "0.00";
  const std::string counted = shown(*amount);
  return text::amountFrom(counted) == *amount ? typed : counted;
}

LineSums sumLines(const store::Recordset& lines) {
  const int gross = lines.fieldIndex("grossamt");
  const int discount = lines.fieldIndex("discamt");
  const int net = lines.fieldIndex("itemvalue");
  const auto sumOf = [&lines](int field) {
    text::DecimalSum sum;
    for (std::int64_t row = 0, count = lines.recordCount(); row < count; ++row)
      sum += store::numberOf(lines.valueAt(row, field));
    return sum.value();
  };
  return {.gross = sumOf(gross), .discount = sumOf(discount), .net = sumOf(net)};
}

DocumentTotals RecalculateTotals(const LineSums& sums, const TypedAmounts& typed, ReceivedRule rule,
                                 std::string_view currencyName) {
  using text::amountFrom;
  DocumentTotals totals;
  totals.GrTot = shown(sums.gross);
  totals.Disc = shown(sums.discount);
  totals.TExc = shown(sums.net);
  totals.Discount = countedText(typed.Discount);
  totals.GTotal = shown(text::sumOf({amountFrom(totals.TExc), -amountFrom(totals.Discount)}));
  totals.Carriage = countedText(typed.Carriage);
  totals.NetTotal = shown(text::sumOf({amountFrom(totals.GTotal), amountFrom(totals.Carriage)}));
  totals.AmtWords = std::string(currencyName) + " " + amountInWordsOnly(amountFrom(totals.NetTotal));
  totals.Received = rule == ReceivedRule::WholeNetTotal ? totals.NetTotal : countedText(typed.Received);
  const double open = text::sumOf({amountFrom(totals.NetTotal), -amountFrom(totals.Received)});
  totals.Balance = shown(rule == ReceivedRule::Tendered ? -open : open);
  return totals;
}

std::string amountInWordsOnly(double amount) {
  if (amount < 0) return "minus " + amountInWordsOnly(-amount);
  return text::AmountInWords(amount) + " only.";
}

}  // namespace velmo::frame
