#include "frame/posting/posting_table.h"

#include <algorithm>
#include <cmath>

#include "store/values/value.h"
#include "text/decimal_sum.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::frame {

namespace {

bool holds(const FigureTest& test, const DocumentTotals& totals) {
  const double figure = figureOf(totals, test.figure);
  return test.sign == Sign::AboveZero ? figure > 0 : figure < 0;
}

void setAccount(LedgerLine& line, const PostingRow& row, const DocumentValues& values) {
  if (const FixedAccount* fixed = std::get_if<FixedAccount>(&row.account)) {
    line.accCode = fixed->code;
    line.accName = fixed->name;
    return;
  }
  const auto set = [&line](const std::string& code, const std::string& name) {
    line.accCode = store::integerOf(code);
    line.accName = name;
  };
  switch (std::get<PostedAccount>(row.account)) {
    case PostedAccount::Party:
      return set(values.PartyCodeTxt, values.PartyNameTxt);
    case PostedAccount::Head:
      return set(values.IncomeCode, values.IncomeAcc);
    case PostedAccount::Debit:
      return set(values.ACodeTxt, values.Acc);
  }
}

std::optional<double> amountOf(const std::optional<PostedAmount>& amount, const DocumentTotals& totals) {
  if (!amount) return std::nullopt;
  const double figure = figureOf(totals, amount->figure);
  return amount->negated ? -figure : figure;
}

}  // namespace

double figureOf(const DocumentTotals& totals, Figure figure) {
  switch (figure) {
    case Figure::GrTot:
      return text::amountFrom(totals.GrTot);
    case Figure::TExc:
      return text::amountFrom(totals.TExc);
    case Figure::GTotal:
      return text::amountFrom(totals.GTotal);
    case Figure::Carriage:
      return text::amountFrom(totals.Carriage);
    case Figure::NetTotal:
      return text::amountFrom(totals.NetTotal);
    case Figure::Received:
      return text::amountFrom(totals.Received);
    case Figure::Balance:
      return text::amountFrom(totals.Balance);
  }
  return 0;
}

tl::expected<std::vector<LedgerLine>, std::string> ledgerLines(const PostingTable& table, const DocumentValues& values,
                                                               std::string_view lineNarrations) {
  const std::string ofDocument =
      table.documentName ? values.PartyNameTxt + " - " + table.documentName(values) : std::string();
  const std::string ofLines = values.PartyNameTxt + " - " + std::string(lineNarrations);
  std::vector<LedgerLine> lines;
  for (const PostingRow& row : table.rows) {
    if (!std::ranges::all_of(row.when, [&](const FigureTest& test) { return holds(test, values.totals); })) continue;
    LedgerLine line;
    setAccount(line, row, values);
    line.desc = table.narration ? table.narration(values) : row.narration == Narration::Document ? ofDocument : ofLines;
    line.debit = amountOf(row.debit, values.totals);
    line.credit = amountOf(row.credit, values.totals);
    lines.push_back(std::move(line));
  }
  return balanced(std::move(lines));
}

tl::expected<std::vector<LedgerLine>, std::string> balanced(std::vector<LedgerLine> lines) {
  text::DecimalSum debits, credits, difference;
  for (const LedgerLine& line : lines) {
    debits += line.debit.value_or(0);
    credits += line.credit.value_or(0);
    difference += line.debit.value_or(0);
    difference -= line.credit.value_or(0);
  }
  if (std::abs(difference.value()) < 0.005) return lines;
  return tl::unexpected("The ledger entries of this document do not balance: debits of " +
                        text::formatNumber(debits.value(), "0.00;(0.00)") + " stand against credits of " +
                        text::formatNumber(credits.value(), "0.00;(0.00)") + ". Correct the amounts before saving.");
}

}  // namespace velmo::frame
