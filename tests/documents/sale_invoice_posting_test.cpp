#include <gtest/gtest.h>

#include "documents/sale_invoice_type.h"
#include "frame/posting_table.h"

namespace {

using namespace velmo;
using frame::DocumentValues;
using frame::LedgerLine;

DocumentValues invoice(const char* gTotal, const char* carriage, const char* netTotal, const char* received,
                       const char* balance) {
  DocumentValues values;
  values.DocNo = "7";
  values.PartyCodeTxt = "12001005";
  values.PartyNameTxt = "O'Brien & Sons";
  values.IncomeCode = "40001001";
  values.IncomeAcc = "Sales";
  values.totals = {.GrTot = gTotal,
                   .Disc = "0.00",
                   .TExc = gTotal,
                   .Discount = "0.00",
                   .GTotal = gTotal,
                   .Carriage = carriage,
                   .NetTotal = netTotal,
                   .Received = received,
                   .Balance = balance,
                   .AmtWords = {}};
  return values;
}

const std::string lines = "(Hammer - 2 Pcs @Rs.50 =Rs.100) ";
const std::string ofDocument = "O'Brien & Sons - Invoice No 7";
const std::string ofLines = "O'Brien & Sons - (Hammer - 2 Pcs @Rs.50 =Rs.100) ";

LedgerLine cash(double debit) {
  return {10001001, "Cash in Hand", ofDocument, debit, {}};
}
LedgerLine customerDebit(double debit) {
  return {12001005, "O'Brien & Sons", ofDocument, debit, {}};
}
LedgerLine customerCredit(double credit) {
  return {12001005, "O'Brien & Sons", ofDocument, {}, credit};
}
LedgerLine income(double credit) {
  return {40001001, "Sales", ofLines, {}, credit};
}
LedgerLine carriageCredit(double credit) {
  return {60001001, "Carriage & Freight Outwards", ofLines, {}, credit};
}
LedgerLine carriageDebit(double debit) {
  return {60001001, "Carriage & Freight Outwards", ofLines, debit, {}};
}

TEST(SaleInvoicePosting, WritesTheRowsOfEachCaseInTheirOrder) {
  const struct {
    const char* what;
    DocumentValues values;
    std::vector<LedgerLine> expected;
  } cases[] = {
      {"fully received", invoice("100.00", "0.00", "100.00", "100.00", "0.00"), {cash(100), income(100)}},
      {"fully received with carriage",
       invoice("100.00", "12.50", "112.50", "112.50", "0.00"),
       {cash(112.5), income(100), carriageCredit(12.5)}},
      {"on credit", invoice("100.00", "0.00", "100.00", "0.00", "100.00"), {customerDebit(100), income(100)}},
      {"part received: the whole invoice and the payment as two lines",
       invoice("100.00", "10.00", "110.00", "40.00", "70.00"),
       {cash(40), customerDebit(110), customerCredit(40), income(100), carriageCredit(10)}},
      {"negative carriage, shown in parentheses",
       invoice("100.00", " (5.00)", "95.00", "0.00", "95.00"),
       {customerDebit(95), income(100), carriageDebit(5)}},
      {"nothing to bill", invoice("0.00", "0.00", "0.00", "0.00", "0.00"), {income(0)}},
      {"carriage takes up the whole total",
       invoice("10.00", "-10.00", "0.00", "0.00", "0.00"),
       {income(10), carriageDebit(10)}},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.what);
    const auto posted = frame::ledgerLines(*documents::saleInvoiceType().posting, test.values, lines);
    ASSERT_TRUE(posted.has_value()) << posted.error();
    EXPECT_EQ(*posted, test.expected);
  }
}

TEST(SaleInvoicePosting, RefusesToBeUnbalanced) {
  const DocumentValues unbalanced[] = {
      invoice(" (5.00)", "0.00", " (5.00)", " (5.00)", "0.00"),  // a negative total has no debit row
      invoice("100.00", "0.00", "90.00", "0.00", "90.00"),       // a total that is not the sum of its parts
      invoice("1e308", "1e308", "1e308", "0.00", "1e308"),
  };
  for (const DocumentValues& values : unbalanced) {
    const auto posted = frame::ledgerLines(*documents::saleInvoiceType().posting, values, lines);
    ASSERT_FALSE(posted.has_value());
    EXPECT_NE(posted.error().find("do not balance"), std::string::npos) << posted.error();
  }
}

TEST(SaleInvoiceValidation, MeetsItsRefusalsInTheirOrder) {
  // Everything is wrong; each step mends what its refusal asks for.
  DocumentValues values = invoice("100.00", "0.00", "100.00", "150.00", " (50.00)");
  values.PartyCodeTxt = "12001001";
  values.PartyNameTxt = values.IncomeAcc = "";
  values.fields["InvTypeList"] = "0";
  values.JobList.text = values.EmpList.text = "unknown";
  values.CreditLimit = 10;
  values.PartyBalance = 500;
  const struct {
    const char* text;
    void (*mend)(DocumentValues&);
  } steps[] = {
      {"Select a correct income account.", [](DocumentValues& v) { v.IncomeAcc = "Sales"; }},
      {"Select a correct customer. You may select Account Code '12001001' for a Walk-in (Cash) Customer.",
       [](DocumentValues& v) { v.PartyNameTxt = "Walk-in"; }},
      {"Select a correct customer to give debit for balance amount. Debit cannot be given to a Walk-in (Cash) "
       "Customer.",
       [](DocumentValues& v) { v.PartyCodeTxt = "12001005"; }},
      {"You are saving a Point of Sale Invoice. You must receive full amount of invoice.",
       [](DocumentValues& v) { v.fields["InvTypeList"] = "1"; }},
      {"Select a correct location of inventory.",
       [](DocumentValues& v) {
         v.LocationList = {"Store", 1, true};
       }},
      {"Select a correct job or leave it blank if you do not want to save a job reference.",
       [](DocumentValues& v) { v.JobList = {}; }},
      {"Select a correct employee or leave it blank if you do not want to save an employee reference.",
       [](DocumentValues& v) {
         v.EmpList = {"Ann", 3, true};
       }},
      {"Amount received cannot be greater then the total receivable.",
       [](DocumentValues& v) {
         v.totals.Received = "0.00";
         v.totals.Balance = "100.00";
       }},
      {"This will increase the balance of party from assigned credit limit. Do you want to continue?",
       [](DocumentValues& v) { v.CreditLimit = 0; }},
  };
  const auto firstFailure = [&]() -> std::string_view {
    for (const frame::ValidationStep& step : documents::saleInvoiceType().validation)
      if (step.fails(values, {})) return step.text;
    return "";
  };
  for (const auto& step : steps) {
    EXPECT_EQ(firstFailure(), step.text);
    step.mend(values);
  }
  EXPECT_EQ(firstFailure(), "");
}

}  // namespace
