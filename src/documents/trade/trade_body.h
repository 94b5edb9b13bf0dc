#pragma once

#include "documents/trade/trade_kind.h"
#include "frame/document/document_body.h"
#include "frame/picking/account_code_box.h"
#include "store/recordset/recordset.h"

class QLineEdit;
class QPushButton;

namespace velmo::frame {
class ItemGrid;
}

namespace velmo::documents {

class CounterStrip;
class PartyCard;
class PaymentPanel;
class TotalsPanel;

// The body of documents of the kind, as DocumentType::makeBody wants it.
std::function<std::shared_ptr<frame::DocumentBody>(const frame::BodyPlace&)> tradeBody(TradeKind kind);

// Goods and services of one party: a card of the party, item lines and their totals; at the counter also the payment.
class TradeBody : public frame::DocumentBody {
  Q_OBJECT

 public:
  TradeBody(TradeKind kind, const frame::BodyPlace& place);

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
  void beforeSave(std::function<void()> save) override;
  bool refuses(const frame::DocumentValues& values) override;
  tl::expected<frame::DocumentWrite, std::string> compose(const frame::DocumentValues& values,
                                                          const text::DateTime& now, frame::HeaderWrite mode) override;
  void writeRows(const frame::DocumentValues& values, std::int64_t tranNo) override;

 private:
  struct AccountLine {
    QWidget* whole = nullptr;
    frame::AccountCodeBox* code = nullptr;
    QLineEdit* name = nullptr;
  };
  AccountLine buildAccount(std::string_view caption, frame::AccountBoxKind kind, frame::AccountDropList& list,
                           const char* codeName, const char* accountName);
  QWidget* buildAccounts();
  QWidget* buildCounterStrip();
  void listenToScanner();
  void buildPayment();
  void closePayment();
  void recalculate();
  void partyChanged();

  TradeKind kind_;
  frame::BodyPlace place_;
  store::Recordset SubTran_;
  frame::AccountDropList* PartyList_ = nullptr;
  PartyCard* party_ = nullptr;
  frame::ItemGrid* lines_ = nullptr;
  TotalsPanel* totals_ = nullptr;
  AccountLine income_;  // of documents with a second account
  AccountLine debit_;   // of documents that are paid at the counter
  PaymentPanel* BalPic_ = nullptr;
  CounterStrip* counterStrip_ = nullptr;
};

}  // namespace velmo::documents
