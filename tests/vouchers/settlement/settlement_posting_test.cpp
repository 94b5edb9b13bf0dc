#include "vouchers/settlement/settlement_posting.h"

#include <gtest/gtest.h>

#include "store/values/value.h"
#include "text/number.h"

namespace {

using namespace velmo;
using namespace velmo::vouchers;

frame::DocumentValues values() {
  frame::DocumentValues values;
  values.PartyCodeTxt = "12001002";
  values.PartyNameTxt = "O'Brien & Sons";
  values.ACodeTxt = "10001001";
  values.Acc = "Cash in Hand";
  return values;
}

SettlementValues settled(const SettlementSums& sums, const char* advance = "0.00") {
  SettlementValues settlement;
  settlement.totals = settlementTotals(sums, advance);
  settlement.invoices = "12, 15, ";
  return settlement;
}

std::string amountText(const std::optional<double>& amount) {
  return amount ? text::numberText(*amount) : "-";
}

std::vector<std::string> written(const SettlementKind& kind, const SettlementValues& settlement) {
  const auto lines = settlementLines(kind, values(), settlement);
  if (!lines) return {lines.error()};
  std::vector<std::string> all;
  for (const frame::LedgerLine& line : *lines)
    all.push_back(std::to_string(line.accCode) + "|" + line.accName + "|" + line.desc + "|" + amountText(line.debit) +
                  "|" + amountText(line.credit));
  return all;
}

constexpr SettlementSums everything{.payment = 850, .whTax = 100, .advAdj = 30, .discount = 20, .totPayment = 1000};

TEST(SettlementLines, StandInTheOrderOfTheVoucher) {
  using Lines = std::vector<std::string>;
  EXPECT_EQ(written(cashReceipts(), settled(everything, "500")),
            (Lines{"10001001|Cash in Hand|O'Brien & Sons - Invoices 12, 15, |1350|-",
                   "12001002|O'Brien & Sons|Cash Rcvd - Invoices 12, 15, |-|1500",
                   "14001001|Advance Income Tax Deducted|O'Brien & Sons - Invoices 12, 15, |100|-",
                   "12001002|O'Brien & Sons|Advance Adjusted - Invoices 12, 15, |30|-",
                   "60001002|Discount Given to Parties|O'Brien & Sons - Invoices 12, 15, |20|-"}));
  EXPECT_EQ(written(bankPayments(), settled(everything)),
            (Lines{"12001002|O'Brien & Sons|Cheque Paid - Invoices 12, 15, |1000|-",
                   "10001001|Cash in Hand|O'Brien & Sons - Invoices 12, 15, |-|850",
                   "22001001|Income Tax Deducted of Other Parties|O'Brien & Sons - Invoices 12, 15, |-|100",
                   "12001002|O'Brien & Sons|Advance Adjusted - Invoices 12, 15, |-|30",
                   "40001003|Discount Earned|O'Brien & Sons - Invoices 12, 15, |-|20"}));
}

TEST(SettlementLines, TurnADiscountBelowZeroToTheOtherSideAndKeepTwoLinesOfZeros) {
  const SettlementSums negative{.payment = 105, .discount = -5, .totPayment = 100};
  EXPECT_EQ(written(bankReceipts(), settled(negative)).back(),
            "60001002|Discount Given to Parties|O'Brien & Sons - Invoices 12, 15, |-|5");
  EXPECT_EQ(written(cashPayments(), settled(negative)).back(),
            "40001003|Discount Earned|O'Brien & Sons - Invoices 12, 15, |5|-");
  EXPECT_EQ(written(cashReceipts(), settled({})).size(), 2u);
  // A tax or an advance below zero has no line, so the voucher would not balance.
  EXPECT_NE(written(cashReceipts(), settled({.payment = 110, .whTax = -10, .totPayment = 100})).front().find("balance"),
            std::string::npos);
}

TEST(SettlementTotals, AddThePrepaymentToMoneyAndParty) {
  struct Case {
    const char* advance;
    const char* AdvTxt;
    const char* Amt;
    const char* Amt2Party;
  };
  for (const Case& c : {Case{"1000", "1000", "1850.00", "2000.00"}, Case{"", "0.00", "850.00", "1000.00"},
                        Case{".", "0.00", "850.00", "1000.00"}, Case{"0.005", "0.01", "850.01", "1000.01"},
                        Case{" (2000.00)", " (2000.00)", " (1150.00)", " (1000.00)"}}) {
    const SettlementTotals totals = settlementTotals(everything, c.advance);
    EXPECT_EQ(totals.AdvTxt, c.AdvTxt);
    EXPECT_EQ(totals.AdvTtl, c.AdvTxt);
    EXPECT_EQ(totals.Amt, c.Amt);
    EXPECT_EQ(totals.Amt2Party, c.Amt2Party);
  }
}

TEST(SettlementHeader, HoldsDeductionsInGeneralColumnsAndTellsThemInWords) {
  const auto header = [](const SettlementKind& kind, const SettlementValues& settlement) {
    frame::HeaderRow row;
    writeSettlementHeader(kind, values(), settlement, row);
    std::string all;
    for (const char* column : {"Nature", "partycode", "partycode2", "text1", "text2", "text3", "text8", "Discount",
                               "AdditionalTax", "carriage", "tramount", "Received", "Balance", "WordsAmt"})
      all += store::textOf(row.value(column)) + "|";
    return all;
  };
  EXPECT_EQ(header(cashReceipts(), settled(everything, "500.00")),
            "Customer Receipt|12001002|10001001|O'Brien & Sons|Cash in Hand|Cash|Cash Rec Rs.1350.00, WHT Rs.100.00, "
            "Adv. Adj. Rs.30.00, Disc. Rs.20.00|20|30|100|1500|1350|500|one thousand, five hundred and 00/100 only.|");
  EXPECT_EQ(header(bankPayments(), settled({.payment = 5, .totPayment = 5})),
            "Vendor Payment|12001002|10001001|O'Brien & Sons|Cash in Hand|Cheque|Chq Paid Rs.5.00|0|0|0|5|5|0|five and "
            "00/100 only.|");
  SettlementValues petty = settled(everything, "500.00");
  petty.mode = SettlementMode::Petty;
  petty.TAmt = "75.50";
  EXPECT_EQ(header(cashPayments(), petty),
            "Petty Payment|0|10001001||Cash in Hand|Cash||0|0|0|75.5|75.5|0|seventy-five and 50/100 only.|");
}

}  // namespace
