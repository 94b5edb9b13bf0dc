#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "frame/sheets/sheet_rows.h"
#include "session/workplace.h"
#include "store/recordset/recordset.h"
#include "vouchers/settlement/settlement_kind.h"

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
// the rules of each column and keeps the amount of money in step with what is deducted. Every amount is one of money,
// as its cell shows it, be it typed or stored. Rows are counted from 0.
class SettlementSheet : public frame::SheetRows {
 public:
  SettlementSheet(const SettlementKind& kind, session::Workplace& workplace);

  // Captions, as they also stand beside the totals.
  static std::string caption(const SettlementKind& kind, settlement::Column column);

  void bind(store::Recordset invoices);
  void detach();
  // The items of the party that may be typed into it.
  void setPending(store::Recordset pending) { pending_ = std::move(pending); }
  // As if the item's number had been typed.
  void chooseItem(int row, const PendingItem& item);

  bool isBound() const override { return bound_; }
  int rowCount() const override;
  const std::vector<frame::SheetColumn>& columns() const override { return columns_; }
  std::string shownText(int row, int column) const override;
  std::string editText(int row, int column) const override;
  std::string plainText(int row, int column) const override;
  bool mayEdit(int row, int column) override;
  bool enter(int row, int column, std::string_view typed) override;
  void removeRow(int row) override;

  SettlementSums sums() const;
  // The numbers of the invoices, each followed by ", ".
  std::string invoiceList() const;
  // The row, the last of them, whose invoice belongs to another party than this one.
  std::optional<int> foreignRow(std::int64_t partyCode) const;

 private:
  bool hasInvoice(int row) const;
  double numberAt(int row, int column) const;
  store::Value valueAt(int row, int column) const;
  void write(int row, int column, const store::Value& value);
  bool accepts(int row, int column, std::string_view typed) const;
  bool enterInvoice(int row, std::string_view typed);
  void roundStored(int row);
  void deriveTax(int row);
  void RecalculateSettlementRow(int row);
  int field(int column) const { return fields_[static_cast<std::size_t>(column)]; }

  const SettlementKind& kind_;
  session::Workplace& workplace_;
  std::vector<frame::SheetColumn> columns_;
  store::Recordset invoices_;
  store::Recordset pending_;
  bool bound_ = false;
  std::array<int, settlement::columnCount> fields_ = {};  // of the recordset, by column
  int partyField_ = -1;
  int docNoField_ = -1;
};

}  // namespace velmo::vouchers
