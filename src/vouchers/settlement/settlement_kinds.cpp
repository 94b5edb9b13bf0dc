#include "schema/account_types.h"
#include "vouchers/settlement/settlement_kind.h"

namespace velmo::vouchers {

namespace {

namespace account_type = schema::account_type;

constexpr std::string_view noCashAccount = "Select correct cash account.";
constexpr std::string_view noBankAccount = "Select correct bank account.";

// The words "flood tax" name a deduction that once stood in these columns.
SettlementKind receipts() {
  return {.money = Money::Received,
          .partyOption = "Receipt From Customer",
          .pettyOption = "Petty Receipt",
          .partyNature = "Customer Receipt",
          .pettyNature = "Petty Receipt",
          .partyCaption = "Received From ",
          .partyRefusal = "Select a correct account from where payment has been received.",
          .gridCaption = "Detail of Sale Invoices Against Which Amount has been Received",
          .discountCaption = "Discount Given",
          .totalCaption = "Total Credited to Party",
          .paymentLocked =
              "You can give amount in last column 'Amount Credited to Party'. This column is calculated "
              "automatically after adjusting taxes and other deductions.",
          .advanceRefusal = "Select invoice no. before entering flood tax rate.",
          .discountRefusal = "Select invoice no. before entering flood tax amount.",
          .totalRefusal = "Select invoice no. before entering amount credited to party.",
          .foreignInvoice = "Sale Invoice No. ",
          .withheldTax = {14001001, "Advance Income Tax Deducted"},
          .discount = {60001002, "Discount Given to Parties"}};
}

SettlementKind payments() {
  return {.money = Money::Paid,
          .partyOption = "Payment To Vendor",
          .pettyOption = "Petty Payment",
          .partyNature = "Vendor Payment",
          .pettyNature = "Petty Payment",
          .partyCaption = "Paid To ",
          .partyRefusal = "Select a correct account to whom payment has been made.",
          .gridCaption = "Detail of Purchase Invoices Against Which Amount has been Paid",
          .discountCaption = "Discount Received",
          .totalCaption = "Total Debited to Party",
          .paymentLocked =
              "You can give amount in last column 'Amount Debited to Party'. This column is calculated "
              "automatically after adjusting taxes and other deductions.",
          .advanceRefusal = "Select invoice no. before entering advance adjustment.",
          .discountRefusal = "Select invoice no. before entering discount.",
          .totalRefusal = "Select invoice no. before entering amount debited to party.",
          .foreignInvoice = "Purchase Invoice No. ",
          .withheldTax = {22001001, "Income Tax Deducted of Other Parties"},
          .discount = {40001003, "Discount Earned"}};
}

void byCash(SettlementKind& kind) {
  kind.by = PaidBy::Cash;
  kind.accountCaption = "Cash Account";
  kind.accountCondition = account_type::anyOf({account_type::Cash});
  kind.accountRefusal = noCashAccount;
  kind.means = "Cash";
}

void byCheque(SettlementKind& kind) {
  kind.by = PaidBy::Cheque;
  kind.accountCaption = "Bank Account";
  kind.accountCondition = account_type::anyOf({account_type::Banks});
  kind.accountRefusal = noBankAccount;
  kind.means = "Cheque";
}

}  // namespace

const SettlementKind& cashReceipts() {
  static const SettlementKind kind = [] {
    SettlementKind k = receipts();
    byCash(k);
    k.form = schema::documentForm("CashReceipts");
    k.title = "CASH RECEIPTS";
    k.paymentCaption = "Cash Received for Amt.";
    k.summary = "Cash Rec Rs.";
    k.partyOpening = "Cash Rcvd";
    return k;
  }();
  return kind;
}

const SettlementKind& bankReceipts() {
  static const SettlementKind kind = [] {
    SettlementKind k = receipts();
    byCheque(k);
    k.form = schema::documentForm("BankReceipts");
    k.title = "BANK RECEIPTS";
    k.paymentCaption = "Cheque Received for Amt.";
    k.summary = "Chq Rec Rs.";
    k.partyOpening = "Cheque Rcvd";
    return k;
  }();
  return kind;
}

const SettlementKind& cashPayments() {
  static const SettlementKind kind = [] {
    SettlementKind k = payments();
    byCash(k);
    k.form = schema::documentForm("CashPayments");
    k.title = "CASH PAYMENTS";
    k.paymentCaption = "Cash Paid for Amount";
    k.summary = "Cash Paid Rs.";
    k.partyOpening = "Cash Paid";
    return k;
  }();
  return kind;
}

const SettlementKind& bankPayments() {
  static const SettlementKind kind = [] {
    SettlementKind k = payments();
    byCheque(k);
    k.form = schema::documentForm("BankPayments");
    k.title = "BANK PAYMENTS";
    k.paymentCaption = "Cheque Paid for Amount";
    k.summary = "Chq Paid Rs.";
    k.partyOpening = "Cheque Paid";
    return k;
  }();
  return kind;
}

}  // namespace velmo::vouchers
