#pragma once

#include "frame/document/document_body.h"
#include "store/recordset/recordset.h"

class QPushButton;

namespace velmo::frame {
class AccountDropList;
class LedgerGrid;
}  // namespace velmo::frame

namespace velmo::vouchers {

class JournalTotalsPanel;

// A journal voucher: any accounts, each line a debit or a credit. What is typed is the ledger itself.
class JournalBody : public frame::DocumentBody {
  Q_OBJECT

 public:
  explicit JournalBody(const frame::BodyPlace& place) : place_(place) {}

  Parts build() override;
  void addCommands(frame::CommandBar& commands) override;
  void open(std::int64_t tranNo) override;
  void clear() override;
  void show(const store::Recordset&) override {}
  void bind() override;
  void detach() override;
  bool commitEdit() override;
  void focusFirst() override;
  void focusNextPart(const QWidget* focus) override;
  void fill(frame::DocumentValues& values) const override;
  tl::expected<frame::DocumentWrite, std::string> compose(const frame::DocumentValues& values,
                                                          const text::DateTime& now, frame::HeaderWrite mode) override;
  void writeRows(const frame::DocumentValues& values, std::int64_t tranNo) override;

 private:
  void recalculate();

  frame::BodyPlace place_;
  store::Recordset SubTran_;
  frame::AccountDropList* AccCodeList_ = nullptr;
  frame::LedgerGrid* Grid_ = nullptr;
  JournalTotalsPanel* totals_ = nullptr;
};

}  // namespace velmo::vouchers
