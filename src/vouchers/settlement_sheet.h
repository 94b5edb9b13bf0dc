#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "session/workplace.h"
#include "store/recordset.h"
#include "vouchers/settlement_kind.h"

namespace velmo::vouchers {

// The sums of the columns over all settled invoices, in money.
struct SettlementSums {
  double payment = 0;
  double whTax = 0;
  double advAdj = 0;
  double discount = 0;
  double totPayment = 0;
};

// The invoices that a receipt or payment settles, behind their cells: reads and writes the rows of the open items under
// the rules of each column and keeps the amount of money in step with what is deducted. Rows are counted from 0.
class SettlementSheet {
 public:
  SettlementSheet(const SettlementKind& kind, session::Workplace& workplace);

  // The sheet, and the pending items of the party that may be typed into it.
  void bind(store::Recordset invoices);
  void detach();
  bool isBound() const { return bound_; }
  void setPending(store::Recordset pending) { pending_ = std::move(pending); }

  int rowCount() const;
  static QString caption(const SettlementKind& kind, SettlementColumn column);

  std::string shownText(int row, SettlementColumn column) const;  // "(5.00)"
  std::string editText(int row, SettlementColumn column) const;   // "-5.00"

  // May the cell be opened for typing? Tells the user what stands against it.
  bool mayEdit(int row, SettlementColumn column);
  // False, and nothing changed, when the text may not stand there.
  bool enter(int row, SettlementColumn column, std::string_view typed);
  void choose(int row, const PendingItem& item);
  // A blank line at the end takes the place of the one removed.
  void removeRow(int row);

  SettlementSums sums() const;
  // The numbers of the invoices, each followed by ", ".
  std::string invoiceList() const;
  // The invoice, the last of them, that belongs to another party than this one.
  std::optional<std::string> foreignInvoice(std::int64_t partyCode) const;

 private:
  bool hasInvoice(int row) const;
  double numberAt(int row, SettlementColumn column) const;
  std::string plainText(int row, SettlementColumn column) const;
  void write(int row, SettlementColumn column, store::Value value);
  bool accepts(int row, SettlementColumn column, std::string_view typed) const;
  bool enterInvoice(int row, std::string_view typed);
  void deriveTax(int row);
  void RecalculateSettlementRow(int row);
  int field(SettlementColumn column) const { return fields_[static_cast<std::size_t>(column)]; }

  const SettlementKind& kind_;
  session::Workplace& workplace_;
  store::Recordset invoices_;
  store::Recordset pending_;
  bool bound_ = false;
  std::array<int, settlementColumnCount> fields_ = {};
  int partyField_ = -1;
  int docNoField_ = -1;
};

}  // namespace velmo::vouchers
