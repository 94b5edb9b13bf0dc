#include "vouchers/settlement/settlement_posting.h"

#include <functional>

#include "store/values/value.h"
#include "text/decimal_sum.h"
#include "text/format.h"
#include "text/number.h"

namespace velmo::vouchers {

namespace {

using frame::DocumentValues;
using text::amountFrom;

constexpr std::string_view shownAs = "0.00; (0.00)";

enum class Account { Money, Party, WithheldTax, Discount };

// The side of a line in a receipt; a payment has it on the other one.
enum class Side { Debit, Credit };

enum class Narration {
  Party,   // the party and the invoices
  Means,   // how it was paid, and the invoices
  Advance  // that an advance was adjusted, and the invoices
};

enum class When { Always, AboveZero, BelowZero };

// A line of the voucher as an accountant reads it, from the side of a receipt.
struct Line {
  Account account;
  Side side;
  std::string SettlementTotals::*figure;
  Narration narration = Narration::Party;
  When when = When::AboveZero;
};

constexpr Line moneyLine{Account::Money, Side::Debit, &SettlementTotals::Amt, Narration::Party, When::Always};
constexpr Line partyLine{Account::Party, Side::Credit, &SettlementTotals::Amt2Party, Narration::Means, When::Always};
constexpr Line deductions[] = {
    {Account::WithheldTax, Side::Debit, &SettlementTotals::WHTax},
    {Account::Party, Side::Debit, &SettlementTotals::AdvAdj, Narration::Advance},
    {Account::Discount, Side::Debit, &SettlementTotals::Disc},
    {Account::Discount, Side::Credit, &SettlementTotals::Disc, Narration::Party, When::BelowZero},
};

bool isWritten(When when, double amount) {
  return when == When::Always || (when == When::AboveZero ? amount > 0 : amount < 0);
}

class LedgerComposer {
 public:
  LedgerComposer(const SettlementKind& kind, const DocumentValues& values, const SettlementValues& settlement)
      : kind_(kind), values_(values), settlement_(settlement) {}

  void add(const Line& line) {
    const double amount = amountFrom(settlement_.totals.*line.figure);
    if (!isWritten(line.when, amount)) return;
    frame::LedgerLine written;
    setAccount(written, line.account);
    written.desc = opening(line.narration) + " - Invoices " + settlement_.invoices;
    const bool debit = (line.side == Side::Debit) == isReceipt(kind_);
    (debit ? written.debit : written.credit) = line.when == When::BelowZero ? -amount : amount;
    lines_.push_back(std::move(written));
  }

  std::vector<frame::LedgerLine> take() { return std::move(lines_); }

 private:
  std::string opening(Narration narration) const {
    switch (narration) {
      case Narration::Party:
        return values_.PartyNameTxt;
      case Narration::Means:
        return std::string(kind_.partyOpening);
      case Narration::Advance:
        return "Advance Adjusted";
    }
    return {};
  }

  void setAccount(frame::LedgerLine& line, Account account) const {
    const auto set = [&line](std::int64_t code, std::string_view name) {
      line.accCode = code;
      line.accName = name;
    };
    switch (account) {
      case Account::Money:
        return set(store::integerOf(values_.ACodeTxt), values_.Acc);
      case Account::Party:
        return set(store::integerOf(values_.PartyCodeTxt), values_.PartyNameTxt);
      case Account::WithheldTax:
        return set(kind_.withheldTax.code, kind_.withheldTax.name);
      case Account::Discount:
        return set(kind_.discount.code, kind_.discount.name);
    }
  }

  const SettlementKind& kind_;
  const DocumentValues& values_;
  const SettlementValues& settlement_;
  std::vector<frame::LedgerLine> lines_;
};

// What was received and what was deducted, in the words of the voucher whatever the company's currency.
std::string summary(const SettlementKind& kind, const SettlementTotals& totals) {
  std::string text = std::string(kind.summary) + totals.Amt;
  const auto add = [&text](std::string_view words, const std::string& amount) {
    if (amountFrom(amount) != 0) text += std::string(words) + amount;
  };
  add(", WHT Rs.", totals.WHTax);
  add(", Adv. Adj. Rs.", totals.AdvAdj);
  add(", Disc. Rs.", totals.Disc);
  return text;
}

}  // namespace

SettlementTotals settlementTotals(const SettlementSums& sums, std::string_view advance) {
  SettlementTotals totals;
  totals.AdvTxt = totals.AdvTtl = frame::countedText(std::string(advance));
  const double prepaid = amountFrom(totals.AdvTxt);
  const auto shown = [](double amount) { return text::formatNumber(amount, shownAs); };
  totals.Amt = shown(text::sumOf({prepaid, sums.payment}));
  totals.WHTax = shown(sums.whTax);
  totals.AdvAdj = shown(sums.advAdj);
  totals.Disc = shown(sums.discount);
  totals.Amt2Party = shown(text::sumOf({prepaid, sums.totPayment}));
  return totals;
}

void writeSettlementHeader(const SettlementKind& kind, const DocumentValues& values, const SettlementValues& settlement,
                           frame::HeaderRow& row) {
  const bool party = settlement.mode == SettlementMode::Party;
  const SettlementTotals totals = party ? settlement.totals : SettlementTotals();
  const double amount = amountFrom(party ? totals.Amt2Party : settlement.TAmt);
  row.set("Nature", std::string(party ? kind.partyNature : kind.pettyNature));
  row.set("partycode", party ? store::integerOf(values.PartyCodeTxt) : std::int64_t{0});
  row.set("partycode2", store::integerOf(values.ACodeTxt));
  row.set("Text1", party ? values.PartyNameTxt : std::string());
  row.set("Text2", values.Acc);
  row.set("Text3", std::string(kind.means));
  row.set("Text8", party ? summary(kind, totals) : std::string());
  row.set("Discount", amountFrom(totals.Disc));
  row.set("AdditionalTax", amountFrom(totals.AdvAdj));
  row.set("carriage", amountFrom(totals.WHTax));
  row.set("tramount", amount);
  row.set("Received", party ? amountFrom(totals.Amt) : amount);
  row.set("Balance", amountFrom(totals.AdvTxt));
  row.set("WordsAmt", frame::amountInWordsOnly(amount));
}

tl::expected<std::vector<frame::LedgerLine>, std::string> settlementLines(const SettlementKind& kind,
                                                                          const DocumentValues& values,
                                                                          const SettlementValues& settlement) {
  LedgerComposer ledger(kind, values, settlement);
  ledger.add(isReceipt(kind) ? moneyLine : partyLine);
  ledger.add(isReceipt(kind) ? partyLine : moneyLine);
  for (const Line& line : deductions) ledger.add(line);
  return frame::balanced(ledger.take());
}

}  // namespace velmo::vouchers
