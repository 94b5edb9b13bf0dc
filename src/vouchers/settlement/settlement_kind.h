#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "frame/posting/aging.h"
#include "frame/posting/fixed_accounts.h"
#include "schema/document_kinds.h"
#include "text/date_time.h"

namespace velmo::vouchers {

// Which way the money goes: from customers, who settle sale invoices, or to vendors, whose bills are settled.
enum class Money { Received, Paid };

enum class PaidBy { Cash, Cheque };

// The columns of the grid of settled invoices, in their order.
namespace settlement {
enum Column : int { Invoice, Date, Payment, WHTaxRt, WHTax, AdvAdj, Discount, TotPayment };
inline constexpr int columnCount = 8;
}  // namespace settlement

// Everything in which the four screens of receipts and payments differ.
struct SettlementKind {
  schema::DocumentForm form = {};
  Money money = Money::Received;
  PaidBy by = PaidBy::Cash;
  std::string_view title = {};

  std::string_view partyOption = {};  // captions of RecOpt
  std::string_view pettyOption = {};
  std::string_view partyNature = {};  // Transactions.Nature in the two modes
  std::string_view pettyNature = {};
  std::string_view partyCaption = {};
  std::string_view accountCaption = {};
  std::string accountCondition = {};  // on acclevel3
  std::string_view accountRefusal = {};
  std::string_view partyRefusal = {};
  std::string_view gridCaption = {};
  std::string_view paymentCaption = {};
  std::string_view discountCaption = {};
  std::string_view totalCaption = {};
  std::string_view paymentLocked = {};   // told when the computed column is to be edited
  std::string_view advanceRefusal = {};  // without an invoice
  std::string_view discountRefusal = {};
  std::string_view totalRefusal = {};
  std::string_view foreignInvoice = {};  // before the number of an invoice that is not the party's

  std::string_view means = {};         // text3
  std::string_view summary = {};       // how text8 begins
  std::string_view partyOpening = {};  // how the narration of the party's line begins
  frame::FixedAccount withheldTax = {};
  frame::FixedAccount discount = {};
};

inline bool isReceipt(const SettlementKind& kind) {
  return kind.money == Money::Received;
}
// The open items, and the column that tells one of a party's from another.
inline std::string_view agingTable(const SettlementKind& kind) {
  return isReceipt(kind) ? "agingdr" : "agingcr";
}
inline std::string_view keyColumn(const SettlementKind& kind) {
  return isReceipt(kind) ? "DocNo" : "VendorInvNo";
}

const SettlementKind& cashReceipts();
const SettlementKind& bankReceipts();
const SettlementKind& cashPayments();
const SettlementKind& bankPayments();

// An invoice or bill that is not settled.
struct PendingItem {
  std::string key;         // as the user knows it: the invoice's number, or the vendor's own
  std::int64_t docNo = 0;  // our number
  text::DateTime tranDate;
  std::int64_t partyCode = 0;
  double balance = 0;
};

}  // namespace velmo::vouchers
