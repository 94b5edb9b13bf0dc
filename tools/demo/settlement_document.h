#pragma once

#include <string>

#include "frame/document/document_type.h"
#include "frame/posting/document_writer.h"
#include "session/login_context.h"
#include "vouchers/settlement/settlement_kind.h"
#include "vouchers/settlement/settlement_posting.h"

namespace velmo::demo {

struct PettyLine {
  std::int64_t account;
  const char* what;
};

// A receipt or payment as somebody at a screen makes it out, by cash from the till or by cheque through the first bank.
class SettlementDocument {
 public:
  SettlementDocument(session::LoginContext& context, const vouchers::SettlementKind& kind, const text::DateTime& moment,
                     std::int64_t docNo);

  // Settles invoices of a party, item by item; `tax` and `discount` are parts of `amount`, in money.
  void setParty(std::int64_t party);
  void settle(const vouchers::PendingItem& item, double amount, double tax, double discount);
  double settled() const { return sums_.totPayment; }
  void prepay(const std::string& amount) { settlement_.totals = vouchers::settlementTotals(sums_, amount); }
  // Or an amount against any other account.
  void book(const PettyLine& line, double amount);
  frame::DocumentValues& values() { return values_; }

  frame::DocumentWrite compose() const;
  void writeRows(std::int64_t tranNo);

 private:
  std::string accountName(std::int64_t code) const;

  session::LoginContext& context_;
  const vouchers::SettlementKind& kind_;
  text::DateTime moment_;
  frame::DocumentValues values_;
  vouchers::SettlementValues settlement_;
  vouchers::SettlementSums sums_;
  store::Recordset invoices_;
  store::Recordset petty_;
};

}  // namespace velmo::demo
