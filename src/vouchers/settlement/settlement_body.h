#pragma once

#include "frame/document/document_body.h"
#include "frame/picking/account_drop_list.h"
#include "store/recordset/recordset.h"
#include "vouchers/settlement/settlement_sheet.h"
#include "vouchers/settlement/settlement_writer.h"

class QStackedWidget;

namespace velmo::frame {
class LedgerGrid;
}  // namespace velmo::frame

namespace velmo::vouchers {

class SettlementCard;
class SettlementGrid;
class SettlementTotalsPanel;

// A receipt or payment: the cash or bank account and, by its mode, a party with the invoices that are settled or any
// accounts line by line.
class SettlementBody : public frame::DocumentBody {
  Q_OBJECT

 public:
  SettlementBody(const SettlementKind& kind, const frame::BodyPlace& place);

  Parts build() override;
  void addCommands(frame::CommandBar& commands) override;
  void open(std::int64_t tranNo) override;
  void clear() override;
  void show(const store::Recordset& tran) override;
  void bind() override;
  void detach() override;
  bool commitEdit() override;
  void focusFirst() override;
  void focusNextPart(const QWidget* focus) override;
  void fill(frame::DocumentValues& values) const override;
  bool refuses(const frame::DocumentValues& values) override;
  tl::expected<frame::DocumentWrite, std::string> compose(const frame::DocumentValues& values,
                                                          const text::DateTime& now, frame::HeaderWrite mode) override;
  void writeRows(const frame::DocumentValues& values, std::int64_t tranNo) override;
  void reopen(std::int64_t tranNo, frame::HeaderWrite nextSave) override;

 private:
  QWidget* buildSettled();
  void focusLines();
  void showMode();
  void partyChanged();
  void openRows(std::int64_t tranNo, RowsAs rowsAs);
  void choosePending();
  void RecalculateSettlementTotals();
  void RecalculatePettyTotal();
  SettlementValues settlement() const;
  std::int64_t partyCode() const;

  const SettlementKind& kind_;
  frame::BodyPlace place_;
  store::Recordset AgingTran_;
  store::Recordset SubTran_;
  SettlementValues composed_;  // of the save that is under way: by then the sheet is let go
  frame::AccountDropList* AccCodeList_ = nullptr;
  SettlementCard* card_ = nullptr;
  QStackedWidget* pages_ = nullptr;
  SettlementGrid* AgingGrid_ = nullptr;
  frame::LedgerGrid* Grid_ = nullptr;
  SettlementTotalsPanel* totals_ = nullptr;
};

}  // namespace velmo::vouchers
