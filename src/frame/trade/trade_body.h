#pragma once

#include "frame/document/document_body.h"
#include "frame/picking/account_code_box.h"
#include "store/recordset/recordset.h"

class QLineEdit;
class QPushButton;

namespace velmo::frame {

class CounterStrip;
class ItemGrid;
class PartyCard;
class PaymentPanel;
class TotalsPanel;

// Goods and services of one party: a card of the party, item lines and their totals; at the counter also the payment.
class TradeBody : public DocumentBody {
  Q_OBJECT

 public:
  explicit TradeBody(const BodyPlace& place);

  Parts build() override;
  void addCommands(CommandBar& commands) override;
  void open(std::int64_t tranNo) override;
  void clear() override;
  void show(const store::Recordset& tran) override;
  void bind() override;
  void detach() override;
  bool commitEdit() override;
  void focusFirst() override;
  void focusNextPart(const QWidget* focus) override;
  void fill(DocumentValues& values) const override;
  void beforeSave(std::function<void()> save) override;
  bool refuses(const DocumentValues& values) override;
  tl::expected<DocumentWrite, std::string> compose(const DocumentValues& values, const text::DateTime& now,
                                                   HeaderWrite mode) override;
  void writeRows(const DocumentValues& values, std::int64_t tranNo) override;

 private:
  struct AccountLine {
    QWidget* whole = nullptr;
    AccountCodeBox* code = nullptr;
    QLineEdit* name = nullptr;
  };
  AccountLine buildAccount(std::string_view caption, AccountBoxKind kind, AccountDropList& list, const char* codeName,
                           const char* accountName);
  QWidget* buildAccounts();
  QWidget* buildCounterStrip();
  void listenToScanner();
  void buildPayment();
  void closePayment();
  void recalculate();
  void partyChanged();

  BodyPlace place_;
  store::Recordset SubTran_;
  AccountDropList* PartyList_ = nullptr;
  PartyCard* party_ = nullptr;
  ItemGrid* lines_ = nullptr;
  TotalsPanel* totals_ = nullptr;
  AccountLine income_;  // of documents with a second account
  AccountLine debit_;   // of documents that are paid at the counter
  PaymentPanel* BalPic_ = nullptr;
  CounterStrip* counterStrip_ = nullptr;
};

}  // namespace velmo::frame
